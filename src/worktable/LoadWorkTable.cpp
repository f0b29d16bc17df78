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
#include "worktable/Connection.h"
#include "worktable/PagesAhead.h"
#include "worktable/RowStore.h"
#include "worktable/clsDBEngine.h"
#include "worktable/RunInput.h"
#include "worktable/TableWriter.h"
#include "worktable/WorkingDatabase.h"

namespace corvalin {

namespace {

constexpr const char* kBusyTitle = "Working:  Please wait...";
constexpr const char* kBusyText = "Pulling columns from line: ";

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

// Loads the lines of the input into tft. The limits are checked line by line
// as the input is read, so an endless or huge input is answered at its first
// fault, in bounded memory.
void LoadLines(const std::string& inputPath, const ColumnFormat& format) {
  LoadLinesSource input(inputPath);
  const LineSplitter splitter(format);
  CleanedCells parsed;
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
  // A row of the image is its line number, its cells and its mark "N": the
  // cells' ends, the line number's length added, and the mark's end after.
  std::array<uint32_t, kMaxColumns + 2> ends{};
  char lineText[8];
  // Once the first lines tell how long a line of this file is, the room the
  // rest of them will fill is mapped on a thread of its own.
  constexpr long kLinesMeasured = 256;
  std::size_t bytesMeasured = 0;
  PagesAhead pagesAhead;

  // What was loaded before a Cancel or a failure goes into the table all
  // the same, so those rows stay.
  {
    // Held here until the writer is handed over: it must outlive it.
    const std::shared_ptr<Connection> connection = engine.Current();
    auto writer = std::make_unique<TableWriter>(*connection, image);
    try {
      int16_t lineNumber = 0;
      std::string_view line;
      while (!input.AtEnd()) {
        lineNumber = Inc16(lineNumber);
        ShowBusyCount(kBusyTitle, kBusyText, lineNumber);
        input.Next(line);
        RefuseNullCharacter(line, lineNumber);
        RefuseLineTooLong(line);
        splitter.CutCleaned(line, parsed);
        if (parsed.Count > Run().ColumnCount) Run().ColumnCount = parsed.Count;
        const auto digits = std::to_chars(lineText, lineText + sizeof lineText, lineNumber);
        const std::string_view number(lineText, static_cast<std::size_t>(digits.ptr - lineText));
        const auto cellsStart = static_cast<uint32_t>(number.size());
        ends[0] = cellsStart;
        // Cells past the line's last are empty, and stored so.
        for (std::size_t cell = 0; cell < parsed.Ends.size(); ++cell) ends[cell + 1] = cellsStart + parsed.Ends[cell];
        ends[kMaxColumns + 1] = ends[kMaxColumns] + 1;
        // The table is fresh: its rows are numbered from 1 in the order of the lines.
        const long long rowid = image->Count() + 1;
        // The writer reads the cells where the image keeps them: before the
        // image's room would move them (a file grown since its size was
        // taken), it takes the rows handed over.
        if (!image->ImageHasRoomFor(ends[kMaxColumns + 1])) writer->Drain();
        const std::array<std::string_view, 3> pieces{number, std::string_view(parsed.Text.data(), parsed.Length()), "N"};
        const char* stored = image->AppendImageRow(rowid, pieces, ends.data());
        writer->Add(rowid, lineNumber, parsed.Count, stored + cellsStart, parsed.Ends.data());
        if (rowid <= kLinesMeasured) {
          // Each line counted with one character for its line break.
          bytesMeasured += line.size() + 1;
          if (rowid == kLinesMeasured && input.KnownSize() > bytesMeasured) {
            const std::size_t linesLeft = (input.KnownSize() - bytesMeasured) * kLinesMeasured / bytesMeasured + 1;
            pagesAhead.Prepare(image->ImageRoomAhead(static_cast<long>(std::min(linesLeft, kRowsAtMost))));
          }
        }
        if (Run().BusyCancelled) break;
      }
    } catch (...) {
      try {
        // The lines cut before the failure reach the table all the same.
        writer->Finish();
      } catch (...) {
        // The first failure is the one to report.
      }
      throw;
    }
    // The last rows go in while the run goes on: the grid, the validation and
    // the translation read the image, and anything that uses the database
    // waits for them first.
    engine.FinishLater(connection, std::move(writer));
  }
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
