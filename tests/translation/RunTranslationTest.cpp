// The translation run over the working table: the append question, the
// choice of record, the row loop and its data test, the line count's limit,
// and the two writers' different ways with a failure.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "translation/OutputFile.h"
#include "translation/RunTranslation.h"
#include "translation/TreeRecord.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {
namespace {

using testing::ReadFile;
using testing::WriteFile;

// The row "7", "1", "25.5", "df", "12.3" in each record, five columns
// assigned: Plot ID, Tree ID, Tree Count, Species, DBH in inches.
const std::string kUsLine = "   7" "  1" "    26" " " "DF " " 123" + std::string(38, ' ');
const std::string kBcLine = "            7" "   1" "  25.500" " " "DF" " 31.2" + std::string(44, ' ');

class TranslationRun : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    testing::PutEmptyWorkingTable();
    output = home / "trees.tre";
    outputPath = output.string();
  }

  void TearDown() override {
    ForgetOutput();
    CloseDatabase();
    FreshProcess::TearDown();
  }

  // Rows go in through a statement of their own, as the load puts them.
  void AddRows(const std::vector<std::vector<std::string>>& rows, const std::string& excluded = "N") {
    clsDBEngine& engine = DatabaseEngine();
    engine.PathToDB(Run().DataFolder + "TFT.mdb");
    engine.OpenDB();
    std::string sql = "INSERT INTO tft (LineNum";
    for (int n = 1; n <= 30; ++n) sql += ",c" + std::to_string(n);
    sql += ",Excluded) VALUES (?";
    for (int n = 1; n <= 31; ++n) sql += ",?";
    sql += ")";
    auto insert = engine.Prepare(sql);
    engine.StartTrans();
    for (const auto& row : rows) {
      insert->BindInt(1, ++lines);
      for (int n = 1; n <= 30; ++n)
        insert->BindText(n + 1, n <= static_cast<int>(row.size()) ? row[static_cast<std::size_t>(n - 1)] : "");
      insert->BindText(32, excluded);
      insert->Run();
    }
    engine.CommtTrans();
    engine.CloseDB();
  }

  void Execute(const std::string& sql) {
    clsDBEngine& engine = DatabaseEngine();
    engine.PathToDB(Run().DataFolder + "TFT.mdb");
    engine.OpenDB();
    engine.SQLString(sql);
    int32_t affected = 0;
    engine.Execute(affected);
    engine.CloseDB();
  }

  // What validation leaves for five assigned columns of a five-column table.
  void AssignFiveColumns(const std::string& variant) {
    const char* assigned[] = {"Plot ID\r\n", "Tree ID\r\n", "Tree Count\r\n", "Species\r\n", "DBH\r\ninches"};
    for (int i = 1; i <= 5; ++i) headings[static_cast<std::size_t>(i)] = assigned[i - 1];
    for (int i = 6; i <= 30; ++i) headings[static_cast<std::size_t>(i)] = "? column\r\n? units";
    this->variant = variant;
    RunState& run = Run();
    run.ColumnCount = 5;
    for (int16_t* column : {&run.ColPlotId, &run.ColTreeId, &run.ColTreeCount, &run.ColTreeHistory,
                            &run.ColSpecies, &run.ColDbh, &run.ColDbhInc, &run.ColTotalHeight,
                            &run.ColTopkillHeight, &run.ColHeightInc, &run.ColCrownRatio, &run.ColDamage1,
                            &run.ColDamage2, &run.ColDamage3, &run.ColTreeValue, &run.ColPrescription,
                            &run.ColPlotSlope, &run.ColPlotAspect, &run.ColHabitatType, &run.ColTopoPosition,
                            &run.ColSitePreparation})
      *column = -1;
    run.ColPlotId = 1;
    run.ColTreeId = 2;
    run.ColTreeCount = 3;
    run.ColSpecies = 4;
    run.ColDbh = 5;
    run.UnitsDbh = "inches";
  }

  std::vector<std::string> BusyTexts() const {
    std::vector<std::string> texts;
    for (const auto& [title, text] : ui.busyWindow) {
      EXPECT_EQ(title, "Corvalin");
      texts.push_back(text);
    }
    return texts;
  }

  // What the grid screen hands the translation.
  TranslationRequest Request() const {
    return {outputPath, variant, IdentifiedColumns(headings, Run().ColumnCount)};
  }
  bool Translate() { return RunTranslation(Request()); }

  std::filesystem::path output;
  std::string outputPath;
  std::string variant;
  std::array<std::string, 32> headings{};
  long long lines = 0;
};

const std::vector<std::string> kTree = {"7", "1", "25.5", "df", "12.3"};

TEST_F(TranslationRun, OutputThatDoesNotExistIsCreatedWithoutAQuestion) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n");
  EXPECT_TRUE(ui.appendQuestions.empty());
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Translation completed."});
  EXPECT_TRUE(Run().TranslationDone);
  EXPECT_FALSE(Run().AppendToOutput);
  EXPECT_FALSE(OutputOpen());
  EXPECT_FALSE(DatabaseEngine().IsOpen());
}

TEST_F(TranslationRun, VariantBcWritesTheMetricRecord) {
  AddRows({kTree});
  AssignFiveColumns("BC");
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), kBcLine + "\r\n");
}

TEST_F(TranslationRun, VariantsKtAndAkWriteTheImperialRecord) {
  AddRows({kTree});
  for (const char* variant : {"KT", "AK", ""}) {
    AssignFiveColumns(variant);
    Run().CommandLineMode = true;  // no question about the file of the turn before
    EXPECT_TRUE(Translate()) << variant;
    EXPECT_EQ(ReadFile(output), kUsLine + "\r\n") << variant;
  }
}

TEST_F(TranslationRun, RecordChoiceLooksAtTheScreenNotTheSettingsVariant) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  Run().OrvanVariant = "BC";
  Translate();
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n");
}

TEST_F(TranslationRun, ExistingOutputAsksAndAppendKeepsTheOldContent) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  WriteFile(output, "old line\r\n");
  Run().CurrentScreen = "Headers";
  ui.appendChoices.push_back(AppendChoice::Append);
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ui.appendQuestions, std::vector<std::string>{"File already exists.  Append to file, overwrite, or cancel?"});
  EXPECT_EQ(ReadFile(output), "old line\r\n" + kUsLine + "\r\n");
  EXPECT_FALSE(Run().AppendCancelled);
  EXPECT_TRUE(Run().AppendToOutput);
  // The append question's load named it, then the busy window's load did.
  EXPECT_EQ(Run().CurrentScreen, "BusyMessage");
  EXPECT_EQ(ui.beeps, 1);
  EXPECT_TRUE(ui.busyPointer);
}

TEST_F(TranslationRun, AppendFollowsDirectlyOnAFileWithoutALineEnd) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  WriteFile(output, "no end");
  ui.appendChoices.push_back(AppendChoice::Append);
  Translate();
  EXPECT_EQ(ReadFile(output), "no end" + kUsLine + "\r\n");
}

TEST_F(TranslationRun, OverwriteReplacesTheOldContent) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  WriteFile(output, "old line\r\n");
  Run().AppendToOutput = true;
  ui.appendChoices.push_back(AppendChoice::Overwrite);
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n");
  EXPECT_FALSE(Run().AppendCancelled);
  EXPECT_FALSE(Run().AppendToOutput);
}

TEST_F(TranslationRun, CancelAtTheQuestionWritesNothingAndReturnsFalse) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  WriteFile(output, "old line\r\n");
  for (AppendChoice choice : {AppendChoice::Cancel, AppendChoice::Closed}) {
    Run().AppendToOutput = true;
    ui.appendChoices.push_back(choice);
    EXPECT_FALSE(Translate());
    EXPECT_TRUE(Run().AppendCancelled);
    EXPECT_TRUE(Run().AppendToOutput);  // left as it was
    EXPECT_FALSE(Run().TranslationDone);
    EXPECT_TRUE(ui.busyPointer);        // for the caller to reset
  }
  EXPECT_EQ(ReadFile(output), "old line\r\n");
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_TRUE(ui.busyWindow.empty());
}

TEST_F(TranslationRun, UnattendedRunOverwritesWithoutAQuestionAndSaysNothing) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  WriteFile(output, "old line\r\n");
  Run().CommandLineMode = true;
  Run().AppendToOutput = true;
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n");
  EXPECT_TRUE(ui.appendQuestions.empty());
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_TRUE(Run().TranslationDone);
  EXPECT_TRUE(ui.busyWindow.empty());  // only pending events run
}

TEST_F(TranslationRun, BusyWindowCountsTheLinesWritten) {
  AddRows({kTree, {"", "", "", "", ""}, kTree});
  AssignFiveColumns("NI");
  Translate();
  EXPECT_EQ(BusyTexts(), (std::vector<std::string>{"Translating line:  0", "Translating line:  1",
                                                   "Translating line:  2"}));
  EXPECT_EQ(ui.busyHides, 1);
}

TEST_F(TranslationRun, EveryRowExcludedMakesAnEmptyFile) {
  AddRows({kTree, kTree}, "Y");
  AssignFiveColumns("NI");
  EXPECT_TRUE(Translate());
  EXPECT_TRUE(std::filesystem::exists(output));
  EXPECT_EQ(ReadFile(output), "");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Translation completed."});
}

TEST_F(TranslationRun, EveryRowExcludedAddsNothingWhenAppending) {
  AddRows({kTree}, "Y");
  AssignFiveColumns("NI");
  WriteFile(output, "old line\r\n");
  ui.appendChoices.push_back(AppendChoice::Append);
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), "old line\r\n");
}

TEST_F(TranslationRun, ExcludedOtherThanCapitalNSkipsTheRow) {
  AddRows({{"1", "1", "1", "df", "1"}}, "n");
  AddRows({{"2", "1", "1", "df", "1"}}, "");
  AddRows({{"3", "1", "1", "df", "1"}}, "N ");
  AddRows({{"4", "1", "1", "df", "1"}}, "N");
  AssignFiveColumns("NI");
  Translate();
  EXPECT_EQ(ReadFile(output), "   4  1     1 DF   10" + std::string(38, ' ') + "\r\n");
  EXPECT_EQ(BusyTexts().back(), "Translating line:  1");
}

TEST_F(TranslationRun, RowWithDataOnlyInUnassignedColumnsWritesNothing) {
  AddRows({{"", "", "", "", "", "rubbish"}, kTree});
  AssignFiveColumns("NI");
  Run().ColumnCount = 6;
  Translate();
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n");
  EXPECT_EQ(BusyTexts().back(), "Translating line:  1");
}

TEST_F(TranslationRun, RowWhoseIdentifiedCellsAreAllEmptyWritesNothing) {
  AddRows({{"", "", "", "", ""}});
  AssignFiveColumns("NI");
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), "");
  EXPECT_EQ(BusyTexts(), std::vector<std::string>{"Translating line:  0"});
}

TEST_F(TranslationRun, NullCellIsNoData) {
  AddRows({{"", "", "", "", ""}});
  Execute("update tft set c1 = NULL");
  AssignFiveColumns("NI");
  Translate();
  EXPECT_EQ(ReadFile(output), "");
}

TEST_F(TranslationRun, CellOfBlanksIsData) {
  AddRows({{" ", "", "", "", ""}});
  AssignFiveColumns("NI");
  Translate();
  EXPECT_EQ(ReadFile(output), std::string(59, ' ') + "\r\n");
}

TEST_F(TranslationRun, HeadingWithoutQuestionMarkCountsAsIdentifiedForTheDataTest) {
  // Column 6 has no type that the record writes, but its heading is the
  // grid's plain field name: its cell makes the row one with data.
  AddRows({{"", "", "", "", "", "x"}});
  AssignFiveColumns("NI");
  Run().ColumnCount = 6;
  headings[6] = "c6";
  Translate();
  EXPECT_EQ(ReadFile(output), std::string(59, ' ') + "\r\n");
}

TEST_F(TranslationRun, RowsGoOutInTableOrder) {
  AddRows({{"3", "1", "1", "df", "1"}, {"1", "1", "1", "df", "1"}, {"2", "1", "1", "df", "1"}});
  AssignFiveColumns("NI");
  Translate();
  const std::string tail = "  1     1 DF   10" + std::string(38, ' ') + "\r\n";
  EXPECT_EQ(ReadFile(output), "   3" + tail + "   1" + tail + "   2" + tail);
}

TEST_F(TranslationRun, CancelInTheBusyWindowDoesNotStopTheRun) {
  AddRows({kTree, kTree, kTree});
  AssignFiveColumns("NI");
  ui.onDoEvents = [] { Run().BusyCancelled = true; };
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n" + kUsLine + "\r\n" + kUsLine + "\r\n");
}

TEST_F(TranslationRun, ImperialFailureIsReportedAndTheRunGoesOnAsIfAllWereWell) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  outputPath = (home / "no such folder" / "trees.tre").string();
  Run().CurrentScreen = "BusyMessage";
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error translating file.Module = BusyMessage\r\n76: Path not found",
                                                  "Translation completed."}));
  EXPECT_TRUE(Run().TranslationDone);
  // Nothing is cleaned up: the database stays open, the busy window up.
  EXPECT_TRUE(DatabaseEngine().IsOpen());
  EXPECT_EQ(ui.busyHides, 0);
}

TEST_F(TranslationRun, MetricFailurePassesToTheCaller) {
  AddRows({kTree});
  AssignFiveColumns("BC");
  outputPath = (home / "no such folder" / "trees.tre").string();
  try {
    Translate();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 76);
    EXPECT_EQ(error.description(), "Path not found");
  }
  EXPECT_FALSE(Run().TranslationDone);
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_TRUE(DatabaseEngine().IsOpen());
  EXPECT_EQ(ui.busyHides, 0);
}

TEST_F(TranslationRun, UnattendedImperialFailureEndsTheRunWithUntrappedError) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  Run().CommandLineMode = true;
  outputPath = (home / "no such folder" / "trees.tre").string();
  EXPECT_THROW(Translate(), ProcessEnded);
  EXPECT_EQ(ReadFile(Run().WorkFolder + "result.txt"), "Untrapped error.\r\n");
  EXPECT_FALSE(Run().TranslationDone);
}

TEST_F(TranslationRun, ReadOnlyOutputIsAskedAboutAndThenFailsAtTheOpen) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  // A file this process can read but not open for writing: a read-only file,
  // or for a process whose permissions override that, a read-only kernel file.
  std::string readOnly = (home / "read-only.tre").string();
  WriteFile(readOnly, "old line\r\n");
  ::chmod(readOnly.c_str(), 0444);
  if (::geteuid() == 0) readOnly = "/sys/devices/system/cpu/online";
  outputPath = readOnly;
  ui.appendChoices.push_back(AppendChoice::Overwrite);
  EXPECT_TRUE(Translate());
  EXPECT_EQ(ui.appendQuestions.size(), 1u);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error translating file.Module = BusyMessage\r\n75: Path/File access error",
                                                  "Translation completed."}));
}

TEST_F(TranslationRun, NextRunAfterAFailureMeetsTheOutputStillOpen) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  Execute("update tft set c3 = '1e999'");
  Run().CurrentScreen = "BusyMessage";
  Translate();
  EXPECT_EQ(ui.Texts().front(), "Error translating file.Module = BusyMessage\r\n6: Overflow");
  EXPECT_TRUE(OutputOpen());
  // The output exists now, but file number 1 is still open: the test open
  // fails, no question, and the writer's open meets the open file.
  ui.boxes.clear();
  Execute("update tft set c3 = '1'");
  Translate();
  EXPECT_TRUE(ui.appendQuestions.empty());
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error translating file.Module = BusyMessage\r\n55: File already open",
                                                  "Translation completed."}));
}

TEST_F(TranslationRun, DbhUnitsThatAreNoLengthFailTheAssertion) {
  AddRows({kTree});
  AssignFiveColumns("NI");
  Run().UnitsDbh = "%";
  EXPECT_THROW(Translate(), ProcessEnded);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Assertion failure!"});
}

TEST_F(TranslationRun, UnattendedAssertionFailureWritesItsResult) {
  AddRows({kTree});
  AssignFiveColumns("BC");
  Run().CommandLineMode = true;
  Run().UnitsDbh = "? units";
  EXPECT_THROW(Translate(), ProcessEnded);
  EXPECT_EQ(ReadFile(Run().WorkFolder + "result.txt"), "Assertion failure.\r\n");
}

TEST_F(TranslationRun, OtherUnknownUnitsLeaveTheirFieldsBlank) {
  AddRows({{"7", "1", "25.5", "df", "12.3", "80"}});
  AssignFiveColumns("NI");
  Run().ColumnCount = 6;
  headings[6] = "Total Height\r\n? units";
  Run().ColTotalHeight = 6;
  Run().UnitsTotalHeight = "? units";
  Translate();
  EXPECT_EQ(ReadFile(output), kUsLine + "\r\n");
}

// 32,768 rows with data: record 32,768 is written, then the count overflows.
class TranslationRunAtTheLineLimit : public TranslationRun {
 protected:
  void SetUp() override {
    TranslationRun::SetUp();
    AddRows(std::vector<std::vector<std::string>>(32768, kTree));
  }
};

TEST_F(TranslationRunAtTheLineLimit, MetricRunFailsWithOverflowAfterRecord32768) {
  AssignFiveColumns("BC");
  try {
    Translate();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), err::Overflow);
    EXPECT_EQ(error.description(), "Overflow");
  }
  EXPECT_EQ(std::filesystem::file_size(output), 32768u * (77 + 2));
  EXPECT_EQ(ReadFile(output).substr(32767u * 79), kBcLine + "\r\n");
  EXPECT_EQ(BusyTexts().back(), "Translating line:  32767");
  EXPECT_TRUE(OutputOpen());
  EXPECT_FALSE(Run().TranslationDone);
}

TEST_F(TranslationRunAtTheLineLimit, ImperialRunReportsTheOverflow) {
  AssignFiveColumns("NI");
  Run().CurrentScreen = "BusyMessage";
  EXPECT_TRUE(Translate());
  EXPECT_EQ(std::filesystem::file_size(output), 32768u * (59 + 2));
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error translating file.Module = BusyMessage\r\n6: Overflow",
                                                  "Translation completed."}));
}

TEST_F(TranslationRun, LongUnattendedRunWritesTheRecordsBeforeTheFirstFailingRow) {
  std::vector<std::vector<std::string>> rows(20000, kTree);
  // A diameter beyond any number fails its record with an overflow.
  rows[15000 - 1][4] = "1e308";
  rows[19000 - 1][4] = "1e308";
  rows[3000 - 1] = {"", "", "", "", ""};
  AddRows(rows);
  AssignFiveColumns("BC");
  Run().CommandLineMode = true;
  try {
    Translate();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), err::Overflow);
  }
  FlushOutput();
  std::string expected;
  for (int record = 0; record < 14999 - 1; ++record) expected += kBcLine + "\r\n";
  EXPECT_EQ(ReadFile(output), expected);
}

TEST_F(TranslationRun, ExactlyTheLineLimitTranslates) {
  AddRows(std::vector<std::vector<std::string>>(32767, kTree));
  AddRows({{"", "", "", "", ""}});
  AssignFiveColumns("NI");
  EXPECT_TRUE(Translate());
  EXPECT_EQ(std::filesystem::file_size(output), 32767u * 61);
  EXPECT_EQ(BusyTexts().back(), "Translating line:  32767");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Translation completed."});
}

TEST_F(TranslationRun, FormattersReadTheCurrentRecordOfTheTable) {
  AddRows({{" 7 ", "df", "25.5", "35", "45"}});
  Run().UnitsCrownRatio = "%";
  OpenDatabase();
  EXPECT_EQ(FormatRightText(1, 4), "   7");
  EXPECT_EQ(FormatLeftText(2, 3), "df ");
  EXPECT_EQ(FormatNumber(3, 6, 0, 1), "    26");
  EXPECT_EQ(FormatSlope(4, 3, true), "  2");
  EXPECT_EQ(FormatCrownRatio(5), "5");
  EXPECT_EQ(FormatRightText(-1, 4), "    ");
  EXPECT_EQ(FormatLeftText(-1, 3), "   ");
  EXPECT_EQ(FormatNumber(-1, 8, 3, 1), "        ");
  EXPECT_EQ(FormatSlope(-1, 2, true), "  ");
  EXPECT_EQ(FormatCrownRatio(-1), " ");
}

}  // namespace
}  // namespace corvalin
