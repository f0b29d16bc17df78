// The start sequence of frmMain: the folders, the help file, the run
// defaults, and the two run paths up to the setup screen's load.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmConfigure.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/Process.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::FreshProcess;
using testing::ReadFile;
using testing::WriteFile;

class StartSequence : public FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    savedFolder = fs::current_path();
    app = home / "app";
    fs::create_directories(app / "bin");
    for (const char* folder : {"Data", "Work", "Help"}) fs::create_directories(app / "share" / "corvalin" / folder);
    WriteFile(app / "share" / "corvalin" / "Help" / "Orvanta.html", "<html></html>");
    WriteFile(app / "share" / "corvalin" / "Work" / "Sample.cnv", "[FORMAT_INFO]\r\n");
    WriteFile(app / "share" / "corvalin" / "Data" / "codes.dat", "codes");
    SetProgramFileFolder((app / "bin").string());
    start = home / "start";
    fs::create_directories(start);
    SetStartFolder(start.string());
    WriteFile(start / "trees.csv", "1,2,3\r\n");
    WriteFile(home / "Work" / "Sample.cnv", "[FORMAT_INFO]\r\n");
    WriteFile(home / "Work" / "Other.cnv", "[FORMAT_INFO]\r\n");
    SaveSetting("Orvanta", "Common", "DataDir", (home / "Data").string() + "/");
    SaveSetting("Orvanta", "Common", "WorkDir", (home / "Work").string() + "/");
    SetCommandLine("");
    MainForm().FirstUseConfigurationDue = false;
    MainForm().ContinueBatchRun = [this] { continued = true; };
  }
  void TearDown() override {
    fs::current_path(savedFolder);
    MainForm().ContinueBatchRun = nullptr;
    SetCommandLine("");
    FreshProcess::TearDown();
  }
  // Runs the start sequence; the exit status when the process ended, -1 when it returned.
  int Start() {
    return testing::ExitStatusOf([] { MainForm().Form_Load(); }).value_or(-1);
  }
  // Start, with what it writes to standard error.
  struct Started {
    int status;
    std::string errors;
  };
  Started StartCatchingErrors() {
    ::testing::internal::CaptureStderr();
    const int status = Start();
    return {status, ::testing::internal::GetCapturedStderr()};
  }
  std::string Result() const { return ReadFile(home / "Work" / "result.txt"); }
  bool ResultExists() const { return fs::exists(home / "Work" / "result.txt"); }

  fs::path savedFolder;
  fs::path app;
  fs::path start;
  bool continued = false;
};

TEST_F(StartSequence, EmptyCommandLineStartsTheWizardOnTheSetupScreen) {
  SaveSetting("Orvanta", "Corvalin", "Configured", "YES");
  EXPECT_EQ(Start(), -1);
  EXPECT_FALSE(Run().CommandLineMode);
  ASSERT_TRUE(App().TemplateLoaded());
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_EQ(App().Template().Caption, "Corvalin - Specify File Names and Template");
  EXPECT_EQ(Run().CurrentScreen, "Template");
  EXPECT_FALSE(continued);
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_FALSE(ResultExists());
}

TEST_F(StartSequence, SingleBlankIsABatchRun) {
  SetCommandLine(" ");
  Start();
  EXPECT_TRUE(Run().CommandLineMode);
  EXPECT_FALSE(App().Template().Visible());
}

TEST_F(StartSequence, ProgramAndInstallationFoldersAreSetAndTheCurrentFolderIsTheProgramFolder) {
  Start();
  EXPECT_EQ(Run().ProgramFolder, (app / "bin").string() + "/");
  EXPECT_EQ(Run().InstallFolder, (app / "share" / "corvalin").string() + "/");
  EXPECT_EQ(fs::current_path(), app / "bin");
  EXPECT_TRUE(fs::is_directory(app / "share" / "corvalin" / "Convert"));
}

TEST_F(StartSequence, HelpFileIsTheInstalledPageByDefault) {
  Start();
  EXPECT_EQ(Run().HelpFile, (app / "share" / "corvalin" / "Help" / "Orvanta.html").string());
}

TEST_F(StartSequence, HelpDirSettingNamingAFileThatIsGoneGivesTheDefaultHelpPath) {
  SaveSetting("Orvanta", "Brenwick", "HelpDir", (home / "gone.html").string());
  Start();
  EXPECT_EQ(Run().HelpFile, (app / "share" / "corvalin" / "Help" / "Orvanta.html").string());
}

TEST_F(StartSequence, HelpDirSettingNamingAnExistingFileIsUsed) {
  WriteFile(home / "mine.html", "<html></html>");
  SaveSetting("Orvanta", "Brenwick", "HelpDir", (home / "mine.html").string());
  Start();
  EXPECT_EQ(Run().HelpFile, (home / "mine.html").string());
}

TEST_F(StartSequence, RunDefaultsAreSet) {
  Run().ReloadNeeded = false;
  Run().TranslationDone = true;
  Start();
  EXPECT_EQ(Run().InputFileFilter,
            "Data (*.dat)|*.dat|Comma Separated Values (*.csv)|*.csv|Text (*.txt; *.out; *.prn)|*.txt;*.out;*.prn|"
            "All Files (*.*)|*.*");
  EXPECT_EQ(Run().OutputFileFilter, "Tree List (*.tre)|*.tre|All Files (*.*)|*.*");
  EXPECT_TRUE(Run().ReloadNeeded);
  EXPECT_FALSE(Run().TranslationDone);
  EXPECT_FALSE(Run().InputPreviewLoaded);
  EXPECT_EQ(Run().DataFolder, (home / "Data").string() + "/");
  EXPECT_EQ(Run().WorkFolder, (home / "Work").string() + "/");
}

TEST_F(StartSequence, ConfiguredNotBeginningWithYMeansNotConfigured) {
  for (const char* value : {"NO", "no", "", "nope", "1"}) {
    SaveSetting("Orvanta", "Corvalin", "Configured", value);
    App().UnloadAll();
    Start();
    EXPECT_TRUE(MainForm().FirstUseConfigurationDue) << value;
  }
}

TEST_F(StartSequence, ConfiguredBeginningWithYInEitherCaseMeansConfigured) {
  for (const char* value : {"YES", "yes", "Y", "yonder"}) {
    SaveSetting("Orvanta", "Corvalin", "Configured", value);
    App().UnloadAll();
    MainForm().FirstUseConfigurationDue = true;
    Start();
    EXPECT_FALSE(MainForm().FirstUseConfigurationDue) << value;
  }
}

TEST_F(StartSequence, MissingConfiguredSettingMeansNotConfigured) {
  Start();
  EXPECT_TRUE(MainForm().FirstUseConfigurationDue);
}

TEST_F(StartSequence, FirstStartShowsTheDefaultsScreenModallyBeforeTheFirstScreen) {
  bool firstScreenUp = true;
  ui.AnswerDialog<frmConfigure>([&](frmConfigure& dialog) {
    firstScreenUp = App().Template().Visible();
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(dialog.cmbTemplate.Items, (std::vector<std::string>{"None", "Other", "Sample"}));
    dialog.cmdOk_Click();
  });
  EXPECT_EQ(Start(), -1);
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmConfigure"});
  EXPECT_FALSE(firstScreenUp);
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "Configured", "NO"), "YES");
  // Configured now: the next start goes straight to the first screen.
  App().UnloadAll();
  Start();
  EXPECT_EQ(ui.modalDialogs.size(), 1u);
}

TEST_F(StartSequence, CancelAtTheFirstStartGoesOnAndTheDefaultsScreenComesBackNextTime) {
  ui.AnswerDialog<frmConfigure>([](frmConfigure& dialog) { dialog.cmdCancel_Click(); });
  Start();
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_FALSE(App().ConfigureLoaded());
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "Configured", "NO"), "NO");
  App().UnloadAll();
  Start();
  EXPECT_EQ(ui.modalDialogs, (std::vector<std::string>{"frmConfigure", "frmConfigure"}));
}

TEST_F(StartSequence, AnUnattendedRunNeverShowsTheDefaultsScreen) {
  SetCommandLine("a b c");
  Start();
  EXPECT_TRUE(ui.modalDialogs.empty());
}

TEST_F(StartSequence, FirstStartWithNoSettingsTwoYesAnswersSetUpBothFolders) {
  fs::remove(home / ".config" / "Orvanta" / "Orvanta.ini");
  ui.answers = {Answer::Yes, Answer::Yes};
  EXPECT_EQ(Start(), -1);
  const std::string documents = home.string() + "/Documents/Orvanta/";
  EXPECT_EQ(Run().DataFolder, documents + "Data/");
  EXPECT_EQ(Run().WorkFolder, documents + "Work/");
  EXPECT_EQ(ReadFile(documents + "Data/codes.dat"), "codes");
  EXPECT_TRUE(fs::exists(documents + "Work/Sample.cnv"));
  ASSERT_EQ(ui.boxes.size(), 2u);
  EXPECT_EQ(ui.boxes[0].title, "Orvanta - Corvalin - Data Folder");
  EXPECT_EQ(ui.boxes[1].title, "Orvanta - Corvalin - Work Folder");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", ""), documents + "Data/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", ""), documents + "Work/");
  // The sample template is there for the new user to pick.
  ASSERT_EQ(App().Template().cmbTemplate.Items.size(), 2u);
  EXPECT_EQ(App().Template().cmbTemplate.Items[1], "Sample");
}

TEST_F(StartSequence, DataDirThatHasGoneAsksOnlyForTheDataFolder) {
  SaveSetting("Orvanta", "Common", "DataDir", (home / "gone").string() + "/");
  ui.answers = {Answer::Yes};
  Start();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].title, "Orvanta - Corvalin - Data Folder");
  EXPECT_EQ(Run().WorkFolder, (home / "Work").string() + "/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", ""), (home / "Work").string() + "/");
}

TEST_F(StartSequence, CancelOnTheDataQuestionAndYesOnTheWorkOneStillFailsTheStart) {
  fs::remove(home / ".config" / "Orvanta" / "Orvanta.ini");
  ui.answers = {Answer::No, Answer::Cancel, Answer::Yes};
  const int status = Start();
  EXPECT_NE(status, -1);
  EXPECT_NE(status, 0);
  ASSERT_EQ(ui.boxes.size(), 4u);
  EXPECT_EQ(ui.boxes[2].title, "Orvanta - Corvalin - Work Folder");
  EXPECT_EQ(ui.boxes[3].text,
            "Cannot locate all the required files necessary to successfully run Orvanta - Corvalin.  Exiting the "
            "program.");
  EXPECT_EQ(ui.boxes[3].icon, Icon::Critical);
  EXPECT_EQ(ui.boxes[3].title, "Orvanta - Corvalin");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", ""), home.string() + "/Documents/Orvanta/Work/");
  EXPECT_FALSE(App().TemplateLoaded());
}

TEST_F(StartSequence, BatchRunWithUnsetFoldersShowsTheSameDialogs) {
  fs::remove(home / ".config" / "Orvanta" / "Orvanta.ini");
  SetCommandLine("trees.csv out.tre Sample");
  ui.answers = {Answer::No, Answer::Cancel, Answer::No, Answer::Cancel};
  EXPECT_NE(Start(), -1);
  ASSERT_EQ(ui.boxes.size(), 5u);
  EXPECT_EQ(ui.boxes[4].icon, Icon::Critical);
  EXPECT_FALSE(fs::exists(home / "Work" / "result.txt"));
}

TEST_F(StartSequence, FolderErrorShowsTheFormBoxWithNoResult) {
  SaveSetting("Orvanta", "Common", "DataDir", "");
  fs::remove_all(app / "share" / "corvalin" / "Data");
  SetCommandLine("trees.csv out.tre Sample");
  ui.answers = {Answer::Yes};
  EXPECT_EQ(Start(), -1);
  ASSERT_EQ(ui.boxes.size(), 2u);
  EXPECT_EQ(ui.boxes[1].text, "Error in form: frmMain\r\n76: Path not found");
  EXPECT_EQ(ui.boxes[1].icon, Icon::None);
  EXPECT_EQ(ui.boxes[1].buttons, Buttons::OK);
  EXPECT_FALSE(ResultExists());
  EXPECT_FALSE(continued);
}

TEST_F(StartSequence, BatchRunShowsTheBannerWithTheBusyPointerAndLoadsTheSetupScreenUnseen) {
  SetCommandLine("trees.csv out.tre Sample");
  EXPECT_EQ(Start(), -1);
  EXPECT_TRUE(Run().CommandLineMode);
  EXPECT_TRUE(ui.bannerShown);
  EXPECT_EQ(ui.bannerText, "Translating file ...");
  EXPECT_TRUE(ui.busyPointer);
  EXPECT_GE(ui.doEvents, 1);
  ASSERT_TRUE(App().TemplateLoaded());
  EXPECT_FALSE(App().Template().Visible());
  EXPECT_TRUE(continued);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(StartSequence, BatchRunReadsTheThreeFieldsOfTheCommandLine) {
  SetCommandLine("trees.csv out.tre Sample");
  Start();
  const frmTemplate& setup = App().Template();
  EXPECT_EQ(setup.lblInputFile.Caption, (start / "trees.csv").string());
  EXPECT_EQ(setup.lblOutputFile.Caption, (start / "out.tre").string());
  EXPECT_EQ(Run().TemplateFilePath, (home / "Work" / "Sample.cnv").string());
  EXPECT_TRUE(Run().UseTemplate);
  EXPECT_EQ(setup.cmbTemplate.Text, "Sample");
  EXPECT_EQ(setup.chkTranslateFile.Value, 1);
  EXPECT_EQ(setup.chkEditStandListFile.Value, 0);
  EXPECT_TRUE(Run().InputFileValid);
  EXPECT_TRUE(Run().OutputFileValid);
}

TEST_F(StartSequence, AbsolutePathsOnTheCommandLineStayAsGiven) {
  SetCommandLine((start / "trees.csv").string() + " /tmp/out.tre Sample");
  Start();
  EXPECT_EQ(App().Template().lblInputFile.Caption, (start / "trees.csv").string());
  EXPECT_EQ(App().Template().lblOutputFile.Caption, "/tmp/out.tre");
}

TEST_F(StartSequence, TemplateFieldMayHoldBlanks) {
  WriteFile(home / "Work" / "Two Words.cnv", "[FORMAT_INFO]\r\n");
  SetCommandLine("trees.csv out.tre Two Words");
  Start();
  EXPECT_EQ(Run().TemplateFilePath, (home / "Work" / "Two Words.cnv").string());
}

TEST_F(StartSequence, TwoFieldsWithATrailingBlankGiveTheTemplateMessage) {
  SetCommandLine("trees.csv out.tre ");
  Start();
  EXPECT_EQ(Result(), "Invalid template file path\\name: \r\n");
}

TEST_F(StartSequence, EmptyInputFieldGivesTheInputMessage) {
  SetCommandLine(" out.tre Sample");
  Start();
  EXPECT_EQ(Result(), "Invalid input file path\\name: \r\n");
}

TEST_F(StartSequence, EmptyOutputFieldGivesTheOutputMessage) {
  SetCommandLine("trees.csv  Sample");
  Start();
  EXPECT_EQ(Result(), "Invalid output file path\\name: \r\n");
}

TEST_F(StartSequence, CommandLineWithOneBlankOnlyShowsTheLoadBoxAndGoesOn) {
  SetCommandLine("trees.csv out.tre");
  EXPECT_EQ(Start(), -1);
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[5] Invalid procedure call or argument");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(App().Template().lblInputFile.Caption, (start / "trees.csv").string());
  EXPECT_EQ(App().Template().lblOutputFile.Caption, "");
  EXPECT_TRUE(continued);
  EXPECT_FALSE(ResultExists());
}

TEST_F(StartSequence, CommandLineWithoutABlankShowsTheLoadBoxAndGoesOn) {
  SetCommandLine("trees.csv");
  Start();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[5] Invalid procedure call or argument");
  EXPECT_EQ(App().Template().lblInputFile.Caption, "");
  EXPECT_TRUE(continued);
}

TEST_F(StartSequence, TemplateNameInAnotherCaseIsNotFound) {
  SetCommandLine("trees.csv out.tre sample");
  EXPECT_EQ(Start(), 1);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_FALSE(continued);
}

TEST_F(StartSequence, UnknownTemplateNameEndsTheRunAndSaysWhyOnStandardError) {
  SetCommandLine("trees.csv out.tre Nope");
  const Started run = StartCatchingErrors();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.errors, "Invalid Template Name specified: Nope\n");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(StartSequence, InputFileThatCannotBeOpenedEndsTheRun) {
  SetCommandLine("missing.csv out.tre Sample");
  EXPECT_EQ(StartCatchingErrors().errors, "Can't open input file.\n");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(StartSequence, InputAndOutputAlikeEndTheRun) {
  SetCommandLine("trees.csv trees.csv Sample");
  EXPECT_EQ(StartCatchingErrors().errors, "Input and output cannot be the same file.\n");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(StartSequence, BatchRunDoesNotReadTheSetupScreensSettings) {
  SaveSetting("Orvanta", "Corvalin", "EditStandListFile", "YES");
  SaveSetting("Orvanta", "Corvalin", "DefaultTemplateFile", "Other");
  SaveSetting("Orvanta", "Corvalin", "DefaultInputFileExtension", "Mine (*.m)|*.m");
  SetCommandLine("trees.csv out.tre Sample");
  Start();
  EXPECT_EQ(App().Template().chkEditStandListFile.Value, 0);
  EXPECT_EQ(App().Template().cmbTemplate.Text, "Sample");
  EXPECT_EQ(Run().DefaultInputFileExtension, "");
}

}  // namespace
}  // namespace corvalin
