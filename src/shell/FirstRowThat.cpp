#include "shell/FirstRowThat.h"

#include <algorithm>
#include <atomic>
#include <thread>

#include "shell/RowBlocks.h"

namespace corvalin {

namespace {

bool Stops(const std::function<bool(long)>& stops, long row) {
  try {
    return stops(row);
  } catch (...) {
    // The pass that repeats this row reports the failure.
    return true;
  }
}

}  // namespace

long FirstRowThat(long count, const std::function<bool(long row)>& stops) {
  if (count < kRowsForTwoThreads) {
    for (long row = 0; row < count; ++row)
      if (Stops(stops, row)) return row;
    return count;
  }
  // Blocks are taken in row order, and a block is skipped only when a row
  // before it already stops: every row before the first that stops is seen.
  std::atomic<long> next{0};
  std::atomic<long> first{count};
  const auto look = [&] {
    for (;;) {
      const long start = next.fetch_add(1) * kRowsPerBlock;
      if (start >= count || start >= first.load()) return;
      const long end = std::min(count, start + kRowsPerBlock);
      for (long row = start; row < end; ++row) {
        if (!Stops(stops, row)) continue;
        long seen = first.load();
        while (row < seen && !first.compare_exchange_weak(seen, row)) {
        }
        return;
      }
    }
  };
  std::thread helper(look);
  look();
  helper.join();
  return first.load();
}

}  // namespace corvalin
