// frmTemplate's buttons: the four file dialogs, Delete, the two Next
// buttons, Translate and Change Defaults.
#include <gtest/gtest.h>

#include <filesystem>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmSlf.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "templates/TemplateCommands.h"
#include "input/ColumnFormat.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::WriteFile;

class SetupButtons : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    InitRunDefaults();
    Run().WorkFolder = (home / "Work").string() + "/";
    Run().DataFolder = (home / "Data").string() + "/";
    Run().InstallFolder = (testing::BinaryDir() / "share" / "corvalin").string() + "/";
    ResetMarkers();
    ResetCommands();
    fs::create_directories(home / "in");
    input = (home / "in" / "trees.csv").string();
    WriteFile(input, "1,2,3\r\n4,5,6\r\n");
    WriteFile(home / "Work" / "alpha.cnv", "");
    WriteFile(home / "Work" / "beta.cnv", "");
  }
  void TearDown() override {
    App().UnloadAll();
    CloseDatabase();
    FreshProcess::TearDown();
  }
  frmTemplate& FirstScreen() { return App().Template(); }
  std::string input;
};

TEST_F(SetupButtons, InputDialogStartsInTheDefaultFolderAndTakesTheChosenFile) {
  frmTemplate& setup = FirstScreen();
  ui.files.push_back(input);
  setup.cmdChangeInput_Click();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  const FileDialogRequest& dialog = ui.fileDialogs[0];
  EXPECT_EQ(dialog.title, "Corvalin - Select Input File");
  EXPECT_EQ(dialog.initialFolder, Run().WorkFolder);
  EXPECT_EQ(dialog.fileName, "");
  EXPECT_EQ(dialog.flags, 0x1814);
  EXPECT_EQ(dialog.helpContext, 10);
  EXPECT_FALSE(dialog.save);
  EXPECT_EQ(dialog.filter, StandardInputFileFilter);
  EXPECT_EQ(setup.lblInputFile.Caption, input);
  EXPECT_TRUE(Run().InputFileValid);
  EXPECT_FALSE(Run().InputPreviewLoaded);
}

TEST_F(SetupButtons, InputDialogWithACaptionStartsInItsFolderWithItsName) {
  frmTemplate& setup = FirstScreen();
  setup.lblInputFile.SetCaption(input);
  setup.cmdChangeInput_Click();
  EXPECT_EQ(ui.fileDialogs.back().initialFolder, (home / "in").string() + "/");
  EXPECT_EQ(ui.fileDialogs.back().fileName, "trees.csv");
  // Cancelled: the preset name came back, and nothing changed.
  EXPECT_EQ(setup.lblInputFile.Caption, input);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SetupButtons, ADialogPathWithAFileInTheRootStartsInTheRootFolder) {
  frmTemplate& setup = FirstScreen();
  ui.files.push_back("/trees.tre");
  setup.cmdChangeOutput_Click();
  ASSERT_EQ(setup.lblOutputFile.Caption, "/trees.tre");
  setup.cmdChangeOutput_Click();
  EXPECT_EQ(ui.fileDialogs.back().initialFolder, "/");
  EXPECT_EQ(ui.fileDialogs.back().fileName, "trees.tre");
  EXPECT_EQ(setup.lblOutputFile.Caption, "/trees.tre");
}

TEST_F(SetupButtons, InputDialogWithTheNoInputMarkerStartsInTheDefaultFolder) {
  frmTemplate& setup = FirstScreen();
  setup.chkNoInput.Value = 1;
  setup.chkNoInput_Click();
  setup.cmdChangeInput_Click();
  EXPECT_EQ(ui.fileDialogs.back().initialFolder, Run().WorkFolder);
  EXPECT_EQ(ui.fileDialogs.back().fileName, "");
  EXPECT_EQ(setup.lblInputFile.Caption, NoInputFileMarker);
}

TEST_F(SetupButtons, CancelInAnyFileDialogChangesNothing) {
  frmTemplate& setup = FirstScreen();
  setup.chkEditStandListFile.Value = 1;
  setup.chkEditStandListFile_Click();
  setup.cmdChangeInput_Click();
  setup.cmdChangeOutput_Click();
  setup.cmdSelectSlf_Click();
  setup.cmdSelectLocations_Click();
  EXPECT_EQ(ui.fileDialogs.size(), 4u);
  EXPECT_EQ(setup.lblInputFile.Caption, "");
  EXPECT_EQ(setup.lblOutputFile.Caption, "");
  EXPECT_EQ(setup.lblSlfFile.Caption, "");
  EXPECT_EQ(setup.lblLocationsFile.Caption, "");
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SetupButtons, OutputDialogIsASaveDialogInTheOutputFolder) {
  frmTemplate& setup = FirstScreen();
  ui.files.push_back((home / "out.tre").string());
  setup.cmdChangeOutput_Click();
  const FileDialogRequest& dialog = ui.fileDialogs.back();
  EXPECT_EQ(dialog.title, "Corvalin - Select Output File");
  EXPECT_EQ(dialog.flags, 0x2014);
  EXPECT_EQ(dialog.helpContext, 20);
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.filter, StandardOutputFileFilter);
  EXPECT_EQ(setup.lblOutputFile.Caption, (home / "out.tre").string());
  EXPECT_TRUE(Run().OutputFileValid);
  setup.cmdChangeOutput_Click();
  EXPECT_EQ(ui.fileDialogs.back().initialFolder, home.string() + "/");
  EXPECT_EQ(ui.fileDialogs.back().fileName, "out.tre");
}

TEST_F(SetupButtons, StandListAndLocationDialogsStartAtTheWholeCaption) {
  frmTemplate& setup = FirstScreen();
  setup.chkTranslateFile.Value = 0;
  setup.chkEditStandListFile.Value = 1;
  setup.chkEditStandListFile_Click();
  ui.files.push_back((home / "a.slf").string());
  setup.cmdSelectSlf_Click();
  EXPECT_EQ(ui.fileDialogs.back().title, "Corvalin - Select Stand List File");
  EXPECT_EQ(ui.fileDialogs.back().initialFolder, "");
  EXPECT_EQ(ui.fileDialogs.back().helpContext, 140);
  EXPECT_EQ(ui.fileDialogs.back().filter, "Stand Level Files (*.slf)|*.slf |All Files (*.*)|*.*");
  EXPECT_EQ(setup.lblSlfFile.Caption, (home / "a.slf").string());
  EXPECT_TRUE(Run().StandListFileValid);
  setup.cmdSelectSlf_Click();
  EXPECT_EQ(ui.fileDialogs.back().initialFolder, (home / "a.slf").string());
  EXPECT_EQ(ui.fileDialogs.back().fileName, "a.slf");
  ui.files.push_back((home / "a.loc").string());
  setup.cmdSelectLocations_Click();
  EXPECT_EQ(ui.fileDialogs.back().title, "Corvalin - Select Location File");
  EXPECT_EQ(ui.fileDialogs.back().helpContext, 180);
  EXPECT_EQ(setup.lblLocationsFile.Caption, (home / "a.loc").string());
  EXPECT_TRUE(setup.cmdNext.Enabled);
}

TEST_F(SetupButtons, DeleteWithNoneSelectedDoesNothing) {
  frmTemplate& setup = FirstScreen();
  ASSERT_TRUE(setup.cmdDeleteTemplate.Enabled);
  setup.cmdDeleteTemplate_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(setup.cmbTemplate.ListCount(), 3);
}

TEST_F(SetupButtons, DeletingTheLastTemplateSelectsTheOneBeforeIt) {
  frmTemplate& setup = FirstScreen();
  setup.cmbTemplate.Select(2);
  setup.cmbTemplate_Click();
  ui.answers.push_back(Answer::Yes);
  setup.cmdDeleteTemplate_Click();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Do you really want to delete: beta?");
  EXPECT_EQ(ui.boxes[0].title, "Delete Template");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.boxes[0].icon, Icon::Question);
  EXPECT_FALSE(fs::exists(home / "Work" / "beta.cnv"));
  EXPECT_EQ(setup.cmbTemplate.Items, (std::vector<std::string>{"None", "alpha"}));
  EXPECT_EQ(setup.cmbTemplate.Text, "alpha");
  EXPECT_EQ(Run().TemplateFilePath, Run().WorkFolder + "alpha.cnv");
}

TEST_F(SetupButtons, DeletingTheFirstOfTwoKeepsTheIndexNowTheOtherFile) {
  frmTemplate& setup = FirstScreen();
  setup.cmbTemplate.Select(1);
  setup.cmbTemplate_Click();
  ui.answers.push_back(Answer::Yes);
  setup.cmdDeleteTemplate_Click();
  EXPECT_FALSE(fs::exists(home / "Work" / "alpha.cnv"));
  EXPECT_EQ(setup.cmbTemplate.ListIndex, 1);
  EXPECT_EQ(setup.cmbTemplate.Text, "beta");
}

TEST_F(SetupButtons, NoKeepsTheFileAndTheSelection) {
  frmTemplate& setup = FirstScreen();
  setup.cmbTemplate.Select(2);
  setup.cmbTemplate_Click();
  ui.answers.push_back(Answer::No);
  setup.cmdDeleteTemplate_Click();
  EXPECT_TRUE(fs::exists(home / "Work" / "beta.cnv"));
  EXPECT_EQ(setup.cmbTemplate.Text, "beta");
}

TEST_F(SetupButtons, AFileThatCannotBeDeletedGivesTheMessage) {
  frmTemplate& setup = FirstScreen();
  setup.cmbTemplate.Select(1);
  setup.cmbTemplate_Click();
  fs::remove(home / "Work" / "alpha.cnv");
  ui.answers.push_back(Answer::Yes);
  setup.cmdDeleteTemplate_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Do you really want to delete: alpha?",
                                                  "Error occurred with file deletion."}));
  // The list is not refreshed.
  EXPECT_EQ(setup.cmbTemplate.ListCount(), 3);
}

TEST_F(SetupButtons, NextShowsTheColumnScreenWhereThisOneStood) {
  frmTemplate& setup = FirstScreen();
  setup.Left = 210;
  setup.Top = 120;
  setup.Show();
  setup.lblInputFile.SetCaption(input);
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  ASSERT_TRUE(setup.cmdNextTrans.Enabled);
  setup.cmdNextTrans_Click();
  frmColumns& columns = App().Columns();
  EXPECT_TRUE(columns.Visible());
  EXPECT_EQ(columns.Left, 210);
  EXPECT_EQ(columns.Top, 120);
  EXPECT_FALSE(setup.Visible());
  EXPECT_TRUE(Run().InputPreviewLoaded);
  EXPECT_EQ(Run().InputPreviewCount, 2);
  EXPECT_EQ(columns.lblLineNumbers.Caption, "1\r\n2\r\n- end -");
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(SetupButtons, NextWithoutAnInputFileGoesToTheGrid) {
  frmTemplate& setup = FirstScreen();
  setup.Show();
  setup.chkNoInput.Value = 1;
  setup.chkNoInput_Click();
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  setup.cmdNextTrans_Click();
  EXPECT_TRUE(ui.boxes.empty()) << ui.Texts()[0];
  ASSERT_TRUE(App().HeadersLoaded());
  EXPECT_TRUE(App().Headers().Visible());
  EXPECT_EQ(App().Headers().cmdNext.Caption, "Done");
  EXPECT_FALSE(App().Columns().Visible());
  EXPECT_FALSE(setup.Visible());
}

TEST_F(SetupButtons, NextInTheEditPathShowsTheStandListEditor) {
  frmTemplate& setup = FirstScreen();
  setup.Show();
  setup.chkTranslateFile.Value = 0;
  setup.chkEditStandListFile.Value = 1;
  setup.chkEditStandListFile_Click();
  setup.lblSlfFile.SetCaption((home / "a.slf").string());
  setup.lblLocationsFile.SetCaption((home / "a.loc").string());
  ASSERT_TRUE(setup.cmdNext.Enabled);
  setup.cmdNext_Click();
  EXPECT_TRUE(App().Slf().Visible());
  EXPECT_FALSE(setup.Visible());
}

// The short way with the sample template and the survey extract.
class ShortWay : public SetupButtons {
 protected:
  void SetUp() override {
    SetupButtons::SetUp();
    fs::copy_file(testing::SourceDir() / "data/Work/lolo.cnv", home / "Work/lolo.cnv");
    output = (home / "lolo.tre").string();
  }
  frmTemplate& Ready() {
    frmTemplate& setup = FirstScreen();
    setup.Show();
    setup.RefreshTemplateList("lolo");
    setup.lblInputFile.SetCaption((testing::SharedDataDir() / "lolo-2022/tree.csv").string());
    setup.lblOutputFile.SetCaption(output);
    return setup;
  }
  std::string output;
};

TEST_F(ShortWay, TranslateOnTheFirstScreenWritesTheTreeListAndStays) {
  frmTemplate& setup = Ready();
  ASSERT_TRUE(setup.cmdFinish.Enabled);
  setup.cmdFinish_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Translation completed."});
  EXPECT_TRUE(ui.appendQuestions.empty());
  EXPECT_TRUE(setup.Visible());
  EXPECT_FALSE(App().Headers().Visible());
  const std::string written = ReadFile(output);
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 713);
}

TEST_F(ShortWay, TranslateOnTheColumnScreenAsksWhenTheOutputExistsAndGoesBack) {
  frmTemplate& setup = Ready();
  WriteFile(output, "old\r\n");
  setup.cmdNextTrans_Click();
  frmColumns& columns = App().Columns();
  ASSERT_TRUE(columns.Visible());
  EXPECT_TRUE(columns.cmdFinish.Enabled);
  ui.appendChoices.push_back(AppendChoice::Overwrite);
  columns.cmdFinish_Click();
  EXPECT_EQ(ui.appendQuestions.size(), 1u);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Translation completed."});
  EXPECT_TRUE(setup.Visible());
  EXPECT_FALSE(columns.Visible());
  const std::string written = ReadFile(output);
  EXPECT_EQ(written.substr(0, 4), "   1");
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 713);
}

TEST_F(ShortWay, CancelledLoadShowsTheRowsLoadedSoFarAndTranslatesNothing) {
  frmTemplate& setup = Ready();
  int calls = 0;
  ui.onDoEvents = [&] {
    if (!ui.busyWindow.empty() && ++calls == 100) Run().BusyCancelled = true;
  };
  setup.cmdFinish_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_FALSE(fs::exists(output));
  EXPECT_TRUE(App().Headers().Visible());
  EXPECT_FALSE(setup.Visible());
  EXPECT_TRUE(Run().ReloadNeeded);
}

TEST_F(ShortWay, ANewOutputChosenOnceTheGridIsLoadedLeavesALoadedGrid) {
  frmTemplate& setup = Ready();
  // The rows are in and the grid is loaded; among the pending events that
  // follow, the person chooses another output file, which unloads the grid
  // screens. The short way goes on with the grid loaded again: no error of
  // a grid without rows, and the tree list goes to the new output.
  const std::string other = (home / "other.tre").string();
  bool chosen = false;
  ui.onDoEvents = [&] {
    if (chosen || ui.busyHides == 0 || !App().HeadersLoaded()) return;
    chosen = true;
    ui.files.push_back(other);
    setup.cmdChangeOutput_Click();
  };
  setup.cmdFinish_Click();
  ASSERT_TRUE(chosen);
  EXPECT_EQ(setup.lblOutputFile.Caption, other);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Translation completed."});
  EXPECT_TRUE(setup.Visible());
  EXPECT_FALSE(App().Headers().Visible());
  EXPECT_FALSE(fs::exists(output));
  const std::string written = ReadFile(other);
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 713);
}

}  // namespace
}  // namespace corvalin
