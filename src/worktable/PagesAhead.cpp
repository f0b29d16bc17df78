#include "worktable/PagesAhead.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <system_error>

namespace corvalin {

namespace {

void MapPages(std::span<char> range) {
#ifdef MADV_POPULATE_WRITE
  static const auto pageSize = static_cast<uintptr_t>(::sysconf(_SC_PAGESIZE));
  const auto first = (reinterpret_cast<uintptr_t>(range.data()) + pageSize - 1) & ~(pageSize - 1);
  const auto last = (reinterpret_cast<uintptr_t>(range.data() + range.size())) & ~(pageSize - 1);
  // A kernel without it says so, and the pages are mapped as they are written.
  if (last > first) ::madvise(reinterpret_cast<void*>(first), last - first, MADV_POPULATE_WRITE);
#else
  (void)range;
#endif
}

}  // namespace

PagesAhead::~PagesAhead() {
  if (thread_.joinable()) thread_.join();
}

void PagesAhead::Prepare(std::vector<std::span<char>> ranges) {
  if (thread_.joinable()) return;
  try {
    thread_ = std::thread([ranges = std::move(ranges)] {
      for (const std::span<char> range : ranges) MapPages(range);
    });
  } catch (const std::system_error&) {
    // No thread to spare: the pages are mapped as they are written.
  }
}

}  // namespace corvalin
