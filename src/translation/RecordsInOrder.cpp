#include "translation/RecordsInOrder.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include "shell/RowBlocks.h"

namespace corvalin {

namespace {

struct Block {
  std::string text;
  std::vector<std::size_t> ends;
  // The failure of the row after the last record, if one failed.
  std::exception_ptr failure;
};

// Makes the records of rows first to last - 1; the first failure ends the
// block with the records of the rows before it.
void MakeBlock(long first, long last, const MakeRecord& make, Block& block) {
  try {
    for (long row = first; row < last; ++row) {
      const std::size_t before = block.text.size();
      make(row, block.text);
      if (block.text.size() != before) block.ends.push_back(block.text.size());
    }
  } catch (...) {
    block.text.resize(block.ends.empty() ? 0 : block.ends.back());
    block.failure = std::current_exception();
  }
}

void WriteBlock(const Block& block, const WriteRecord& write) {
  std::size_t start = 0;
  for (const std::size_t end : block.ends) {
    write(std::string_view(block.text).substr(start, end - start));
    start = end;
  }
  if (block.failure) std::rethrow_exception(block.failure);
}

void OneAfterAnother(long count, const MakeRecord& make, const WriteRecord& write) {
  std::string text;
  for (long row = 0; row < count; ++row) {
    text.clear();
    make(row, text);
    if (!text.empty()) write(text);
  }
}

// Both threads take the next block not yet taken; this one writes the blocks
// in order, making one itself whenever the next to write is not ready.
class Together {
 public:
  Together(long count, const MakeRecord& make)
      : count_(count), make_(make), blocks_((count + kRowsPerBlock - 1) / kRowsPerBlock), ready_(blocks_.size(), false) {}

  ~Together() {
    stop_ = true;
    if (helper_.joinable()) helper_.join();
  }

  void Write(const WriteRecord& write) {
    helper_ = std::thread([this] {
      while (TakeOne()) {
      }
    });
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
      while (!Ready(b)) {
        if (TakeOne()) continue;
        // Every block before a failed one is taken before it, and whoever
        // takes a block makes it: the one to write next comes.
        std::unique_lock<std::mutex> lock(mutex_);
        made_.wait(lock, [&] { return static_cast<bool>(ready_[b]); });
      }
      WriteBlock(blocks_[b], write);
      blocks_[b] = Block{};
    }
  }

 private:
  bool Ready(std::size_t b) {
    std::lock_guard<std::mutex> lock(mutex_);
    return ready_[b];
  }

  // Makes the next block nobody has taken; false when there is none, or
  // when a failure or the end of the writing makes more pointless.
  bool TakeOne() {
    if (stop_) return false;
    const long b = next_.fetch_add(1);
    if (b >= static_cast<long>(blocks_.size())) return false;
    Block& block = blocks_[static_cast<std::size_t>(b)];
    MakeBlock(b * kRowsPerBlock, std::min(count_, (b + 1) * kRowsPerBlock), make_, block);
    if (block.failure) stop_ = true;
    {
      std::lock_guard<std::mutex> lock(mutex_);
      ready_[static_cast<std::size_t>(b)] = true;
    }
    made_.notify_all();
    return true;
  }

  const long count_;
  const MakeRecord& make_;
  std::vector<Block> blocks_;
  std::vector<bool> ready_;
  std::atomic<long> next_{0};
  std::atomic<bool> stop_{false};
  std::mutex mutex_;
  std::condition_variable made_;
  std::thread helper_;
};

}  // namespace

void WriteRecordsInOrder(long count, bool together, const MakeRecord& make, const WriteRecord& write) {
  if (!together || count < kRowsForTwoThreads) {
    OneAfterAnother(count, make, write);
    return;
  }
  Together(count, make).Write(write);
}

}  // namespace corvalin
