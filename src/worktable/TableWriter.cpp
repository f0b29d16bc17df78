#include "worktable/TableWriter.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "input/ColumnFormat.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

// The inserts, prepared once each on the writer's thread. A line's cells past
// its count are empty, so they go in as literal empty texts and only the
// cells the line has are bound: most survey files use few of the 30 columns.
// A bound text needs no doubled quotes and stores what a quoted literal would
// have stored.
class TableWriter::Statements {
 public:
  explicit Statements(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

  PreparedStatement& For(int count, int rows) {
    std::unique_ptr<PreparedStatement>& insert = (rows == 1 ? single_ : block_).at(static_cast<std::size_t>(count));
    // The image holds what the inserts write: rows fetched before them stay
    // shared.
    if (!insert) insert = std::make_unique<PreparedStatement>(connection_, Text(count, rows), false);
    return *insert;
  }

 private:
  static std::string Text(int count, int rows) {
    std::string sql = "INSERT INTO tft (LineNum";
    for (int n = 1; n <= kMaxColumns; ++n) sql += ",c" + std::to_string(n);
    sql += ",Excluded) VALUES ";
    for (int r = 0; r < rows; ++r) {
      sql += r == 0 ? "(?" : ",(?";
      for (int n = 1; n <= kMaxColumns; ++n) sql += n <= count ? ",?" : ",''";
      sql += ",'N')";
    }
    return sql;
  }

  std::shared_ptr<Connection> connection_;
  std::array<std::unique_ptr<PreparedStatement>, kMaxColumns + 1> single_{};
  std::array<std::unique_ptr<PreparedStatement>, kMaxColumns + 1> block_{};
};

void TableWriter::Block::Clear() {
  rows.clear();
  lengths.clear();
}

// The statements share the connection without owning it: the connection
// owns the writer once the load hands it over, and would otherwise never go.
TableWriter::TableWriter(Connection& connection, std::shared_ptr<const void> cellsOwner)
    : cellsOwner_(std::move(cellsOwner)),
      statements_(std::make_unique<Statements>(std::shared_ptr<Connection>(std::shared_ptr<Connection>(), &connection))),
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

void TableWriter::Add(long long rowid, int16_t lineNumber, int count, const char* stored, const std::string_view* cells) {
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
    filling_->lengths.reserve(kBlockRows * kMaxColumns);
  }
  Block& block = *filling_;
  block.rows.push_back(Row{stored, rowid, lineNumber, static_cast<int16_t>(count), static_cast<uint32_t>(block.lengths.size())});
  for (int n = 0; n < count; ++n) {
    Assert(cells[n].size() <= UINT8_MAX);
    block.lengths.push_back(static_cast<uint8_t>(cells[n].size()));
  }
  if (static_cast<int>(block.rows.size()) == kBlockRows) Hand(std::move(filling_));
}

void TableWriter::Finish() {
  if (filling_ && !filling_->rows.empty()) Hand(std::move(filling_));
  std::unique_lock<std::mutex> lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty() && !busy_; });
  if (failure_) std::rethrow_exception(failure_);
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

// Each full group of a block goes in with one statement, as many cells of
// each line bound as its widest line has; the lines of a last, short group
// go one by one.
void TableWriter::Insert(const Block& block) {
  const std::size_t lines = block.rows.size();
  std::size_t done = 0;
  for (; done + kGroupRows <= lines; done += kGroupRows) {
    int widest = 0;
    for (std::size_t r = done; r < done + kGroupRows; ++r) widest = std::max<int>(widest, block.rows[r].count);
    InsertGroup(block, done, kGroupRows, widest);
  }
  for (; done < lines; ++done) InsertGroup(block, done, 1, block.rows[done].count);
}

void TableWriter::InsertGroup(const Block& block, std::size_t first, int rows, int width) {
  PreparedStatement& insert = statements_->For(width, rows);
  int parameter = 1;
  for (std::size_t r = first; r < first + static_cast<std::size_t>(rows); ++r) {
    const Row& row = block.rows[r];
    insert.BindInt(parameter++, row.lineNumber);
    const char* cell = row.stored;
    const uint8_t* length = block.lengths.data() + row.firstLength;
    for (int n = 0; n < row.count; ++n) {
      insert.BindTextNoCopy(parameter++, std::string_view(cell, length[n]));
      cell += length[n];
    }
    // The cells a line lacks up to the group's widest are empty.
    for (int n = row.count; n < width; ++n) insert.BindTextNoCopy(parameter++, std::string_view(""));
  }
  insert.Run();
  // SQLite numbers the rows of the fresh table in order, as the image
  // does; a table that was not fresh would leave the image pointing at the
  // wrong rows.
  const long long last = block.rows[first + static_cast<std::size_t>(rows) - 1].rowid;
  if (insert.LastRowId() != last)
    throw RuntimeError(err::DatabaseError, "CreateColumnsTable",
                       "row " + std::to_string(insert.LastRowId()) + " of tft was expected as row " + std::to_string(last));
}

}  // namespace corvalin
