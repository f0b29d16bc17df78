#include "worktable/TableWriter.h"

#include <array>

#include "input/ColumnFormat.h"
#include "shell/Error.h"
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
  cells.clear();
  ends.clear();
  rowids.clear();
  lineNumbers.clear();
  counts.clear();
  widest = 0;
}

// The statements share the connection without owning it: the connection
// owns the writer once the load hands it over, and would otherwise never go.
TableWriter::TableWriter(Connection& connection)
    : statements_(std::make_unique<Statements>(std::shared_ptr<Connection>(std::shared_ptr<Connection>(), &connection))),
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

void TableWriter::Add(long long rowid, int16_t lineNumber, int count, const std::string_view* cells) {
  if (!filling_) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!spare_.empty()) {
      filling_ = std::move(spare_.back());
      spare_.pop_back();
    }
  }
  if (!filling_) filling_ = std::make_unique<Block>();
  Block& block = *filling_;
  block.rowids.push_back(rowid);
  block.lineNumbers.push_back(lineNumber);
  block.counts.push_back(static_cast<int16_t>(count));
  if (count > block.widest) block.widest = count;
  for (int n = 0; n < count; ++n) {
    block.cells.append(cells[n]);
    block.ends.push_back(static_cast<uint32_t>(block.cells.size()));
  }
  if (static_cast<int>(block.rowids.size()) == kBlockRows) Hand(std::move(filling_));
}

void TableWriter::Finish() {
  if (filling_ && !filling_->rowids.empty()) Hand(std::move(filling_));
  std::unique_lock<std::mutex> lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty() && !busy_; });
  if (failure_) std::rethrow_exception(failure_);
}

void TableWriter::Hand(std::unique_ptr<Block> block) {
  {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.size() < kBlocksInFlight || failure_; });
    if (failure_) std::rethrow_exception(failure_);
    waiting_.push_back(std::move(block));
  }
  changed_.notify_all();
}

void TableWriter::Work() {
  for (;;) {
    std::unique_ptr<Block> block;
    {
      std::unique_lock<std::mutex> lock(mutex_);
      changed_.wait(lock, [this] { return closing_ || !waiting_.empty(); });
      if (waiting_.empty()) return;
      block = std::move(waiting_.front());
      waiting_.pop_front();
      busy_ = true;
    }
    changed_.notify_all();
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

// A full block goes in with one statement, as many cells of each line bound
// as its widest line has; the lines of a last, short block go one by one.
void TableWriter::Insert(const Block& block) {
  const auto lines = static_cast<int>(block.rowids.size());
  const int rows = lines == kBlockRows ? kBlockRows : 1;
  const std::string_view cells(block.cells);
  std::size_t cell = 0;
  uint32_t start = 0;
  for (int done = 0; done < lines; done += rows) {
    const int width = rows == 1 ? block.counts[static_cast<std::size_t>(done)] : block.widest;
    PreparedStatement& insert = statements_->For(width, rows);
    int parameter = 1;
    for (int r = done; r < done + rows; ++r) {
      const auto row = static_cast<std::size_t>(r);
      insert.BindInt(parameter++, block.lineNumbers[row]);
      const int count = block.counts[row];
      for (int n = 0; n < count; ++n, ++cell) {
        const uint32_t end = block.ends[cell];
        insert.BindTextNoCopy(parameter++, cells.substr(start, end - start));
        start = end;
      }
      // The cells a line lacks up to the block's widest are empty.
      for (int n = count; n < width; ++n) insert.BindTextNoCopy(parameter++, std::string_view(""));
    }
    insert.Run();
    // SQLite numbers the rows of the fresh table in order, as the image
    // does; a table that was not fresh would leave the image pointing at the
    // wrong rows.
    const long long last = block.rowids[static_cast<std::size_t>(done + rows - 1)];
    if (insert.LastRowId() != last)
      throw RuntimeError(err::DatabaseError, "CreateColumnsTable",
                         "row " + std::to_string(insert.LastRowId()) + " of tft was expected as row " + std::to_string(last));
  }
}

}  // namespace corvalin
