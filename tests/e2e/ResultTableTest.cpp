// The result file of an unattended run, outcome by outcome, through the
// built program: what "result.txt" says, what standard error carries, the
// exit status, and what becomes of the output file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TemplateText.h"
#include "TestSupport.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ProgramRun;
using testing::FiveColumnTemplate;
using testing::ReadFile;
using testing::RunCorvalin;
using testing::UnattendedRun;
using testing::WriteFile;

const std::string kTrees = "1,1,10,df,12.3\r\n1,2,5,wp,8.0\r\n";
const std::string kTreeList = "   1  1    10 DF  123" + std::string(38, ' ') + "\r\n" +
                              "   1  2     5 WP   80" + std::string(38, ' ') + "\r\n";

class ResultTable : public UnattendedRun {
 protected:
  void SetUp() override {
    UnattendedRun::SetUp();
    input = home / "trees.csv";
    output = home / "trees.tre";
    WriteFile(input, kTrees);
    WriteFile(home / "Work/small.cnv", FiveColumnTemplate("OrvanVariant=NI", "IMPERIAL", "inches"));
  }

  fs::path input;
  fs::path output;
};

TEST_F(ResultTable, TranslationRanGivesTranslationSuccessful) {
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "small"});
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(ReadFile(output), kTreeList);
}

TEST_F(ResultTable, ExistingOutputIsOverwrittenWithoutAQuestion) {
  WriteFile(output, "old content\r\n");
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "small"});
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(ReadFile(output), kTreeList);
}

TEST_F(ResultTable, MetricVariantWritesTheMetricRecord) {
  WriteFile(home / "Work/smallbc.cnv", FiveColumnTemplate("OrvanVariant=BC", "METRIC", "cm"));
  WriteFile(input, "1,1,10,fd,12.3\r\n");
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "smallbc"});
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(ReadFile(output), "            1   1  10.000 FD 12.3" + std::string(44, ' ') + "\r\n");
}

// With the template's assignments brought to the grid, the heading check of
// validation still fails when the grid's activation stops before it writes
// the headings: a template whose variant is the empty text makes the variant
// search run past the last entry, and the activation ends at that error. The
// headings stay the plain field names, and validation returns false silently.
TEST_F(ResultTable, HeadingsNeverWrittenGiveInvalidFormatAndTheOutputIsDeleted) {
  WriteFile(home / "Work/novar.cnv", FiveColumnTemplate("OrvanVariant=", "IMPERIAL", "inches"));
  WriteFile(output, "old content\r\n");
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "novar"});
  EXPECT_EQ(Result(), "FAILED: Invalid format.\r\n") << run.errors;
  EXPECT_NE(run.status, 0);
  EXPECT_FALSE(fs::exists(output));
}

TEST_F(ResultTable, InvalidFormatWithNoOutputToDeleteEndsInTheStartBoxWithoutResult) {
  WriteFile(home / "Work/novar.cnv", FiveColumnTemplate("OrvanVariant=", "IMPERIAL", "inches"));
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "novar"});
  EXPECT_FALSE(ResultWritten()) << Result();
  EXPECT_NE(run.errors.find("Error in form: frmMain\r\n"), std::string::npos) << run.errors;
  EXPECT_NE(run.status, 0);
}

TEST_F(ResultTable, ValidationMessageGivesUntrappedError) {
  WriteFile(home / "Work/noplot.cnv", FiveColumnTemplate("OrvanVariant=NI", "IMPERIAL", "inches", "? column"));
  WriteFile(output, "old content\r\n");
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "noplot"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Plot ID column is required."), std::string::npos) << run.errors;
  EXPECT_NE(run.status, 0);
  EXPECT_EQ(ReadFile(output), "old content\r\n");  // only an invalid format deletes it
}

TEST_F(ResultTable, InvalidCellGivesUntrappedError) {
  WriteFile(input, "1,1,10,zz,12.3\r\n");
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "small"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Invalid Species Code."), std::string::npos) << run.errors;
}

TEST_F(ResultTable, UnitsOfTheOtherSystemGiveUntrappedError) {
  WriteFile(home / "Work/mixed.cnv", FiveColumnTemplate("OrvanVariant=NI", "IMPERIAL", "cm"));
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "mixed"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Incorrect units (metric/imperial)."), std::string::npos) << run.errors;
}

TEST_F(ResultTable, UnknownTemplateGivesUntrappedError) {
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "nosuch"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Invalid Template Name specified: nosuch"), std::string::npos) << run.errors;
}

TEST_F(ResultTable, TemplateNameInAnotherCaseIsUnknown) {
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string(), "SMALL"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Invalid Template Name specified: SMALL"), std::string::npos) << run.errors;
}

TEST_F(ResultTable, MissingInputGivesUntrappedError) {
  const ProgramRun run = RunCorvalin(home, {(home / "missing.csv").string(), output.string(), "small"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Can't open input file."), std::string::npos) << run.errors;
}

TEST_F(ResultTable, EmptyInputFieldGivesItsOwnResult) {
  const ProgramRun run = RunCorvalin(home, {"", output.string(), "small"});
  EXPECT_EQ(Result(), "Invalid input file path\\name: \r\n");
  EXPECT_NE(run.status, 0);
}

TEST_F(ResultTable, EmptyOutputFieldGivesItsOwnResult) {
  const ProgramRun run = RunCorvalin(home, {input.string(), "", "small"});
  EXPECT_EQ(Result(), "Invalid output file path\\name: \r\n");
}

TEST_F(ResultTable, TwoFieldsAndATrailingBlankGiveTheTemplateResult) {
  const ProgramRun run = RunCorvalin(home, {input.string(), output.string() + " "});
  EXPECT_EQ(Result(), "Invalid template file path\\name: \r\n");
}

TEST_F(ResultTable, ImperialWriterFailureGivesUntrappedError) {
  const fs::path unreachable = home / "no-such-folder" / "trees.tre";
  const ProgramRun run = RunCorvalin(home, {input.string(), unreachable.string(), "small"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(run.errors.find("Error translating file.Module = "), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("76: Path not found"), std::string::npos) << run.errors;
}

TEST_F(ResultTable, MetricWriterFailureEndsInTheStartBoxWithoutResult) {
  WriteFile(home / "Work/smallbc.cnv", FiveColumnTemplate("OrvanVariant=BC", "METRIC", "cm"));
  WriteFile(input, "1,1,10,fd,12.3\r\n");
  const fs::path unreachable = home / "no-such-folder" / "trees.tre";
  const ProgramRun run = RunCorvalin(home, {input.string(), unreachable.string(), "smallbc"});
  EXPECT_FALSE(ResultWritten()) << Result();
  EXPECT_NE(run.errors.find("Error in form: frmMain\r\n76: Path not found"), std::string::npos) << run.errors;
  EXPECT_NE(run.status, 0);
}

TEST_F(ResultTable, StaleResultIsReplaced) {
  WriteFile(home / "Work/result.txt", "FAILED: Invalid format.\r\n");
  RunCorvalin(home, {input.string(), output.string(), "small"});
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n");
}

}  // namespace
}  // namespace corvalin
