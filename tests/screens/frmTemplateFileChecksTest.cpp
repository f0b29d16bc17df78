// frmTemplate as the holder of the paths: the change routines of the file
// labels, the template list and the Next buttons; and the input preview.
#include <gtest/gtest.h>

#include <filesystem>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::FreshProcess;
using testing::WriteFile;

class SetupScreen : public FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    input = (home / "trees.csv").string();
    WriteFile(input, "1,2\r\n");
    WriteFile(home / "Work" / "Beta.cnv", "");
    WriteFile(home / "Work" / "alpha.cnv", "");
    WriteFile(home / "Work" / "Gamma.two.cnv", "");
    WriteFile(home / "Work" / "notes.txt", "");
  }
  frmTemplate& TheScreen() { return App().Template(); }
  std::string input;
};

TEST_F(SetupScreen, InteractiveLoadStartsWithEmptyCaptionsAndTranslateChecked) {
  frmTemplate& setup = TheScreen();
  EXPECT_EQ(setup.lblInputFile.Caption, "");
  EXPECT_EQ(setup.lblOutputFile.Caption, "");
  EXPECT_EQ(setup.chkTranslateFile.Value, 1);
  EXPECT_EQ(setup.chkEditStandListFile.Value, 0);
  EXPECT_EQ(setup.HelpContextID, 7);
  EXPECT_EQ(setup.cmbTemplate.ListIndex, 0);
  EXPECT_EQ(setup.cmbTemplate.Text, "None");
  EXPECT_FALSE(Run().UseTemplate);
}

TEST_F(SetupScreen, TemplateListHoldsNoneAndTheTemplateNamesUpToTheirFirstDot) {
  const auto& items = TheScreen().cmbTemplate.Items;
  EXPECT_EQ(items, (std::vector<std::string>{"None", "alpha", "Beta", "Gamma"}));
}

TEST_F(SetupScreen, DefaultTemplateSettingSelectsItWithoutUnloadingTheOtherScreens) {
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "Beta");
  frmTemplate& setup = TheScreen();
  EXPECT_EQ(setup.cmbTemplate.Text, "Beta");
  EXPECT_TRUE(Run().UseTemplate);
  EXPECT_EQ(Run().TemplateFilePath, Run().WorkFolder + "Beta.cnv");
  EXPECT_TRUE(setup.cmdDeleteTemplate.Enabled);
  EXPECT_FALSE(Run().RefreshingTemplateList);
}

TEST_F(SetupScreen, DefaultTemplateSinceDeletedGivesTheMessageThenNone) {
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "Deleted");
  frmTemplate& setup = TheScreen();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Invalid Template Name specified: Deleted"});
  EXPECT_EQ(setup.cmbTemplate.ListIndex, 0);
  EXPECT_FALSE(Run().UseTemplate);
  EXPECT_EQ(Run().TemplateFilePath, "");
  // The group switch that follows enables Delete with "None" selected.
  EXPECT_TRUE(setup.cmdDeleteTemplate.Enabled);
}

TEST_F(SetupScreen, ExtensionSettingsGetTheirClosingBar) {
  SaveSetting("Orvanta", "Corvalin", "DefaultInputFileExtension", "Plots (*.plt)|*.plt");
  SaveSetting("Orvanta", "Corvalin", "DefaultOutputFileExtension", "Trees (*.trl)|*.trl|");
  TheScreen();
  EXPECT_EQ(Run().DefaultInputFileExtension, "Plots (*.plt)|*.plt|");
  EXPECT_EQ(Run().DefaultOutputFileExtension, "Trees (*.trl)|*.trl|");
}

TEST_F(SetupScreen, DefaultFoldersThatAreNotFoldersGiveWayToTheWorkFolder) {
  SaveSetting("Orvanta", "Corvalin", "DefaultInputFileDirectory", (home / "gone").string());
  SaveSetting("Orvanta", "Corvalin", "DefaultOutputFileDirectory", home.string() + "/");
  TheScreen();
  EXPECT_EQ(Run().DefaultInputFileDirectory, Run().WorkFolder);
  EXPECT_EQ(Run().DefaultOutputFileDirectory, home.string() + "/");
}

TEST_F(SetupScreen, StandListDefaultsAreHeldUpperCased) {
  SaveSetting("Orvanta", "Corvalin", "DefaultStandListFile", "/data/stands/");
  TheScreen();
  EXPECT_EQ(Run().DefaultStandListFile, "/DATA/STANDS/");
  EXPECT_EQ(TheScreen().lblSlfFile.Caption, "");
}

TEST_F(SetupScreen, InputFileThatOpensIsValid) {
  TheScreen().lblInputFile.SetCaption(input);
  EXPECT_TRUE(Run().InputFileValid);
  EXPECT_FALSE(TheScreen().lblInputFile.Red);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SetupScreen, InputFileThatDoesNotOpenTurnsRed) {
  TheScreen().lblInputFile.SetCaption((home / "missing.csv").string());
  EXPECT_FALSE(Run().InputFileValid);
  EXPECT_TRUE(TheScreen().lblInputFile.Red);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Can't open input file."});
  EXPECT_EQ(TheScreen().lblInputFile.Caption, (home / "missing.csv").string());
}

TEST_F(SetupScreen, AFolderIsNoInputFile) {
  TheScreen().lblInputFile.SetCaption(home.string());
  EXPECT_FALSE(Run().InputFileValid);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Can't open input file."});
}

TEST_F(SetupScreen, ChangingTheInputUnloadsTheColumnAndGridScreens) {
  TheScreen().lblInputFile.SetCaption(input);
  App().Columns();
  ASSERT_TRUE(App().ColumnsLoaded());
  ASSERT_TRUE(Run().InputPreviewLoaded);
  TheScreen().lblInputFile.SetCaption(input);
  EXPECT_FALSE(App().ColumnsLoaded());
  EXPECT_FALSE(Run().InputPreviewLoaded);
}

TEST_F(SetupScreen, InputAndOutputDifferingInCaseAreAccepted) {
  TheScreen().lblInputFile.SetCaption(input);
  TheScreen().lblOutputFile.SetCaption((home / "TREES.csv").string());
  EXPECT_TRUE(Run().OutputFileValid);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SetupScreen, OutputSameAsInputIsEmptiedAndTranslateIsOff) {
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "Beta");
  frmTemplate& setup = TheScreen();
  setup.lblInputFile.SetCaption(input);
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  EXPECT_TRUE(setup.cmdFinish.Enabled);
  setup.lblOutputFile.SetCaption(input);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Input and output cannot be the same file."});
  EXPECT_EQ(setup.lblOutputFile.Caption, "");
  EXPECT_FALSE(Run().OutputFileValid);
  EXPECT_FALSE(setup.cmdFinish.Enabled);
  EXPECT_FALSE(setup.cmdNextTrans.Enabled);
}

// The same file under another name: a symbolic link, or a path through a
// linked folder to an output that does not exist yet.
TEST_F(SetupScreen, OutputThatIsTheInputUnderAnotherNameIsRefused) {
  frmTemplate& setup = TheScreen();
  setup.lblInputFile.SetCaption(input);
  fs::create_symlink(input, home / "link.tre");
  setup.lblOutputFile.SetCaption((home / "link.tre").string());
  fs::create_directory_symlink(home, home / "alias");
  setup.lblOutputFile.SetCaption((home / "alias" / "trees.csv").string());
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Input and output cannot be the same file.",
                                                  "Input and output cannot be the same file."}));
  EXPECT_EQ(setup.lblOutputFile.Caption, "");
  EXPECT_FALSE(Run().OutputFileValid);
}

TEST_F(SetupScreen, InputThatIsTheOutputUnderAnotherNameIsRefused) {
  frmTemplate& setup = TheScreen();
  setup.lblOutputFile.SetCaption(input);
  setup.lblInputFile.SetCaption((home / "." / "trees.csv").string());
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Input and output cannot be the same file."});
  EXPECT_EQ(setup.lblInputFile.Caption, "");
  EXPECT_FALSE(Run().InputFileValid);
}

TEST_F(SetupScreen, OutputThatIsAFileOfTheRunIsRefused) {
  frmTemplate& setup = TheScreen();
  const struct {
    fs::path output;
    const char* reason;
  } cases[] = {
      {home / "Work" / "result.txt", "Output cannot be the result file."},
      {home / "Data" / "TFT.mdb", "Output cannot be the working table."},
      {home / "Data" / "tft.mdb", "Output cannot be the working table."},
      {SettingsFilePath("Orvanta"), "Output cannot be the settings file."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reason);
    ui.boxes.clear();
    setup.lblOutputFile.SetCaption(c.output.string());
    EXPECT_EQ(ui.Texts(), std::vector<std::string>{c.reason});
    EXPECT_EQ(setup.lblOutputFile.Caption, "");
    EXPECT_FALSE(Run().OutputFileValid);
  }
}

// The template in force, whether it was chosen before the output or after.
TEST_F(SetupScreen, OutputThatIsTheTemplateIsRefused) {
  frmTemplate& setup = TheScreen();
  setup.cmbTemplate.Select(2);
  setup.cmbTemplate_Click();
  setup.lblOutputFile.SetCaption((home / "Work" / "Beta.cnv").string());
  EXPECT_EQ(setup.lblOutputFile.Caption, "");
  setup.cmbTemplate.Select(0);
  setup.cmbTemplate_Click();
  setup.lblOutputFile.SetCaption((home / "Work" / "alpha.cnv").string());
  EXPECT_TRUE(Run().OutputFileValid);
  setup.cmbTemplate.Select(1);
  setup.cmbTemplate_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Output cannot be the template file.",
                                                  "Output cannot be the template file."}));
  EXPECT_EQ(setup.lblOutputFile.Caption, "");
  EXPECT_FALSE(Run().OutputFileValid);
  EXPECT_EQ(setup.cmbTemplate.Text, "alpha");
}

TEST_F(SetupScreen, SameStandListAndLocationFileGiveTwoMessagesAndTheCaptionStaysRed) {
  frmTemplate& setup = TheScreen();
  setup.chkEditStandListFile.Value = 1;
  setup.chkEditStandListFile_Click();
  setup.lblLocationsFile.SetCaption("/x/run.loc");
  setup.lblSlfFile.SetCaption("/x/run.loc");
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Stand List File and Location File cannot be the same.",
                                                  "Can't open Stand List File."}));
  EXPECT_EQ(setup.lblSlfFile.Caption, "/x/run.loc");
  EXPECT_TRUE(setup.lblSlfFile.Red);
  EXPECT_FALSE(Run().StandListFileValid);
}

TEST_F(SetupScreen, SameLocationAsStandListFileIsEmptied) {
  frmTemplate& setup = TheScreen();
  setup.lblSlfFile.SetCaption("/x/run.slf");
  setup.lblLocationsFile.SetCaption("/x/run.slf");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Stand List File and Location File cannot be the same."});
  EXPECT_EQ(setup.lblLocationsFile.Caption, "");
  EXPECT_FALSE(Run().LocationFileValid);
}

TEST_F(SetupScreen, InputMarkerWithATemplateAllowsNextButNotTranslate) {
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "Beta");
  frmTemplate& setup = TheScreen();
  setup.chkNoInput.Value = 1;
  setup.chkNoInput_Click();
  EXPECT_EQ(setup.lblInputFile.Caption, "*** No input file ***");
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  EXPECT_TRUE(setup.cmdNextTrans.Enabled);
  EXPECT_FALSE(setup.cmdFinish.Enabled);
  EXPECT_FALSE(setup.cmdNext.Enabled);
}

TEST_F(SetupScreen, TemplateNoneWithValidFilesAllowsNextButNotTranslate) {
  frmTemplate& setup = TheScreen();
  setup.lblInputFile.SetCaption(input);
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  EXPECT_TRUE(setup.cmdNextTrans.Enabled);
  EXPECT_FALSE(setup.cmdFinish.Enabled);
}

TEST_F(SetupScreen, NeitherBoxCheckedTurnsAllThreeButtonsOff) {
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "Beta");
  frmTemplate& setup = TheScreen();
  setup.lblInputFile.SetCaption(input);
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  setup.chkTranslateFile.Value = 0;
  setup.chkTranslateFile_Click();
  EXPECT_FALSE(setup.cmdNext.Enabled);
  EXPECT_FALSE(setup.cmdNextTrans.Enabled);
  EXPECT_FALSE(setup.cmdFinish.Enabled);
  EXPECT_FALSE(setup.cmbTemplate.Enabled);
  EXPECT_TRUE(setup.chkTranslateFile.Enabled);
}

TEST_F(SetupScreen, EditOnlyNeedsBothStandFiles) {
  frmTemplate& setup = TheScreen();
  setup.chkTranslateFile.Value = 0;
  setup.chkEditStandListFile.Value = 1;
  setup.chkEditStandListFile_Click();
  setup.lblSlfFile.SetCaption("/x/run.slf");
  EXPECT_FALSE(setup.cmdNext.Enabled);
  setup.lblLocationsFile.SetCaption("/x/run.loc");
  EXPECT_TRUE(setup.cmdNext.Enabled);
  EXPECT_FALSE(setup.cmdNextTrans.Enabled);
}

TEST_F(SetupScreen, SelectingATemplateUnloadsTheColumnAndGridScreens) {
  frmTemplate& setup = TheScreen();
  setup.lblInputFile.SetCaption(input);
  App().Columns();
  ASSERT_TRUE(App().ColumnsLoaded());
  setup.cmbTemplate.Select(2);
  setup.cmbTemplate_Click();
  EXPECT_EQ(Run().TemplateFilePath, Run().WorkFolder + "Beta.cnv");
  EXPECT_FALSE(App().ColumnsLoaded());
}

TEST_F(SetupScreen, HelpOpensTheScreensTopic) {
  PlaceHelpFile();
  TheScreen().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-7");
}

TEST_F(SetupScreen, QuitAsksAndNoKeepsTheProgramRunning) {
  ui.answers = {Answer::No};
  EXPECT_NO_THROW(TheScreen().cmdQuit_Click());
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Do you really want to quit?"});
}

TEST_F(SetupScreen, ClosingTheWindowAsksTheQuitQuestionAndYesEnds) {
  ui.answers = {Answer::Yes};
  EXPECT_THROW(TheScreen().CloseRequested(), ProcessEnded);
}

TEST_F(SetupScreen, InputDialogIsSetUpAtLoad) {
  TheScreen();
  const FileDialogRequest& dialog = MainForm().cmnInputFileDialog;
  EXPECT_EQ(dialog.title, "Corvalin - Select Input File");
  EXPECT_EQ(dialog.helpContext, 10);
  EXPECT_EQ(dialog.flags & 0x1814, 0x1814);
  EXPECT_EQ(MainForm().cmnLocationFileDialog.filter, "Location (*.loc) | *.loc |All Files (*.*) | *.*");
}

class InputPreview : public SetupScreen {};

TEST_F(InputPreview, ReadsLinesEndingInCrOrLfOrBoth) {
  WriteFile(input, "a\r\nb\rc\nd");
  TheScreen().lblInputFile.SetCaption(input);
  ReadInputPreview();
  EXPECT_EQ(Run().InputPreviewCount, 4);
  EXPECT_EQ(Run().InputPreview, (std::vector<std::string>{"a", "b", "c", "d"}));
  EXPECT_TRUE(Run().InputPreviewLoaded);
  EXPECT_EQ(GetPreviewLine(2), "b");
}

TEST_F(InputPreview, StopsAt999Lines) {
  std::string text;
  for (int i = 1; i <= 1200; ++i) text += std::to_string(i) + "\r\n";
  WriteFile(input, text);
  TheScreen().lblInputFile.SetCaption(input);
  ReadInputPreview();
  EXPECT_EQ(Run().InputPreviewCount, 999);
  EXPECT_EQ(GetPreviewLine(999), "999");
}

TEST_F(InputPreview, MarkerGivesNoLines) {
  TheScreen().lblInputFile.SetCaption("*** No input file ***");
  ReadInputPreview();
  EXPECT_EQ(Run().InputPreviewCount, 0);
  EXPECT_TRUE(Run().InputPreviewLoaded);
}

TEST_F(InputPreview, FailureIsReportedWithTheModule) {
  TheScreen().lblInputFile.SetCaption(input);
  fs::remove(input);
  ui.boxes.clear();
  ReadInputPreview();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Error reading input file.Module = Template\r\n53: File not found"});
  EXPECT_FALSE(Run().InputPreviewLoaded);
}

TEST_F(InputPreview, LineOutsideThePreviewIsAnAssertionFailure) {
  Run().InputPreviewCount = 0;
  EXPECT_THROW(GetPreviewLine(1), ProcessEnded);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Assertion failure!"});
}

TEST_F(InputPreview, ScrollMaximumIsCountLessThreeFromFiveLines) {
  EXPECT_EQ(PreviewScrollMaximum(999), 996);
  EXPECT_EQ(PreviewScrollMaximum(5), 2);
  EXPECT_EQ(PreviewScrollMaximum(4), 1);
  EXPECT_EQ(PreviewScrollMaximum(0), 1);
}

}  // namespace
}  // namespace corvalin
