#include "worktable/TableWriter.h"

#include <cstdint>

#include "input/ColumnFormat.h"
#include "worktable/Connection.h"
#include "worktable/TablePages.h"

namespace corvalin {

void TableWriter::Block::Clear() {
  rows.clear();
  ends.clear();
}

TableWriter::TableWriter(Connection& connection, std::shared_ptr<const void> cellsOwner)
    : cellsOwner_(std::move(cellsOwner)),
      pages_(std::make_unique<TablePages>(connection.db)),
      thread_([this] { Work(); }) {}

TableWriter::~TableWriter() {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    closing_ = true;
    waiting_.clear();
  }
  changed_.notify_all();
  thread_.join();
}

void TableWriter::Add(long long rowid, int16_t lineNumber, int count, const char* stored, const uint32_t* ends) {
  if (!filling_) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!spare_.empty()) {
      filling_ = std::move(spare_.back());
      spare_.pop_back();
    }
  }
  if (!filling_) {
    filling_ = std::make_unique<Block>();
    filling_->rows.reserve(kBlockRows);
    filling_->ends.reserve(kBlockRows * kMaxColumns);
  }
  Block& block = *filling_;
  block.rows.push_back(Row{stored, rowid, lineNumber, static_cast<int16_t>(count), static_cast<uint32_t>(block.ends.size())});
  block.ends.insert(block.ends.end(), ends, ends + count);
  if (static_cast<int>(block.rows.size()) == kBlockRows) Hand(std::move(filling_));
}

void TableWriter::Drain() {
  if (filling_ && !filling_->rows.empty()) Hand(std::move(filling_));
  std::unique_lock<std::mutex> lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty() && !busy_; });
  if (failure_) std::rethrow_exception(failure_);
}

// The writer's thread is idle once drained: the pages are this thread's to
// complete.
void TableWriter::Finish() {
  Drain();
  pages_->Complete();
}

void TableWriter::Hand(std::unique_ptr<Block> block) {
  bool wasIdle = false;
  {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.size() < kBlocksInFlight || failure_; });
    if (failure_) std::rethrow_exception(failure_);
    wasIdle = waiting_.empty();
    waiting_.push_back(std::move(block));
  }
  // A writer at work takes the next block without being woken.
  if (wasIdle) changed_.notify_all();
}

void TableWriter::Work() {
  for (;;) {
    std::unique_ptr<Block> block;
    bool wasFull = false;
    {
      std::unique_lock<std::mutex> lock(mutex_);
      changed_.wait(lock, [this] { return closing_ || !waiting_.empty(); });
      if (waiting_.empty()) return;
      wasFull = waiting_.size() == kBlocksInFlight;
      block = std::move(waiting_.front());
      waiting_.pop_front();
      busy_ = true;
    }
    // Only a reader held back by a full queue waits for a block to go.
    if (wasFull) changed_.notify_all();
    std::exception_ptr failure;
    try {
      Insert(*block);
    } catch (...) {
      failure = std::current_exception();
    }
    block->Clear();
    {
      std::lock_guard<std::mutex> lock(mutex_);
      busy_ = false;
      // After the first failure nothing more goes in: it is the one to report.
      if (failure && !failure_) failure_ = failure;
      if (failure_) waiting_.clear();
      spare_.push_back(std::move(block));
    }
    changed_.notify_all();
  }
}

void TableWriter::Insert(const Block& block) {
  for (const Row& row : block.rows)
    pages_->Append(row.rowid, row.lineNumber, row.count, row.stored, block.ends.data() + row.firstEnd);
}

}  // namespace corvalin
