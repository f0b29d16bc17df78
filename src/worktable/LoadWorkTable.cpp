#include "worktable/LoadWorkTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "input/PullColumns.h"
#include "shell/Busy.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "worktable/RowStore.h"
#include "worktable/clsDBEngine.h"
#include "worktable/RunInput.h"
#include "worktable/WorkingDatabase.h"

namespace corvalin {

namespace {

constexpr const char* kBusyTitle = "Working:  Please wait...";
constexpr const char* kBusyText = "Pulling columns from line: ";

// The inserts of the load. A line's cells past its count are empty, so they
// go in as literal empty texts and only the cells the line has are bound:
// most survey files use few of the 30 columns. The cells are bound as they
// are: a bound text needs no doubled quotes, and stores what a quoted literal
// would have stored. Lines come into the table a block at a time: one
// statement inserts kBlockRows lines, which spares SQLite most of its work
// per statement; it binds as many cells of each as the widest line of the
// block has (the image holds the empty cells past a line's count). The
// lines of a last, short block go one by one.
class RowInserts {
 public:
  static constexpr int kBlockRows = 64;

  RowInserts(clsDBEngine& engine, RowStore& image) : engine_(engine), image_(image) {}

  // A line cut into its cells, kept in the image; it reaches the table with
  // its block, or at the latest at Flush.
  void Add(int16_t lineNumber, int count, const std::string_view* values) {
    if (pending_ == 0) {
      firstPending_ = image_.Count();
      pendingCount_ = 0;
    }
    counts_[static_cast<std::size_t>(pending_)] = static_cast<int16_t>(count);
    if (count > pendingCount_) pendingCount_ = count;
    lineNumbers_[static_cast<std::size_t>(pending_++)] = lineNumber;
    image_.AppendImageRow(0, values);
    if (pending_ == kBlockRows) Flush();
  }

  // Inserts the lines still waiting, and gives each its row id in the image.
  void Flush() {
    if (pending_ == 0) return;
    const int rows = pending_ == kBlockRows ? kBlockRows : 1;
    for (int done = 0; done < pending_; done += rows) {
      int parameter = 1;
      const int width = rows == 1 ? counts_[static_cast<std::size_t>(done)] : pendingCount_;
      PreparedStatement& insert = For(width, rows);
      for (int r = 0; r < rows; ++r) {
        const long row = firstPending_ + done + r;
        insert.BindInt(parameter++, lineNumbers_[static_cast<std::size_t>(done + r)]);
        // The cells as the image holds them: they stay put until the next line.
        for (int n = 1; n <= width; ++n) insert.BindTextNoCopy(parameter++, *image_.Cell(row, n));
      }
      insert.Run();
      const long long last = insert.LastRowId();
      for (int r = 0; r < rows; ++r) image_.SetRowId(firstPending_ + done + r, last - rows + 1 + r);
    }
    pending_ = 0;
  }

 private:
  PreparedStatement& For(int count, int rows) {
    std::unique_ptr<PreparedStatement>& insert =
        (rows == 1 ? single_ : block_).at(static_cast<std::size_t>(count));
    if (!insert) insert = engine_.Prepare(Statement(count, rows));
    return *insert;
  }

  static std::string Statement(int count, int rows) {
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

  clsDBEngine& engine_;
  RowStore& image_;
  std::array<std::unique_ptr<PreparedStatement>, kMaxColumns + 1> single_{};
  std::array<std::unique_ptr<PreparedStatement>, kMaxColumns + 1> block_{};
  std::array<int16_t, kBlockRows> lineNumbers_{};
  std::array<int16_t, kBlockRows> counts_{};
  long firstPending_ = 0;
  int pendingCount_ = 0;
  int pending_ = 0;
};

// A failure of the file system as the run-time error it stands for.
[[noreturn]] void RaiseFileError(const std::error_code& code, const std::string& source) {
  switch (code.value()) {
    case ENOENT: Raise(err::FileNotFound, source);
    case EACCES:
    case EPERM:
    case EROFS: Raise(err::PermissionDenied, source);
    case ENOSPC: Raise(err::DiskFull, source);
    default: Raise(err::PathFileAccess, source);
  }
}

// A fresh working database: a copy of the pristine empty one, made writable.
void CopyEmptyDatabase() {
  namespace fs = std::filesystem;
  const fs::path source = Run().InstallFolder + EmptyDatabaseName;
  std::error_code ec;
  if (!fs::exists(source, ec)) Raise(err::FileNotFound, "PrepareDatabase");
  // An unattended run works on a database of its own (WorkingDatabase.h).
  if (Run().CommandLineMode) MakePrivateWorkingDatabase();
  const fs::path target = WorkingDatabasePath(WorkingDatabaseName);
  fs::copy_file(source, target, fs::copy_options::overwrite_existing, ec);
  if (ec) RaiseFileError(ec, "PrepareDatabase");
  fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read | fs::perms::others_read,
                  fs::perm_options::replace, ec);
  if (ec) RaiseFileError(ec, "PrepareDatabase");
}

// The old working database goes, read-only or not. A run's own database is
// nobody else's and is simply written over.
void DeleteWorkingDatabase() {
  namespace fs = std::filesystem;
  if (Run().CommandLineMode || WorkingDatabaseIsPrivate()) return;
  const std::string path = ResolveFileNameCase(WorkingDatabasePath(WorkingDatabaseName));
  std::error_code ec;
  if (!fs::exists(path, ec)) return;
  fs::remove(path, ec);
  if (ec) RaiseFileError(ec, "PrepareDatabase");
}

// A null character has no place in a text file of trees: it comes from a
// spreadsheet saved in its own binary format or as 16-bit Unicode text. Its
// cells would reach the tree list with the null in them, so the load stops at
// that line and says which one, as a failed insert of the line would.
void RefuseNullCharacter(std::string_view line, int16_t lineNumber) {
  if (line.find('\0') == std::string_view::npos) return;
  Raise(err::DatabaseError, "CreateColumnsTable",
        "Input line " + std::to_string(lineNumber) + " holds a null character: the file is not plain text");
}

// A line too long to count its character positions ends the load, in
// either column mode, as the delimited split would end it.
void RefuseLineTooLong(std::string_view line) {
  if (line.size() > kLongestInputLine) Raise(err::Overflow, "CreateColumnsTable");
}

// The input's lines, one at a time: when the preview already took the first
// lines from a stream that cannot be read again, those come from the
// preview, and the rest from where the preview stopped.
class LoadLinesSource {
 public:
  explicit LoadLinesSource(const std::string& path) : input_(OpenRunInput(path)) {
    if (input_.linesTaken == 0) input_.lines.SkipByteOrderMark();
  }
  bool AtEnd() { return taken_ >= input_.linesTaken && input_.lines.AtEnd(); }
  std::size_t KnownSize() const { return input_.lines.KnownSize(); }
  void Next(std::string_view& line) {
    if (taken_ < input_.linesTaken) {
      line = Run().InputPreview.at(static_cast<std::size_t>(taken_++));
      return;
    }
    input_.lines.Next(line);
  }

 private:
  RunInput input_;
  int16_t taken_ = 0;
};

// Loads the lines of the input into tft with one prepared insert. The
// limits are checked line by line as the input is read, so an endless or
// huge input is answered at its first fault, in bounded memory.
void LoadLines(const std::string& inputPath, const ColumnFormat& format) {
  LoadLinesSource input(inputPath);
  const LineSplitter splitter(format);
  ParsedLine parsed;
  clsDBEngine& engine = DatabaseEngine();

  // The rows as the table now holds them, kept as they are inserted: the
  // grid, the validation and the translation read them from here instead of
  // reading the table back.
  std::vector<std::string> fields{"LineNum"};
  for (int n = 1; n <= kMaxColumns; ++n) fields.push_back("c" + std::to_string(n));
  fields.emplace_back("Excluded");
  std::shared_ptr<RowStore> image = RowStore::Image("tft", fields);
  // The cells of a line are never longer than the line, and each row adds
  // its line number and exclusion mark; a file's size bounds them all. Past
  // the cap (a file mostly refused at its first lines) the rows grow as read.
  constexpr std::size_t kRowsAtMost = 32767;
  constexpr std::size_t kMarksPerRow = 6;
  constexpr std::size_t kCellBytesReservedAtMost = std::size_t{64} << 20;
  image->ReserveImage(static_cast<long>(kRowsAtMost),
                      std::min(input.KnownSize(), kCellBytesReservedAtMost) + kRowsAtMost * kMarksPerRow);
  std::array<std::string_view, kMaxColumns + 2> values{};
  values[kMaxColumns + 1] = "N";
  char lineText[8];
  RowInserts inserts(engine, *image);

  // One transaction for the whole load; what was inserted before a Cancel or
  // a failure is committed all the same, so those rows stay in the table.
  engine.StartTrans();
  try {
    int16_t lineNumber = 0;
    std::string_view line;
    while (!input.AtEnd()) {
      lineNumber = Inc16(lineNumber);
      ShowBusyCount(kBusyTitle, kBusyText, lineNumber);
      input.Next(line);
      RefuseNullCharacter(line, lineNumber);
      RefuseLineTooLong(line);
      splitter.Split(line, parsed);
      if (parsed.Count > Run().ColumnCount) Run().ColumnCount = parsed.Count;
      for (int n = 1; n <= kMaxColumns; ++n) {
        const auto cell = static_cast<std::size_t>(n);
        values[cell] = n <= parsed.Count ? CleanCell(parsed.Columns[cell - 1]) : std::string_view();
      }
      const auto digits = std::to_chars(lineText, lineText + sizeof lineText, lineNumber);
      values[0] = std::string_view(lineText, static_cast<std::size_t>(digits.ptr - lineText));
      inserts.Add(lineNumber, parsed.Count, values.data());
      if (Run().BusyCancelled) break;
    }
    inserts.Flush();
  } catch (...) {
    try {
      // The lines cut before the failure reach the table all the same.
      inserts.Flush();
    } catch (...) {
      // The first failure is the one to report.
    }
    try {
      engine.CommtTrans();
    } catch (...) {
      // The first failure is the one to report.
    }
    throw;
  }
  engine.CommtTrans();
  engine.AdoptRows(std::move(image));
}

}  // namespace

void ReplaceWorkingDatabase(const std::function<void(const char*)>& trace) {
  // What was kept of the old file goes with it.
  ReleaseDatabase();
  DeleteWorkingDatabase();
  trace("FileCopy sAppDir emptytft.mdb");
  CopyEmptyDatabase();
}

void LoadInputLines(const std::string& inputPath, const ColumnFormat& format) {
  if (inputPath != NoInputFileMarker) LoadLines(inputPath, format);
}

}  // namespace corvalin
