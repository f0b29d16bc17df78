// frmConfigure, the defaults screen: what it shows from the settings store,
// its folder picks, the filter check of "Set Defaults" and what it saves,
// Cancel, and the close box.
#include <gtest/gtest.h>

#include <filesystem>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmConfigure.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::WriteFile;

std::string Stored(const char* key) { return GetSetting("Orvanta", "Corvalin", key, "<none>"); }

class DefaultsScreen : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    InitRunDefaults();
    Run().WorkFolder = (home / "Work").string() + "/";
    Run().HelpFile = (home / "Orvanta.html").string();
    WriteFile(home / "Work" / "lolo.cnv", "");
    WriteFile(home / "Work" / "mine.cnv", "");
  }
  frmConfigure& Open() { return App().Configure(); }
  // The one message of a stored variant the list lacks. Its wording is the
  // grid's and the stand list's, whose tests hold it word for word; here it
  // must name the variant read from the defaults.
  void ExpectUnknownVariantMessage(const std::string& variant) {
    ASSERT_EQ(ui.Texts().size(), 1u);
    EXPECT_TRUE(ui.Texts()[0].starts_with("Unknown Orvan Variant ")) << ui.Texts()[0];
    EXPECT_TRUE(ui.Texts()[0].ends_with(": " + variant)) << ui.Texts()[0];
  }
};

TEST_F(DefaultsScreen, EmptyStoreOpensWithBcMetricTheWorkFolderAndNone) {
  frmConfigure& screen = Open();
  EXPECT_EQ(screen.Caption, "Corvalin - Set Defaults");
  EXPECT_EQ(screen.HelpContextID, 6);
  EXPECT_EQ(Run().CurrentScreen, "Configure");
  EXPECT_EQ(screen.cmbVariant.Text, "BC");
  EXPECT_EQ(screen.cmbVariant.ListIndex, 1);
  EXPECT_EQ(screen.cmbVariant.Items,
            (std::vector<std::string>{"AK", "BC", "BH", "BM", "CI", "EC", "EM", "NC", "NI", "SO", "SW", "TT", "UT",
                                      "WS", "KT"}));
  EXPECT_TRUE(screen.optMetric.Value);
  EXPECT_FALSE(screen.optImperial.Value);
  EXPECT_EQ(screen.lblInputFile.Caption, Run().WorkFolder);
  EXPECT_EQ(screen.lblOutputFile.Caption, Run().WorkFolder);
  EXPECT_EQ(screen.cmbTemplate.Items, (std::vector<std::string>{"None", "lolo", "mine"}));
  EXPECT_EQ(screen.cmbTemplate.Text, "None");
  EXPECT_EQ(screen.txtInputFileExtensions.Text, "");
  EXPECT_EQ(screen.txtOutputFileExtensions.Text, "");
  EXPECT_EQ(screen.chkTranslateFile.Value, 1);
  EXPECT_EQ(screen.chkEditStandListFile.Value, 0);
  EXPECT_FALSE(screen.cmdSelectStandListFile.Enabled);
  EXPECT_EQ(screen.Label12.Caption, "Variant and unit defaults are over-ridden by templates.");
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(DefaultsScreen, OpensWhereTheFirstScreenStands) {
  App().Template().Left = 140;
  App().Template().Top = 90;
  frmConfigure& screen = Open();
  EXPECT_EQ(screen.Left, 140);
  EXPECT_EQ(screen.Top, 90);
}

TEST_F(DefaultsScreen, StoredDefaultsAreShown) {
  fs::create_directories(home / "in");
  SaveSetting("Orvanta", "Corvalin", "DefaultInputFileDirectory", (home / "in").string() + "/");
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "mine");
  SaveSetting("Orvanta", "Corvalin", "OrvanVariant", "KT");
  SaveSetting("Orvanta", "Corvalin", "MeasurementSystem", "IMPERIAL");
  SaveSetting("Orvanta", "Corvalin", "EditStandListFile", "yes");
  SaveSetting("Orvanta", "Corvalin", "DefaultStandListFile", "/stands/");
  SaveSetting("Orvanta", "Corvalin", "DefaultInputFileExtension", "Plots (*.plt)|*.plt|");
  frmConfigure& screen = Open();
  EXPECT_EQ(screen.lblInputFile.Caption, (home / "in").string() + "/");
  EXPECT_EQ(screen.cmbTemplate.Text, "mine");
  EXPECT_EQ(screen.cmbVariant.Text, "KT");
  EXPECT_TRUE(screen.optImperial.Value);
  EXPECT_EQ(screen.chkEditStandListFile.Value, 1);
  EXPECT_TRUE(screen.cmdSelectStandListFile.Enabled);
  EXPECT_EQ(screen.lblStandListFile.Caption, "/stands/");
  EXPECT_EQ(screen.txtInputFileExtensions.Text, "Plots (*.plt)|*.plt|");
}

TEST_F(DefaultsScreen, UnknownVariantGivesTheMessageAndOkSavesAnEmptyVariant) {
  SaveSetting("Orvanta", "Corvalin", "OrvanVariant", "XX");
  frmConfigure& screen = Open();
  ExpectUnknownVariantMessage("XX");
  EXPECT_EQ(screen.cmbVariant.ListIndex, -1);
  screen.cmdOk_Click();
  EXPECT_EQ(Stored("OrvanVariant"), "");
}

TEST_F(DefaultsScreen, StoredAkIsNeverFound) {
  SaveSetting("Orvanta", "Corvalin", "OrvanVariant", "AK");
  Open();
  ExpectUnknownVariantMessage("AK");
}

TEST_F(DefaultsScreen, LowerCaseMeasurementSystemIsMetric) {
  SaveSetting("Orvanta", "Corvalin", "MeasurementSystem", "imperial");
  EXPECT_TRUE(Open().optMetric.Value);
}

TEST_F(DefaultsScreen, OkSavesTheTenDefaultsAndSetsTheRunState) {
  frmConfigure& screen = Open();
  screen.cmbTemplate.Select(1);
  screen.cmbVariant.Select(3);
  screen.optMetric.Value = false;
  screen.optImperial.Value = true;
  screen.txtInputFileExtensions.Text = "Plots (*.plt)|*.plt";
  screen.txtOutputFileExtensions.Text = "Lists (*.lst)|*.lst|";
  screen.chkEditStandListFile.Value = 1;
  screen.lblStandListFile.SetCaption("/stands/");
  screen.lblLocationFile.SetCaption("/places/");
  screen.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Stored("Configured"), "YES");
  EXPECT_EQ(Stored("DefaultInputFileDirectory"), Run().WorkFolder);
  EXPECT_EQ(Stored("DefaultOutputFileDirectory"), Run().WorkFolder);
  EXPECT_EQ(Stored("DefaultTemplateFile"), "lolo");
  EXPECT_EQ(Stored("DefaultStandListFile"), "/stands/");
  EXPECT_EQ(Stored("DefaultLocationFile"), "/places/");
  EXPECT_EQ(Stored("DefaultInputFileExtension"), "Plots (*.plt)|*.plt");
  EXPECT_EQ(Stored("DefaultOutputFileExtension"), "Lists (*.lst)|*.lst|");
  EXPECT_EQ(Stored("TranslateFile"), "YES");
  EXPECT_EQ(Stored("EditStandListFile"), "YES");
  EXPECT_EQ(Stored("OrvanVariant"), "BM");
  EXPECT_EQ(Stored("MeasurementSystem"), "IMPERIAL");
  EXPECT_EQ(GetSetting("Orvanta", "Brenwick", "HelpDir", ""), Run().HelpFile);
  // Without upper-casing here, unlike at the first screen's load.
  EXPECT_EQ(Run().DefaultStandListFile, "/stands/");
  EXPECT_EQ(Run().DefaultInputFileExtension, "Plots (*.plt)|*.plt");
  EXPECT_EQ(MainForm().cmnInputFileDialog.filter, "Plots (*.plt)|*.plt|" + std::string(StandardInputFileFilter));
  // The entry ending in "|" is taken as no entry in the filter.
  EXPECT_EQ(MainForm().cmnOutputFileDialog.filter, StandardOutputFileFilter);
  EXPECT_FALSE(App().ConfigureLoaded());
}

TEST_F(DefaultsScreen, NoneIsSavedAsAnEmptyTemplate) {
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "lolo");
  frmConfigure& screen = Open();
  screen.cmbTemplate.Select(0);
  screen.cmdOk_Click();
  EXPECT_EQ(Stored("DefaultTemplateFile"), "");
}

TEST_F(DefaultsScreen, InputEntryWithoutABarIsBadSyntaxAndNothingIsSaved) {
  frmConfigure& screen = Open();
  screen.txtInputFileExtensions.Text = "odd";
  screen.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Bad syntax for input file extension."});
  EXPECT_EQ(Stored("Configured"), "<none>");
  EXPECT_TRUE(App().ConfigureLoaded());
  EXPECT_EQ(MainForm().cmnInputFileDialog.filter, StandardInputFileFilter);
  EXPECT_EQ(MainForm().cmnOutputFileDialog.filter, StandardOutputFileFilter);
}

TEST_F(DefaultsScreen, OutputEntryWithoutABarIsBadSyntax) {
  frmConfigure& screen = Open();
  screen.txtOutputFileExtensions.Text = "odd";
  screen.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Bad syntax for output file extension."});
  EXPECT_EQ(Stored("DefaultOutputFileExtension"), "<none>");
}

TEST_F(DefaultsScreen, EntryEndingInABarIsTestedAsEmptyAndSavedAsTyped) {
  frmConfigure& screen = Open();
  screen.txtInputFileExtensions.Text = "odd|";
  screen.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Stored("DefaultInputFileExtension"), "odd|");
  EXPECT_EQ(MainForm().cmnInputFileDialog.filter, StandardInputFileFilter);
}

TEST_F(DefaultsScreen, OutputFolderWithADoubledSeparatorIsRepairedAndSavedRepaired) {
  fs::create_directories(home / "out");
  fs::create_directories(home / "in");
  SaveSetting("Orvanta", "Corvalin", "DefaultOutputFileDirectory", home.string() + "//out/");
  SaveSetting("Orvanta", "Corvalin", "DefaultInputFileDirectory", home.string() + "//in/");
  frmConfigure& screen = Open();
  EXPECT_EQ(screen.lblOutputFile.Caption, home.string() + "/out/");
  EXPECT_EQ(screen.lblInputFile.Caption, home.string() + "//in/");
  screen.cmdOk_Click();
  EXPECT_EQ(Stored("DefaultOutputFileDirectory"), home.string() + "/out/");
  EXPECT_EQ(Run().DefaultOutputFileDirectory, home.string() + "/out/");
}

TEST_F(DefaultsScreen, OkWithTranslateUncheckedSavesNoYetTheFirstScreenStartsChecked) {
  frmConfigure& screen = Open();
  screen.chkTranslateFile.Value = 0;
  screen.chkTranslateFile_Click();
  EXPECT_FALSE(screen.cmbVariant.Enabled);
  EXPECT_FALSE(screen.Label12.Enabled);
  screen.cmdOk_Click();
  EXPECT_EQ(Stored("TranslateFile"), "NO");
  App().UnloadAll();
  EXPECT_EQ(App().Template().chkTranslateFile.Value, 1);
}

TEST_F(DefaultsScreen, EditBoxSwitchesItsGroup) {
  frmConfigure& screen = Open();
  EXPECT_FALSE(screen.cmdClearLocationFile.Enabled);
  EXPECT_FALSE(screen.Label1.Enabled);
  screen.chkEditStandListFile.Value = 1;
  screen.chkEditStandListFile_Click();
  for (const Control* control :
       std::initializer_list<const Control*>{&screen.cmdSelectStandListFile, &screen.cmdSelectLocationFile,
                                             &screen.cmdClearStandListFile, &screen.cmdClearLocationFile,
                                             &screen.lblWorkingDirectory, &screen.lblStandListFile,
                                             &screen.lblLocationFile, &screen.Label1, &screen.Label5, &screen.Label6})
    EXPECT_TRUE(control->Enabled);
  EXPECT_TRUE(screen.cmbVariant.Enabled);
}

TEST_F(DefaultsScreen, FolderPickTakesTheChosenFolderAndCancelChangesNothing) {
  frmConfigure& screen = Open();
  fs::create_directories(home / "in");
  ui.folders.push_back((home / "in").string());
  screen.cmdSelectInputFile_Click();
  EXPECT_EQ(screen.lblInputFile.Caption, (home / "in").string() + "/");
  EXPECT_EQ(ui.folderTitles.back(), "Corvalin - Select Default Input Directory");
  EXPECT_EQ(ui.folderStarts.back(), (home / "Work").string());
  screen.cmdSelectInputFile_Click();
  EXPECT_EQ(screen.lblInputFile.Caption, (home / "in").string() + "/");
  EXPECT_EQ(ui.folderStarts.back(), (home / "in").string());
  screen.cmdSelectOutputFile_Click();
  EXPECT_EQ(ui.folderTitles.back(), "Corvalin - Select Default Output Directory");
  EXPECT_EQ(screen.lblOutputFile.Caption, Run().WorkFolder);
}

TEST_F(DefaultsScreen, StandListAndLocationPicksStartAtTheirFolderOrTheWorkingDirectory) {
  frmConfigure& screen = Open();
  ui.folders.push_back("/stands");
  screen.cmdSelectStandListFile_Click();
  EXPECT_EQ(ui.folderTitles.back(), "Corvalin - Select Default Stand List Directory");
  EXPECT_EQ(ui.folderStarts.back(), "");
  EXPECT_EQ(screen.lblStandListFile.Caption, "/stands/");
  screen.cmdSelectStandListFile_Click();
  EXPECT_EQ(ui.folderStarts.back(), "/stands");
  screen.cmdSelectLocationFile_Click();
  EXPECT_EQ(ui.folderTitles.back(), "Corvalin - Select Default Location Directory");
  screen.cmdClearStandListFile_Click();
  EXPECT_EQ(screen.lblStandListFile.Caption, "");
  ui.folders.push_back("/work");
  screen.cmdSelectWorkingDir_Click();
  EXPECT_EQ(ui.folderTitles.back(), "Corvalin - Select the Working Directory");
  EXPECT_EQ(screen.lblWorkingDirectory.Caption, "/work/");
  // The working directory is shown, never stored.
  screen.cmdOk_Click();
  EXPECT_EQ(Stored("DefaultStandListFile"), "");
}

TEST_F(DefaultsScreen, CancelSavesNothing) {
  frmConfigure& screen = Open();
  screen.cmbVariant.Select(4);
  screen.cmdCancel_Click();
  EXPECT_FALSE(App().ConfigureLoaded());
  EXPECT_EQ(Stored("OrvanVariant"), "<none>");
  EXPECT_EQ(Stored("Configured"), "<none>");
}

TEST_F(DefaultsScreen, HelpOpensTheDefaultsTopic) {
  PlaceHelpFile();
  Open().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].first, Run().HelpFile);
  EXPECT_EQ(ui.helpOpened[0].second, "context-6");
}

TEST_F(DefaultsScreen, CloseBoxAsksTheQuitQuestionAndKeepsTheScreen) {
  frmConfigure& screen = Open();
  ui.answers.push_back(Answer::No);
  EXPECT_TRUE(screen.Form_QueryUnload(CloseReason::ControlMenu));
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_TRUE(App().ConfigureLoaded());
}

TEST_F(DefaultsScreen, ChangeDefaultsOnTheFirstScreenOpensItModally) {
  ui.AnswerDialog<frmConfigure>([](frmConfigure& dialog) {
    dialog.cmbVariant.Select(2);
    dialog.cmdOk_Click();
  });
  App().Template().cmdConfigure_Click();
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmConfigure"});
  EXPECT_EQ(Stored("OrvanVariant"), "BH");
  EXPECT_FALSE(App().ConfigureLoaded());
}

TEST(FileDialogFilter, PairsOfDescriptionAndPatternsAreValid) {
  EXPECT_TRUE(FileDialogFilterValid("Text (*.txt)|*.txt|All Files (*.*)|*.*"));
  EXPECT_TRUE(FileDialogFilterValid("a|b|c|d"));
  EXPECT_FALSE(FileDialogFilterValid("odd|Text (*.txt)|*.txt|All Files (*.*)|*.*"));
  EXPECT_FALSE(FileDialogFilterValid("|*.txt"));
}

}  // namespace
}  // namespace corvalin
