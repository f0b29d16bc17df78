// Failure reporting and the orderly end: boxes in an interactive run, one
// line of result.txt in an unattended one.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

using testing::FreshProcess;
using testing::ReadFile;

class FailureReporting : public FreshProcess {
 protected:
  std::string Result() const { return ReadFile(home / "Work" / "result.txt"); }
  bool ResultExists() const { return std::filesystem::exists(home / "Work" / "result.txt"); }
};

TEST_F(FailureReporting, ShowMessageInAnInteractiveRunIsAPlainBox) {
  ShowMessage("Something to say.");
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Something to say.");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
  EXPECT_EQ(ui.boxes[0].icon, Icon::None);
  EXPECT_EQ(ui.boxes[0].title, "");
  EXPECT_FALSE(ResultExists());
}

TEST_F(FailureReporting, ShowMessageInABatchRunWritesUntrappedErrorWhateverTheText) {
  Run().CommandLineMode = true;
  const std::optional<int> status = testing::ExitStatusOf([] { ShowMessage("Can't open input file."); });
  ASSERT_TRUE(status.has_value()) << "the process went on";
  EXPECT_NE(*status, 0);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(FailureReporting, WriteResultWritesOneLineAndEndsTheProcess) {
  EXPECT_EQ(testing::ExitStatusOf([] { WriteResult("TRANSLATION SUCCESSFUL"); }), 0);
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n");
}

TEST_F(FailureReporting, WriteResultReplacesTheOldResult) {
  testing::WriteFile(home / "Work" / "result.txt", "TRANSLATION SUCCESSFUL\r\nold second line\r\n");
  EXPECT_THROW(WriteResult("FAILED: Invalid format."), ProcessEnded);
  EXPECT_EQ(Result(), "FAILED: Invalid format.\r\n");
}

TEST_F(FailureReporting, AnyOtherResultEndsWithAFailureStatus) {
  EXPECT_EQ(testing::ExitStatusOf([] { WriteResult("FAILED: Invalid format."); }), 1);
}

TEST_F(FailureReporting, SuccessAfterAReportedEventFailureEndsWithAFailureStatus) {
  Run().CommandLineMode = true;
  RunEvent([] { Raise(err::TypeMismatch); });
  EXPECT_EQ(testing::ExitStatusOf([] { WriteResult("TRANSLATION SUCCESSFUL"); }), 1);
  EXPECT_EQ(testing::ReadFile(home / "Work" / "result.txt"), "TRANSLATION SUCCESSFUL\r\n");
}

TEST_F(FailureReporting, ResultFileThatCannotBeWrittenGivesTheBoxAndTheCallerGoesOn) {
  // A folder where the file should be cannot be opened for output, whoever runs the test.
  std::filesystem::create_directory(home / "Work" / "result.txt");
  Run().CommandLineMode = true;
  EXPECT_NO_THROW(WriteResult("TRANSLATION SUCCESSFUL"));
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "COMMAND LINE MODE FAILURE - CAN'T WRITE TO RESULT FILE.");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
}

TEST_F(FailureReporting, AssertThatHoldsDoesNothing) {
  EXPECT_NO_THROW(Assert(true));
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(FailureReporting, FailedAssertionInAnInteractiveRunShowsTheBoxAndEndsWithoutTheQuitQuestion) {
  SaveSetting("Orvanta", "Corvalin", "ColumnHeader1", "Plot ID");
  EXPECT_THROW(Assert(false), ProcessEnded);
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Assertion failure!");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnHeader1", ""), "Plot ID");
  EXPECT_FALSE(ResultExists());
}

TEST_F(FailureReporting, FailedAssertionInABatchRunWritesAssertionFailureWithAFullStop) {
  Run().CommandLineMode = true;
  EXPECT_THROW(Assert(false), ProcessEnded);
  EXPECT_EQ(Result(), "Assertion failure.\r\n");
}

TEST_F(FailureReporting, EndProgramInABatchRunWritesEndProgram) {
  Run().CommandLineMode = true;
  EXPECT_THROW(EndProgram(), ProcessEnded);
  EXPECT_EQ(Result(), "EndProgram()\r\n");
}

TEST_F(FailureReporting, EndProgramInAnInteractiveRunEndsWithoutAResult) {
  EXPECT_EQ(testing::ExitStatusOf([] { EndProgram(); }), 0);
  EXPECT_FALSE(ResultExists());
}

TEST_F(FailureReporting, ConfirmQuitAsksWithYesNoAndTheQuestionIcon) {
  ui.answers = {Answer::No};
  ConfirmQuit();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Do you really want to quit?");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.boxes[0].icon, Icon::Question);
}

TEST_F(FailureReporting, AnsweringNoToTheQuitQuestionLeavesTheColumnSettingsUnchanged) {
  SaveSetting("Orvanta", "Corvalin", "ColumnHeader2", "DBH");
  SaveSetting("Orvanta", "Corvalin", "ColumnUnits2", "cm");
  ui.answers = {Answer::No};
  EXPECT_NO_THROW(ConfirmQuit());
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnHeader2", ""), "DBH");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnUnits2", ""), "cm");
}

TEST_F(FailureReporting, AnsweringYesClearsTheColumnSettingsAndEnds) {
  SaveSetting("Orvanta", "Corvalin", "ColumnHeader2", "DBH");
  SaveSetting("Orvanta", "Corvalin", "ColumnUnits2", "cm");
  ui.answers = {Answer::Yes};
  EXPECT_THROW(ConfirmQuit(), ProcessEnded);
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnHeader2", ""), "? column");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnUnits2", ""), "? units");
}

TEST_F(FailureReporting, AColumnWhoseSavedHeaderIsUnassignedKeepsItsUnits) {
  SaveSetting("Orvanta", "Corvalin", "ColumnHeader3", "? column");
  SaveSetting("Orvanta", "Corvalin", "ColumnUnits3", "feet");
  SaveSetting("Orvanta", "Corvalin", "ColumnHeader30", "Species");
  SaveSetting("Orvanta", "Corvalin", "ColumnUnits30", "codes");
  ClearSavedColumnHeaders();
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnUnits3", ""), "feet");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnHeader30", ""), "? column");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnUnits30", ""), "? units");
  // Columns with nothing saved get nothing written.
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnUnits1", "none"), "none");
}

TEST_F(FailureReporting, ErrorInALibraryRoutineShowsTheEventBoxWithTheFirstError) {
  RunEvent([] {
    try {
      Raise(err::FileNotFound, "Library");
    } catch (const RuntimeError&) {
      throw;  // a library routine raises the same error again
    }
  });
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[53] File not found");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
}

TEST_F(FailureReporting, ErrorInAnEventWithoutAHandlerShowsItsNumberAndDescriptionThenEndsInOrder) {
  SaveSetting("Orvanta", "Corvalin", "ColumnHeader1", "Plot ID");
  bool after = false;
  EXPECT_THROW(RunUnhandledEvent([&] {
                 Raise(err::InvalidProcedureCall);
                 after = true;
               }),
               ProcessEnded);
  EXPECT_FALSE(after);
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[5] Invalid procedure call or argument");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Critical);
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
  // No quit question, and the settings stay as they were written.
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "ColumnHeader1", ""), "Plot ID");
}

TEST_F(FailureReporting, EventWithoutAHandlerThatRunsThroughEndsNothing) {
  int runs = 0;
  RunUnhandledEvent([&] { ++runs; });
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(FailureReporting, NamedReporterTextJoinsHeadingModuleAndError) {
  Run().CurrentScreen = "Template";
  EXPECT_EQ(ReporterText(ReadingInputFileFailed, RuntimeError(err::FileNotFound)),
            "Error reading input file.Module = Template\r\n53: File not found");
  EXPECT_EQ(ReporterText(TranslatingFileFailed, RuntimeError(err::Overflow)),
            "Error translating file.Module = Template\r\n6: Overflow");
  EXPECT_EQ(ReporterText(WritingSlfFileFailed, RuntimeError(err::PermissionDenied)),
            "Error writing .SLF file.Module = Template\r\n70: Permission denied");
  EXPECT_EQ(ReporterText(WritingLocationFileFailed, RuntimeError(err::PathNotFound)),
            "Error writing Location file.Module = Template\r\n76: Path not found");
}

TEST_F(FailureReporting, NamedReporterShowsItsTextAndTheCallerGoesOn) {
  Run().CurrentScreen = "Columns";
  ReportNamedFailure(ReadingInputFileFailed, RuntimeError(err::PathFileAccess));
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Error reading input file.Module = Columns\r\n75: Path/File access error");
  EXPECT_EQ(ui.boxes[0].icon, Icon::None);
}

TEST_F(FailureReporting, DatabaseReportNamesTheLastStep) {
  Run().TraceStep = "OpenDatabase";
  EXPECT_EQ(PrepareDatabaseReportText(RuntimeError(err::FileNotFound)),
            "Error preparing database\r\n53 - 'File not found'\r\nLine: OpenDatabase");
}

TEST_F(FailureReporting, FormErrorIsAPlainBoxInBothModesAndWritesNoResult) {
  Run().CommandLineMode = true;
  ReportFormError("frmMain", RuntimeError(err::PathNotFound));
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Error in form: frmMain\r\n76: Path not found");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
  EXPECT_EQ(ui.boxes[0].icon, Icon::None);
  EXPECT_FALSE(ResultExists());
}

TEST_F(FailureReporting, SourceTrailsGoInFrontOrBehind) {
  const RuntimeError first(err::PathNotFound, "CreateFolder");
  EXPECT_EQ(WithSourceInFront(first, "KelmarUtil.LocateDataFolder(), ").source(),
            "KelmarUtil.LocateDataFolder(), CreateFolder");
  EXPECT_EQ(WithSourceBehind(first, ",AppUtil.GetMyDocumentsFolderPath()").source(),
            "CreateFolder,AppUtil.GetMyDocumentsFolderPath()");
  EXPECT_EQ(WithSourceInFront(first, "x").number(), 76);
  EXPECT_EQ(WithSourceInFront(first, "x").description(), "Path not found");
}

}  // namespace
}  // namespace corvalin
