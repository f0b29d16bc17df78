// Filling the working table: PrepareDatabase and CreateColumnsTable, through
// frmColumns as the user reaches them.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/EventScope.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "templates/TemplateCommands.h"
#include "screens/PrepareDatabase.h"
#include "worktable/WorkingDatabase.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using Row = std::vector<std::string>;

ino_t InodeOf(const fs::path& path) {
  struct stat info {};
  ::stat(path.c_str(), &info);
  return info.st_ino;
}

// A pristine empty working database, made from the schema of the source tree.
void MakeEmptyDatabase(const fs::path& path) {
  const std::string schema = testing::ReadFile(testing::SourceDir() / "data" / "tft_schema.sql");
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(db, schema.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(db);
}

class LoadTable : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    ResetMarkers();
    ResetCommands();
    fs::create_directories(home / "install");
    Run().InstallFolder = (home / "install").string() + "/";
    MakeEmptyDatabase(home / "install" / "EmptyTFT.mdb");
    Run().ReloadNeeded = true;
  }
  void TearDown() override {
    CloseDatabase();
    TftRecords().reset();
    ResetMarkers();
    ResetCommands();
    FreshProcess::TearDown();
  }

  // The working database the load fills: TFT.mdb of the Data folder, or an
  // unattended run's own.
  static fs::path Database() { return WorkingDatabasePath(WorkingDatabaseName); }

  // The input file named on frmTemplate, and frmColumns loaded over it.
  frmColumns& Input(const std::string& text) {
    const auto path = home / "trees.csv";
    testing::WriteFile(path, text);
    App().Template().lblInputFile.SetCaption(path.string());
    return App().Columns();
  }

  // Every row of tft in table order: LineNum, c1..c30, Excluded. The file is
  // checked whole by SQLite first: its pages, their cells and their order.
  std::vector<Row> Rows() const {
    // The file is read from outside the engine: the load's last inserts
    // may still be going.
    FinishDatabaseWrites();
    std::vector<Row> rows;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(Database().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
      sqlite3_close(db);
      ADD_FAILURE() << "no working database";
      return rows;
    }
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &statement, nullptr);
    std::string integrity;
    while (sqlite3_step(statement) == SQLITE_ROW)
      integrity += reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    EXPECT_EQ(integrity, "ok");
    sqlite3_prepare_v2(db, "SELECT * FROM tft ORDER BY rowid", -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      Row row;
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        row.push_back(text == nullptr ? "<null>" : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, i))));
      }
      rows.push_back(row);
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
  }

  long RowCount() const { return static_cast<long>(Rows().size()); }

  // The input is a pipe that a child process writes text into; the preview
  // of frmColumns has read from it.
  struct PipedInput {
    pid_t writer = -1;
    void Wait() const {
      int status = 0;
      if (writer > 0) ::waitpid(writer, &status, 0);
    }
  };
  PipedInput InputFromPipe(const std::string& text) {
    int ends[2];
    if (::pipe(ends) != 0) {
      ADD_FAILURE() << "no pipe";
      return {};
    }
    const pid_t writer = ::fork();
    if (writer == 0) {
      ::close(ends[0]);
      std::size_t done = 0;
      while (done < text.size()) {
        const ssize_t n = ::write(ends[1], text.data() + done, text.size() - done);
        if (n <= 0) ::_exit(1);
        done += static_cast<std::size_t>(n);
      }
      ::_exit(0);
    }
    ::close(ends[1]);
    App().Template().lblInputFile.SetCaption("/proc/self/fd/" + std::to_string(ends[0]));
    App().Columns();
    ::close(ends[0]);  // the program holds its own open of the pipe
    return PipedInput{writer};
  }

  void Execute(const std::string& sql) const {
    FinishDatabaseWrites();
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(Database().c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
  }

  // A row as loaded: line number, the cells given, the rest empty, "N".
  static Row Expected(int lineNumber, const std::vector<std::string>& cells) {
    Row row{std::to_string(lineNumber)};
    for (int n = 0; n < kMaxColumns; ++n)
      row.push_back(n < static_cast<int>(cells.size()) ? cells[static_cast<std::size_t>(n)] : "");
    row.push_back("N");
    return row;
  }

  static std::string Lines(int count) {
    std::string text;
    text.reserve(static_cast<std::size_t>(count) * 8);
    for (int n = 1; n <= count; ++n) text += std::to_string(n) + ",x\r\n";
    return text;
  }
};

TEST_F(LoadTable, EveryLineBecomesARowWithItsCells) {
  Input("p1,1,DF,12.5\r\np1,2,WH,8\r\n");
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"p1", "1", "DF", "12.5"}), Expected(2, {"p1", "2", "WH", "8"})}));
  EXPECT_FALSE(Run().ReloadNeeded);
  EXPECT_EQ(Run().ColumnCount, 4);
  EXPECT_TRUE(App().HeadersLoaded());
  EXPECT_EQ(Run().TraceStep, "Load frmHeaders-END");
}

TEST_F(LoadTable, EmptyLineGetsARowAndTheNextLineKeepsItsNumber) {
  Input("a,b\r\n\r\nc,d\r\n");
  PrepareDatabase();
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"a", "b"}), Expected(2, {}), Expected(3, {"c", "d"})}));
}

TEST_F(LoadTable, LinesEndAtCrCrLfOrLf) {
  Input("a\rb\nc\r\nd");
  PrepareDatabase();
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"a"}), Expected(2, {"b"}), Expected(3, {"c"}), Expected(4, {"d"})}));
}

TEST_F(LoadTable, CellWithASingleQuoteIsStoredWithIt) {
  Input("it's,O'Neil's ''pine''\r\n");
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"it's", "O'Neil's ''pine''"})}));
}

TEST_F(LoadTable, CellsAreTrimmedOfSpacesAndCutTo100Characters) {
  std::string longCell;
  for (int k = 0; k < 150; ++k) longCell += static_cast<char>('a' + k % 26);
  Input("   padded   ,\ttab\t,     " + longCell + "  \r\n");
  PrepareDatabase();
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][1], "padded");
  EXPECT_EQ(rows[0][2], "\ttab\t");
  EXPECT_EQ(rows[0][3], longCell.substr(0, 100));
}

TEST_F(LoadTable, HundredCharactersOfQuotesAreKeptWhole) {
  const std::string quotes(100, '\'');
  Input(quotes + "',x\r\n");
  PrepareDatabase();
  EXPECT_EQ(Rows().at(0)[1], quotes);
}

TEST_F(LoadTable, FortyColumnsLeaveTheRestInC30) {
  std::string line;
  for (int k = 1; k <= 40; ++k) line += "v" + std::to_string(k) + ",";
  Input(line + "\r\n");
  PrepareDatabase();
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][29], "v29");
  EXPECT_EQ(rows[0][30], "v30,v31,v32,v33,v34,v35,v36,v37,v38,v39,v40,");
  EXPECT_EQ(Run().ColumnCount, 30);
}

TEST_F(LoadTable, BusyWindowNamesEveryLine) {
  Input("a\r\nb\r\nc\r\n");
  PrepareDatabase();
  using Shown = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(ui.busyWindow, (Shown{{"Working:  Please wait...", "Pulling columns from line: 1"},
                                  {"Working:  Please wait...", "Pulling columns from line: 2"},
                                  {"Working:  Please wait...", "Pulling columns from line: 3"}}));
  EXPECT_EQ(ui.busyHides, 1);
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(LoadTable, UnattendedRunShowsNoBusyWindow) {
  Input("a\r\nb\r\n");
  Run().CommandLineMode = true;
  PrepareDatabase();
  EXPECT_TRUE(ui.busyWindow.empty());
  EXPECT_EQ(ui.busyHides, 0);
  EXPECT_EQ(RowCount(), 2);
}

// Runs started together and a wizard open beside them each keep their own
// table: the unattended run leaves the wizard's TFT.mdb alone.
TEST_F(LoadTable, UnattendedRunLoadsADatabaseOfItsOwnAndLeavesTheWizardsAlone) {
  testing::WriteFile(home / "Data" / "TFT.mdb", "the wizard's table");
  Input("a\r\nb\r\n");
  Run().CommandLineMode = true;
  PrepareDatabase();
  EXPECT_EQ(testing::ReadFile(home / "Data" / "TFT.mdb"), "the wizard's table");
  const fs::path own = Database();
  EXPECT_EQ(own.parent_path(), home / "Data");
  EXPECT_EQ(own.filename().string().rfind("TFT-", 0), 0u) << own;
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"a"}), Expected(2, {"b"})}));
  CloseDatabase();
  TftRecords().reset();
  ForgetPrivateWorkingDatabase();
  EXPECT_FALSE(fs::exists(own));
}

// What a killed run left is cleared by the next one; the database of a run
// that is still going stays.
TEST_F(LoadTable, UnattendedRunClearsTheDatabasesOfKilledRuns) {
  const pid_t gone = ::fork();
  if (gone == 0) ::_exit(0);
  ::waitpid(gone, nullptr, 0);
  char host[256] = {};
  ::gethostname(host, sizeof host - 1);
  std::string hostName = host;
  for (char& c : hostName)
    if (c == '-') c = '_';
  const std::string prefix = "TFT-" + hostName + "-";
  const fs::path left = home / "Data" / (prefix + std::to_string(gone) + "-abcdef.mdb");
  const fs::path going = home / "Data" / (prefix + std::to_string(::getppid()) + "-ghijkl.mdb");
  testing::WriteFile(left, "left");
  testing::WriteFile(going, "going");
  Input("a\r\n");
  Run().CommandLineMode = true;
  PrepareDatabase();
  EXPECT_FALSE(fs::exists(left));
  EXPECT_TRUE(fs::exists(going));
}

TEST_F(LoadTable, FileOf32767LinesLoads) {
  Input(Lines(32767));
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 32767u);
  EXPECT_EQ(rows.back(), Expected(32767, {"32767", "x"}));
}

// Lines of every width from 1 to 7 cells, every third one with a qualified
// cell that holds a delimiter and a doubled qualifier: the rows go in by
// blocks of many lines, the last ones line by line, and each keeps its own.
TEST_F(LoadTable, EveryRowOfAFileOfMixedLinesHoldsItsOwnCells) {
  std::string text;
  std::vector<Row> expected;
  for (int k = 1; k <= 1000; ++k) {
    std::vector<std::string> cells{std::to_string(k)};
    std::string line = std::to_string(k);
    for (int n = 1; n < k % 7 + 1; ++n) {
      if (n == 1 && k % 3 == 0) {
        line += ",\"q," + std::to_string(k) + " \"\"x\"\"\"y";
        cells.push_back("q," + std::to_string(k) + " \"x\"y");
      } else {
        line += ", c" + std::to_string(n * k) + " ";
        cells.push_back("c" + std::to_string(n * k));
      }
    }
    text += line + "\r\n";
    expected.push_back(Expected(k, cells));
  }
  frmColumns& screen = Input(text);
  screen.cmbTextQualifiers.Select(0);
  screen.cmbTextQualifiers_Click();
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), expected);
  EXPECT_EQ(Run().ColumnCount, 7);
}

// A pipe has no size to take room by: its rows outgrow the room taken at the
// start, and those written before go in first, whole.
TEST_F(LoadTable, PipedRowsBeyondTheRoomTakenAtTheStartStayWhole) {
  std::string text;
  std::vector<Row> expected;
  for (int n = 1; n <= 3000; ++n) {
    const std::string cell(100, static_cast<char>('a' + n % 26));
    text += std::to_string(n) + "," + cell + "\r\n";
    expected.push_back(Expected(n, {std::to_string(n), cell}));
  }
  const PipedInput input = InputFromPipe(text);
  PrepareDatabase();
  input.Wait();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), expected);
}

TEST_F(LoadTable, FileOf32768LinesFailsWithOverflowAndKeepsTheRowsSoFar) {
  Input(Lines(32768));
  PrepareDatabase();
  EXPECT_EQ(ui.Texts(),
            (std::vector<std::string>{"Error preparing database\r\n6 - 'Overflow'\r\nLine: CreateColumnsTable"}));
  EXPECT_EQ(RowCount(), 32767);
  EXPECT_TRUE(Run().ReloadNeeded);
  EXPECT_TRUE(ui.busyPointer);
  EXPECT_FALSE(App().HeadersLoaded());
}

TEST_F(LoadTable, LineWithANullCharacterStopsTheLoadAndNamesTheLine) {
  Input(std::string("p1,1,DF,12.5\r\np1,2\0,WH,8\r\np1,3,DF,9\r\n", 37));
  PrepareDatabase();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{
                            "Error preparing database\r\n3709 - 'Input line 2 holds a null character: the file is "
                            "not plain text'\r\nLine: CreateColumnsTable"}));
  // The line before it stays, the rest waits for a corrected file.
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0], Expected(1, {"p1", "1", "DF", "12.5"}));
  EXPECT_TRUE(Run().ReloadNeeded);
}

// The failure is reported, the pointer stays busy as a failed routine
// leaves it, and the busy window the load showed goes when the event ends.
TEST_F(LoadTable, ALoadThatFailsLeavesNoBusyWindowOnceItsEventEnds) {
  Input(std::string("p1,1,DF,12.5\r\np1,2\0,WH,8\r\np1,3,DF,9\r\n", 37));
  {
    EventScope event;
    PrepareDatabase();
    EXPECT_TRUE(Run().BusyWindowLoaded);
    EXPECT_EQ(ui.busyHides, 0);
  }
  EXPECT_EQ(ui.boxes.size(), 1u);
  EXPECT_FALSE(Run().BusyWindowLoaded);
  EXPECT_EQ(ui.busyHides, 1);
  EXPECT_TRUE(ui.busyPointer);
}

// A line of 32,767 characters cannot be counted in either column mode: in
// fixed width mode too the load ends there, and reads nothing past it.
TEST_F(LoadTable, LineTooLongToCountEndsAFixedWidthLoadInOverflow) {
  SaveSetting(SettingsApplication, "Corvalin", "FixedWidth", "YES");
  SaveSetting(SettingsApplication, "Corvalin", "NumMarkers", "1");
  SaveSetting(SettingsApplication, "Corvalin", "FixedMarker1", "2");
  Input("p1DF\r\n" + std::string(32766, 'x') + "\r\n" + std::string(32767, 'y') + "\r\np2WH\r\n");
  PrepareDatabase();
  EXPECT_EQ(ui.Texts(),
            (std::vector<std::string>{"Error preparing database\r\n6 - 'Overflow'\r\nLine: CreateColumnsTable"}));
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1], Expected(2, {"xx", std::string(100, 'x')}));
}

// A pipe can be read once: the lines the preview took from it come from the
// preview, the rest from where the preview stopped.
TEST_F(LoadTable, PipeLoadsTheLinesThePreviewTookAndTheRest) {
  std::string text;
  for (int n = 1; n <= 1500; ++n) text += std::to_string(n) + ",x\r\n";
  const PipedInput input = InputFromPipe(text);
  EXPECT_EQ(Run().InputPreviewCount, 999);
  PrepareDatabase();
  input.Wait();
  EXPECT_TRUE(ui.boxes.empty());
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 1500u);
  EXPECT_EQ(rows[998], Expected(999, {"999", "x"}));
  EXPECT_EQ(rows[999], Expected(1000, {"1000", "x"}));
  EXPECT_EQ(rows.back(), Expected(1500, {"1500", "x"}));
}

TEST_F(LoadTable, ByteOrderMarkOfASpreadsheetExportIsNoPartOfTheFirstCell) {
  Input("\xEF\xBB\xBF" "p1,1,DF,12.5\r\np1,2,WH,8\r\n");
  // Neither the preview nor the table shows it.
  EXPECT_EQ(Run().InputPreview, (std::vector<std::string>{"p1,1,DF,12.5", "p1,2,WH,8"}));
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0], Expected(1, {"p1", "1", "DF", "12.5"}));
}

TEST_F(LoadTable, FailureInAnUnattendedRunEndsItWithUntrappedError) {
  Input("a\r\n");
  fs::remove(home / "install" / "EmptyTFT.mdb");
  Run().CommandLineMode = true;
  EXPECT_THROW(PrepareDatabase(), ProcessEnded);
  EXPECT_EQ(testing::ReadFile(home / "Work" / "result.txt"), "Untrapped error.\r\n");
}

TEST_F(LoadTable, MissingEmptyDatabaseNamesTheCopyStep) {
  Input("a\r\n");
  fs::remove(home / "install" / "EmptyTFT.mdb");
  PrepareDatabase();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{
                            "Error preparing database\r\n53 - 'File not found'\r\nLine: FileCopy sAppDir emptytft.mdb"}));
  EXPECT_TRUE(Run().ReloadNeeded);
}

TEST_F(LoadTable, ReadOnlyOldDatabaseIsReplaced) {
  Input("a\r\n");
  testing::WriteFile(Database(), "old");
  fs::permissions(Database(), fs::perms::owner_read, fs::perm_options::replace);
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"a"})}));
  EXPECT_NE(fs::status(Database()).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(LoadTable, FixedWidthMarkersOutOfOrderAreSortedFirst) {
  SaveSetting(SettingsApplication, "Corvalin", "FixedWidth", "YES");
  SaveSetting(SettingsApplication, "Corvalin", "NumMarkers", "3");
  SaveSetting(SettingsApplication, "Corvalin", "FixedMarker1", "7");
  SaveSetting(SettingsApplication, "Corvalin", "FixedMarker2", "2");
  SaveSetting(SettingsApplication, "Corvalin", "FixedMarker3", "4");
  frmColumns& screen = Input("p1DF 12.5 x\r\n");
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"p1", "DF", "12", ".5 x"})}));
  EXPECT_EQ(Markers().ColumnMarkers(1), 2);
  EXPECT_EQ(Markers().ColumnMarkers(2), 4);
  EXPECT_EQ(Markers().ColumnMarkers(3), 7);
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[1].X, 7 * 90.0);  // lines stay where the user put them
}

TEST_F(LoadTable, NoInputFileGivesAnEmptyTableAndReplaysOnNothing) {
  App().Template().lblInputFile.SetCaption(NoInputFileMarker);
  App().Columns();
  Commands().CommandCount = 1;
  TemplateCommandAt(1) = TemplateCommand{"EXCLUDE_RANGE", "", "", 0, 1, 5, ""};
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_TRUE(fs::exists(Database()));
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(Run().ColumnCount, 0);
  EXPECT_FALSE(Run().ReloadNeeded);
  EXPECT_TRUE(App().HeadersLoaded());
  EXPECT_TRUE(ui.busyWindow.empty());
}

TEST_F(LoadTable, CommandsAreReplayedOnTheFreshTable) {
  Input("1,a\r\n2,b\r\n3,c\r\n4,d\r\n");
  Commands().CommandCount = 2;
  TemplateCommandAt(1) = TemplateCommand{"EXCLUDE_RANGE", "", "", 0, 2, 3, ""};
  TemplateCommandAt(2) = TemplateCommand{"NO_SUCH_KIND", "", "", 0, 1, 4, ""};
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0][31], "N");
  EXPECT_EQ(rows[1][31], "Y");
  EXPECT_EQ(rows[2][31], "Y");
  EXPECT_EQ(rows[3][31], "N");
}

TEST_F(LoadTable, NextTwiceWithoutChangeLeavesTheTableAndCommandsAlone) {
  frmColumns& screen = Input("1,a\r\n2,b\r\n3,c\r\n");
  Commands().CommandCount = 1;
  TemplateCommandAt(1) = TemplateCommand{"EXCLUDE_RANGE", "", "", 0, 2, 2, ""};
  screen.cmdNext_Click();
  ASSERT_TRUE(ui.boxes.empty()) << ui.boxes.front().text;
  EXPECT_TRUE(App().Headers().Visible());
  EXPECT_FALSE(screen.Visible());
  EXPECT_EQ(App().Headers().cmdNext.Caption, "Done");
  // An edit on the grid, and the row that the command excluded taken back.
  Execute("UPDATE tft SET Excluded = 'N', c2 = 'edited' WHERE LineNum = 2");
  const ino_t inode = InodeOf(Database());
  const auto written = fs::last_write_time(Database());
  const std::size_t busyLines = ui.busyWindow.size();
  App().Headers().Hide();
  screen.Show();
  screen.cmdNext_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(fs::last_write_time(Database()), written);
  EXPECT_EQ(InodeOf(Database()), inode);
  EXPECT_EQ(ui.busyWindow.size(), busyLines);
  EXPECT_EQ(Rows().at(1), (Expected(2, {"2", "edited"})));
  EXPECT_TRUE(App().Headers().Visible());
}

TEST_F(LoadTable, FormatChangeReloadsAndThrowsGridEditsAway) {
  frmColumns& screen = Input("1,a\r\n2,b\r\n");
  screen.cmdNext_Click();
  Execute("UPDATE tft SET c2 = 'edited' WHERE LineNum = 2");
  App().Headers().Hide();
  screen.Show();
  screen.chkSemicolon.Value = 1;
  screen.chkSemicolon_Click();
  screen.cmdNext_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"1", "a"}), Expected(2, {"2", "b"})}));
}

TEST_F(LoadTable, ColumnCountOnlyRises) {
  frmColumns& screen = Input("a,b,c,d,e\r\n");
  PrepareDatabase();
  EXPECT_EQ(Run().ColumnCount, 5);
  screen.chkComma.Value = 0;
  screen.chkComma_Click();
  PrepareDatabase();
  EXPECT_EQ(Rows(), (std::vector<Row>{Expected(1, {"a,b,c,d,e"})}));
  EXPECT_EQ(Run().ColumnCount, 5);
}

TEST_F(LoadTable, CancelAfterLineTenKeepsTenRowsAndTheNextLoadStartsOver) {
  Input(Lines(50));
  ui.onDoEvents = [&] {
    if (!ui.busyWindow.empty() && ui.busyWindow.back().second == "Pulling columns from line: 10")
      Run().BusyCancelled = true;
  };
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(RowCount(), 10);
  EXPECT_TRUE(Run().ReloadNeeded);
  EXPECT_FALSE(App().HeadersLoaded());
  EXPECT_FALSE(ui.busyPointer);
  EXPECT_EQ(Run().TraceStep, "Call CloseDatabase-END");
  ui.onDoEvents = nullptr;
  PrepareDatabase();
  EXPECT_EQ(RowCount(), 50);
  EXPECT_FALSE(Run().ReloadNeeded);
  EXPECT_FALSE(Run().BusyCancelled);
}

// A click among the pending events of a load (under its busy window) that
// starts the load again replaces the working database while the first load
// still writes. The first load's last rows go into the file it wrote to, and
// the new file holds the second load's rows, whole: the first load's pages
// never go into the new file's connection, whose file they are not of.
TEST_F(LoadTable, ALoadStartedAgainAmongTheEventsOfALoadKeepsItsRowsToItsOwnFile) {
  Input(Lines(3000));
  ui.onDoEvents = [&] {
    if (ui.busyWindow.empty() || ui.busyWindow.back().second != "Pulling columns from line: 10") return;
    ui.onDoEvents = nullptr;
    Run().ReloadNeeded = true;
    PrepareDatabase();
  };
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 3000u);
  EXPECT_EQ(rows.back()[0], "3000");
}

TEST_F(LoadTable, ReloadWhileTheGridHoldsTheDatabaseOpenReplacesTheFile) {
  frmColumns& screen = Input("1,a\r\n");
  screen.cmdNext_Click();
  ASSERT_TRUE(DatabaseEngine().IsOpen());
  testing::WriteFile(home / "trees.csv", "1,a\r\n2,b\r\n");
  Run().ReloadNeeded = true;
  PrepareDatabase();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(RowCount(), 2);
}

// The load's rows are laid into the file behind SQLite's back, which SQLite
// counts as another's change: that must not make the database, closed and
// opened again once they are in, drop its connection and the rows it holds.
TEST_F(LoadTable, TheConnectionOfTheLoadIsTakenUpAgainWhenTheDatabaseIsOpenedAfterTheRowsAreIn) {
  frmColumns& screen = Input(Lines(3000));
  screen.cmdNext_Click();
  ASSERT_TRUE(ui.boxes.empty());
  const Connection* loaded = DatabaseEngine().Current().get();
  CloseDatabase();
  FinishDatabaseWrites();
  OpenDatabase();
  EXPECT_EQ(DatabaseEngine().Current().get(), loaded);
  EXPECT_EQ(TftRecords()->RecordCount(), 3000);
}

TEST_F(LoadTable, TranslateAfterAFreshLoadShowsTheGrid) {
  frmColumns& screen = Input("1,a\r\n");
  screen.Left = 120;
  screen.Top = 80;
  screen.Show();
  screen.cmdFinish_Click();
  EXPECT_TRUE(ui.boxes.empty()) << ui.Texts()[0];
  EXPECT_EQ(RowCount(), 1);
  frmHeaders& headers = App().Headers();
  EXPECT_TRUE(headers.Visible());
  EXPECT_EQ(headers.Left, 120);
  EXPECT_EQ(headers.Top, 80);
  EXPECT_FALSE(screen.Visible());
  EXPECT_FALSE(App().Template().Visible());
}

TEST_F(LoadTable, NextNamesTheGridsNextButtonByTheStandListChoice) {
  App().Template().chkEditStandListFile.Value = 1;
  frmColumns& screen = Input("1,a\r\n");
  screen.cmdNext_Click();
  EXPECT_EQ(App().Headers().cmdNext.Caption, "Next >>");
}

TEST_F(LoadTable, BackShowsTheFirstScreenAndAppliesNothing) {
  frmColumns& screen = Input("1,a\r\n");
  screen.Left = 33;
  screen.Show();
  Run().ReloadNeeded = true;
  screen.cmdBack_Click();
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_EQ(App().Template().Left, 33);
  EXPECT_FALSE(screen.Visible());
  EXPECT_FALSE(ui.busyPointer);
  EXPECT_FALSE(fs::exists(Database()));
  EXPECT_TRUE(Run().ReloadNeeded);
}

}  // namespace
}  // namespace corvalin
