// Files typed by hand, exported from spreadsheets and edited for years, each
// through the built program's unattended run: every one ends in the
// program's own answer, a line in result.txt with its reason on standard
// error, and never in a crash, a hang or a tree list that lost trees silently.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TemplateText.h"
#include "TestSupport.h"
#include "TreeListRun.h"
#include "Unwritable.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::CommandKeys;
using testing::FiveColumns;
using testing::ProgramRun;
using testing::ReadFile;
using testing::TemplateText;
using testing::WriteFile;

const std::string kUntrapped = "Untrapped error.\r\n";

// The report of a load that stopped, as standard error carries it.
std::string LoadFailure(const std::string& numberAndDescription, const std::string& step) {
  return "Error preparing database\r\n" + numberAndDescription + "\r\nLine: " + step + "\n";
}

class BadInput : public testing::TreeListRun {
 protected:
  // A run that ended with "Untrapped error." for the reason on standard
  // error, and wrote no tree list.
  void ExpectUntrappedWithoutTreeList(const ProgramRun& run, const std::string& errors) {
    EXPECT_EQ(Result(), kUntrapped);
    EXPECT_EQ(run.errors, errors);
    EXPECT_EQ(run.status, 1);
    EXPECT_FALSE(fs::exists(Output()));
  }
};

// An empty file loads no line, so no column is in use and validation finds
// none of the required ones.
TEST_F(BadInput, EmptyFileEndsInPlotIdColumnIsRequired) {
  ExpectUntrappedWithoutTreeList(Translate(""), "Plot ID column is required.\n");
}

// A workbook in the spreadsheet's own (zipped) format, named as the input.
TEST_F(BadInput, SpreadsheetWorkbookStopsTheLoadAtItsFirstLine) {
  const std::string workbook = "PK\x03\x04\x14\x00\x06\x00\x08\x00\x00\x00!\x00\xb2\x8f[Content_Types].xml\xec\x95\n"
                             "\xcbn\xc2\x30\x10\x45\xf7\x95\xfa\x0f\x91\xb7\x95\x21\xf0\x10\x85\r\n"s;
  ExpectUntrappedWithoutTreeList(
      Translate(workbook),
      LoadFailure("3709 - 'Input line 1 holds a null character: the file is not plain text'", "CreateColumnsTable"));
}

// A null byte in a tree's cell would reach the tree list with it; the load
// names the line instead, and the tree list of an earlier run stays whole.
TEST_F(BadInput, NullByteInACellStopsTheLoadAndLeavesTheOldTreeListAlone) {
  WriteFile(Output(), "old tree list\r\n");
  const ProgramRun run = Translate("1,1,1,DF,25.4\r\n1,2,1,DF,30\r\n1,3\0,1,DF,31\r\n"s);
  EXPECT_EQ(Result(), kUntrapped);
  EXPECT_EQ(run.errors,
            LoadFailure("3709 - 'Input line 3 holds a null character: the file is not plain text'", "CreateColumnsTable"));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(TreeList(), "old tree list\r\n");
}

// "CSV UTF-8" of a spreadsheet begins with a byte order mark; the first
// tree's plot number is whole all the same.
TEST_F(BadInput, ByteOrderMarkOfASpreadsheetExportStaysOutOfTheTreeList) {
  const ProgramRun run = Translate("\xEF\xBB\xBF" "1,1,1,DF,25.4\r\n2,1,1,DF,30\r\n");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254) + Record(2, 1, "DF", 300));
}

// A line of 40,000 characters overflows the splitter's 16-bit position: first
// in the preview that the column format screen draws at its load, then in
// the load itself.
TEST_F(BadInput, LineOf40000CharactersEndsInOverflow) {
  const std::string longLine = "1,2,1,DF,30," + std::string(40000 - 12, 'x');
  ASSERT_EQ(longLine.size(), 40000u);
  ExpectUntrappedWithoutTreeList(Translate("1,1,1,DF,25.4\r\n" + longLine + "\r\n"),
                                 "[6] Overflow\n" + LoadFailure("6 - 'Overflow'", "CreateColumnsTable"));
}

TEST_F(BadInput, FileOf32767LinesTranslatesEveryLine) {
  const ProgramRun run = Translate(Trees(32767));
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n");
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(TreeList(), TreeListOf(32767));
}

TEST_F(BadInput, FileOf32768LinesEndsInOverflowAtTheLoad) {
  ExpectUntrappedWithoutTreeList(Translate(Trees(32768)), LoadFailure("6 - 'Overflow'", "CreateColumnsTable"));
}

TEST_F(BadInput, LinesEndingInCrOnlyTranslateAsWithCrLf) {
  const ProgramRun run = Translate(Trees(3, "\r"));
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(TreeList(), TreeListOf(3));
}

TEST_F(BadInput, LinesEndingInLfOnlyTranslateAsWithCrLf) {
  const ProgramRun run = Translate(Trees(3, "\n"));
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(TreeList(), TreeListOf(3));
}

// CR LF, LF and CR each end one line; LF then CR ends a line and an empty
// one, and the last line needs no end. A range command on line 6 shows that
// every line was counted: it excludes plot 3's first tree.
TEST_F(BadInput, MixedLineEndsEndOneLineEachAndKeepTheLineNumbers) {
  PutTemplate("range", TemplateText("OrvanVariant=NI", "IMPERIAL", FiveColumns("inches"),
                                    {{"EXCLUDE_RANGE", "", "", "1", "6", "6", ""}}));
  const ProgramRun run =
      Translate("1,1,1,DF,25.4\r\n1,2,1,DF,30\n2,1,1,DF,31\r2,2,1,DF,32\n\r3,1,1,DF,10\r\n3,2,1,DF,11", "out.tre", "range");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254) + Record(1, 2, "DF", 300) + Record(2, 1, "DF", 310) +
                            Record(2, 2, "DF", 320) + Record(3, 2, "DF", 110));
}

// The imperial writer reports a failed open itself: "Untrapped error.", and
// the screen named is the grid's, the last one loaded (an unattended run
// makes no busy window).
TEST_F(BadInput, OutputInAMissingFolderEndsInUntrappedErrorAndMakesNoFolder) {
  ExpectUntrappedWithoutTreeList(Translate("1,1,1,DF,25.4\r\n", "no-such-folder/out.tre"),
                                 "Error translating file.Module = Headers\r\n76: Path not found\n");
  EXPECT_FALSE(fs::exists(home / "run" / "no-such-folder"));
}

// The metric writer has no handler: the failure reaches the start sequence's
// box, and no result file is written; the exit status says the run failed.
TEST_F(BadInput, MetricOutputInAMissingFolderEndsInTheStartBoxWithoutResult) {
  PutTemplate("metric", TemplateText("OrvanVariant=BC", "METRIC", FiveColumns("cm")));
  const ProgramRun run = Translate("1,1,1,FD,25.4\r\n", "no-such-folder/out.tre", "metric");
  EXPECT_FALSE(ResultWritten()) << Result();
  EXPECT_EQ(run.errors, "Error in form: frmMain\r\n76: Path not found\n");
  EXPECT_EQ(run.status, 1);
}

TEST_F(BadInput, ReadOnlyOutputEndsInUntrappedErrorAndKeepsTheOldTreeList) {
  WriteFile(Output(), "old tree list\r\n");
  const testing::Unwritable locked(Output());
  const ProgramRun run = Translate("1,1,1,DF,25.4\r\n");
  EXPECT_EQ(Result(), kUntrapped);
  EXPECT_EQ(run.errors, "Error translating file.Module = Headers\r\n75: Path/File access error\n");
  EXPECT_EQ(run.status, 1);
  if (locked.StillAFile()) {
    EXPECT_EQ(TreeList(), "old tree list\r\n");
  }
}

// The translation runs and its tree list is written; the result file cannot
// be, which standard error says, and the exit status tells the caller that
// the stale line in result.txt is not this run's.
TEST_F(BadInput, ReadOnlyResultFileIsReportedAndTheRunFails) {
  const fs::path result = home / "Work" / "result.txt";
  WriteFile(result, "FAILED: Invalid format.\r\n");
  const testing::Unwritable locked(result);
  const ProgramRun run = Translate("1,1,1,DF,25.4\r\n");
  EXPECT_EQ(run.errors, "COMMAND LINE MODE FAILURE - CAN'T WRITE TO RESULT FILE.\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254));
  if (locked.StillAFile()) {
    EXPECT_EQ(ReadFile(result), "FAILED: Invalid format.\r\n");
  }
}

// The grid's load stops at the command whose column is not a number; the
// replay then meets that command without a column, and the load reports it.
TEST_F(BadInput, NonNumericColumnNumberEndsInTheReplaysFailure) {
  PutTemplate("badcol", TemplateText("OrvanVariant=NI", "IMPERIAL", FiveColumns("inches"),
                                     {{"REPLACE_ALL", "PINE", "DF", "four", "0", "0", ""}}));
  ExpectUntrappedWithoutTreeList(
      Translate("1,1,1,PINE,25.4\r\n", "out.tre", "badcol"),
      "[13] Type mismatch\n" +
          LoadFailure("3265 - 'Item cannot be found in the collection corresponding to the requested name or ordinal.'",
                      "Load frmHeaders-END"));
}

// A range command without its column number (a number it does not use)
// stops the grid's load there, so the commands behind it are never read and
// never replayed. The translation runs and says so; the exit status tells
// that a failure was reported on the way, and standard error which one.
TEST_F(BadInput, CommandThatCannotBeReadLeavesTheRunWithAFailureStatus) {
  PutTemplate("norange", TemplateText("OrvanVariant=NI", "IMPERIAL", FiveColumns("inches"),
                                      {{"EXCLUDE_RANGE", "", "", "", "5", "6", ""},
                                       {"EXCLUDE_CONTAINING", "", "", "1", "0", "0", "99"}}));
  const ProgramRun run = Translate("1,1,1,DF,25.4\r\n99,1,1,DF,30\r\n", "out.tre", "norange");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n");
  EXPECT_EQ(run.errors, "[13] Type mismatch\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254) + Record(99, 1, "DF", 300));
}

TEST_F(BadInput, HundredAndOneCommandsFailOnTheHundredFirst) {
  std::vector<CommandKeys> commands(101, CommandKeys{"REPLACE_ALL", "PINE", "DF", "4", "0", "0", ""});
  PutTemplate("many", TemplateText("OrvanVariant=NI", "IMPERIAL", FiveColumns("inches"), commands));
  ExpectUntrappedWithoutTreeList(
      Translate("1,1,1,PINE,25.4\r\n", "out.tre", "many"),
      "[9] Subscript out of range\n" + LoadFailure("9 - 'Subscript out of range'", "Load frmHeaders-END"));
}

TEST_F(BadInput, HeaderOutsideTheVocabularyEndsInUnknownColumnType) {
  auto columns = FiveColumns("inches");
  columns[1].header = "Tree Id";
  PutTemplate("oddname", TemplateText("OrvanVariant=NI", "IMPERIAL", columns));
  ExpectUntrappedWithoutTreeList(Translate("1,1,1,DF,25.4\r\n", "out.tre", "oddname"),
                                 "ERROR - unknown column type.\n");
}

}  // namespace
}  // namespace corvalin
