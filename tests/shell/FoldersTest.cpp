// The Data and Work folders at the first start: the questions, the folder
// dialog, the copy of the installation files and the settings.
#include <gtest/gtest.h>

#include <filesystem>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/Folders.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::FreshProcess;
using testing::ReadFile;
using testing::WriteFile;

class Folders : public FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    install = home / "install";
    fs::create_directories(install / "Data");
    fs::create_directories(install / "Work");
    WriteFile(install / "Data" / "species.dat", "species");
    WriteFile(install / "Work" / "Sample.cnv", "[FORMAT_INFO]\r\n");
    WriteFile(install / "Work" / "Another.cnv", "[FORMAT_INFO]\r\n");
    Run().InstallFolder = install.string() + "/";
    documents = home.string() + "/Documents/";
  }
  fs::path install;
  std::string documents;
};

std::string DataQuestion(const std::string& path) {
  return "Your Data folder needs to be set up.  Choose Yes to use the following default location, or No to "
         "choose a custom folder.\r\n\r\n" +
         path;
}

TEST_F(Folders, DocumentsFolderIsHomeDocumentsWithoutUserDirs) {
  std::string path;
  EXPECT_EQ(GetSpecialFolderPath(SpecialFolderDocuments, path), HResultOk);
  EXPECT_EQ(path, documents);
}

TEST_F(Folders, DocumentsFolderComesFromTheUserDirsFile) {
  fs::create_directories(home / ".config");
  WriteFile(home / ".config" / "user-dirs.dirs", "# comment\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  std::string path;
  GetSpecialFolderPath(SpecialFolderDocuments, path);
  EXPECT_EQ(path, home.string() + "/Dokumente/");
}

TEST_F(Folders, RelativeFolderOfTheSettingsIsTakenFromTheHome) {
  EXPECT_EQ(FolderOfSetting("forest/Data/"), home.string() + "/forest/Data/");
  EXPECT_EQ(FolderOfSetting("/srv/Data/"), "/srv/Data/");
  EXPECT_EQ(FolderOfSetting(""), "");
}

TEST_F(Folders, UnknownSpecialFolderFails) {
  std::string path = "x";
  EXPECT_EQ(GetSpecialFolderPath(26, path), HResultFail);
  EXPECT_EQ(path, "");
}

TEST_F(Folders, ProposalCreatesNothing) {
  EXPECT_EQ(GetDataFolderPath(false), documents + "Orvanta/Data/");
  EXPECT_EQ(GetWorkFolderPath(false), documents + "Orvanta/Work/");
  EXPECT_FALSE(fs::exists(home / "Documents"));
}

TEST_F(Folders, MissingDocumentsFolderWithoutCreateIsAFailedStatus) {
  std::string path;
  EXPECT_EQ(GetMyDocumentsFolderPath("", "Orvanta", false, path), HResultFail);
  fs::create_directories(home / "Documents");
  EXPECT_EQ(GetMyDocumentsFolderPath("", "Orvanta", false, path), HResultOk);
  EXPECT_EQ(path, documents + "Orvanta/");
}

TEST_F(Folders, CreateMakesCompanyAndProductFolders) {
  std::string path;
  EXPECT_EQ(GetMyDocumentsFolderPath("Kelmar", "Orvanta", true, path), HResultOk);
  EXPECT_EQ(path, documents + "Kelmar/Orvanta/");
  EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(Folders, FirstStartWithYesCreatesTheFolderAndCopiesWithoutAQuestion) {
  std::string folder;
  ui.answers = {Answer::Yes};
  EXPECT_TRUE(LocateDataFolder(folder));
  EXPECT_EQ(folder, documents + "Orvanta/Data/");
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, DataQuestion(documents + "Orvanta/Data/"));
  EXPECT_EQ(ui.boxes[0].title, "Orvanta - Corvalin - Data Folder");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.boxes[0].icon, Icon::Question);
  EXPECT_EQ(ReadFile(folder + "species.dat"), "species");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", ""), folder);
}

TEST_F(Folders, WorkFolderQuestionHasItsOwnWordsAndBringsTheSampleTemplates) {
  std::string folder;
  ui.answers = {Answer::Yes};
  EXPECT_TRUE(LocateWorkFolder(folder));
  EXPECT_EQ(folder, documents + "Orvanta/Work/");
  EXPECT_EQ(ui.boxes[0].text,
            "Your Work folder needs to be set up.  Choose Yes to use the following default location, or No to "
            "choose a custom folder.\r\n\r\n" +
                folder);
  EXPECT_EQ(ui.boxes[0].title, "Orvanta - Corvalin - Work Folder");
  EXPECT_TRUE(fs::exists(folder + "Sample.cnv"));
  EXPECT_TRUE(fs::exists(folder + "Another.cnv"));
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", ""), folder);
}

TEST_F(Folders, OldKeyOfTheSiblingProgramIsRemoved) {
  SaveSetting("Orvanta", "Brenwick", "DataDir", "/old/");
  SaveSetting("Orvanta", "Brenwick", "HelpDir", "/help.html");
  std::string folder;
  ui.answers = {Answer::Yes};
  LocateDataFolder(folder);
  EXPECT_EQ(GetSetting("Orvanta", "Brenwick", "DataDir", "gone"), "gone");
  EXPECT_EQ(GetSetting("Orvanta", "Brenwick", "HelpDir", ""), "/help.html");
}

TEST_F(Folders, SecondInstallationAsksAboutEachFileAlreadyThere) {
  fs::create_directories(home / "Documents" / "Orvanta" / "Work");
  WriteFile(home / "Documents" / "Orvanta" / "Work" / "Another.cnv", "mine");
  WriteFile(home / "Documents" / "Orvanta" / "Work" / "Sample.cnv", "mine too");
  std::string folder;
  ui.answers = {Answer::Yes, Answer::No, Answer::Yes};
  EXPECT_TRUE(LocateWorkFolder(folder));
  ASSERT_EQ(ui.boxes.size(), 3u);
  EXPECT_EQ(ui.boxes[1].text,
            "The following file already exists.  Overwrite with the original installation file?\r\n\r\n" +
                folder + "Another.cnv");
  EXPECT_EQ(ui.boxes[1].title, "Orvanta - Corvalin - Copy Work Files");
  EXPECT_EQ(ui.boxes[1].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.boxes[1].icon, Icon::Question);
  EXPECT_EQ(ui.boxes[1].defaultButton, 2);
  EXPECT_EQ(ReadFile(folder + "Another.cnv"), "mine");
  EXPECT_EQ(ReadFile(folder + "Sample.cnv"), "[FORMAT_INFO]\r\n");
}

TEST_F(Folders, CopiedFilesAreWritableEvenFromReadOnlySources) {
  fs::permissions(install / "Data" / "species.dat", fs::perms::owner_read, fs::perm_options::replace);
  const fs::path target = home / "target";
  fs::create_directories(target);
  EXPECT_EQ(CopyInstallationFiles((install / "Data").string() + "/", target.string() + "/", true, "Copy Data Files"), 1);
  EXPECT_NE(fs::status(target / "species.dat").permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(Folders, CopyCountsEveryFileHandledAndSkipsSubfolders) {
  fs::create_directories(install / "Work" / "sub");
  WriteFile(install / "Work" / "sub" / "deep.cnv", "x");
  const fs::path target = home / "target";
  fs::create_directories(target);
  WriteFile(target / "Another.cnv", "mine");
  ui.answers = {Answer::No};
  EXPECT_EQ(CopyInstallationFiles((install / "Work").string() + "/", target.string() + "/", true, "Copy Work Files"), 2);
  EXPECT_FALSE(fs::exists(target / "sub"));
}

TEST_F(Folders, CopyWithoutAskingOverwrites) {
  const fs::path target = home / "target";
  fs::create_directories(target);
  WriteFile(target / "species.dat", "mine");
  CopyInstallationFiles((install / "Data").string() + "/", target.string() + "/", false, "Copy Data Files");
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(ReadFile(target / "species.dat"), "species");
}

TEST_F(Folders, NoThenCancelThenRetryBringsTheFolderDialogBack) {
  const fs::path custom = home / "custom";
  fs::create_directories(custom);
  ui.answers = {Answer::No, Answer::Retry};
  ui.folders = {"", custom.string()};
  std::string folder;
  EXPECT_TRUE(LocateDataFolder(folder));
  EXPECT_EQ(folder, custom.string() + "/");
  ASSERT_EQ(ui.folderTitles.size(), 2u);
  EXPECT_EQ(ui.folderTitles[0], "Orvanta - Corvalin - Choose the Data Folder");
  ASSERT_EQ(ui.boxes.size(), 2u);
  EXPECT_EQ(ui.boxes[1].text,
            "The Data folder is required to successfully run Orvanta - Corvalin.  Do you want to try again?");
  EXPECT_EQ(ui.boxes[1].buttons, Buttons::RetryCancel);
  EXPECT_EQ(ui.boxes[1].icon, Icon::Question);
  EXPECT_EQ(ui.boxes[1].title, "Orvanta - Corvalin - Data Folder");
  EXPECT_EQ(ReadFile(custom / "species.dat"), "species");
}

TEST_F(Folders, CancelInTheRetryBoxGivesUpAndLeavesTheFolder) {
  ui.answers = {Answer::No, Answer::Cancel};
  std::string folder = "/was/";
  EXPECT_FALSE(LocateWorkFolder(folder));
  EXPECT_EQ(folder, "/was/");
  EXPECT_EQ(ui.boxes[1].text,
            "The Work folder is required to successfully run Orvanta - Corvalin.  Do you want to try again?");
  EXPECT_EQ(ui.folderTitles[0], "Orvanta - Corvalin - Choose the Work Folder");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", "unset"), "unset");
}

TEST_F(Folders, MissingInstallationFolderIsAnErrorWithTheTrail) {
  Run().InstallFolder = (home / "nowhere").string() + "/";
  ui.answers = {Answer::Yes};
  std::string folder;
  try {
    LocateWorkFolder(folder);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 76);
    EXPECT_EQ(e.source(), "KelmarUtil.LocateWorkFolder(), CopyInstallationFiles");
  }
  // The folder was chosen before the copy failed; nothing was saved.
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", "unset"), "unset");
}

TEST_F(Folders, FolderThatCannotBeMadeCarriesBothPathRoutinesInItsTrail) {
  WriteFile(home / "Documents", "a file where the folder should be");
  std::string path;
  try {
    GetMyDocumentsFolderPath("", "Orvanta", true, path);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.source(), "CreateFolder,AppUtil.GetCompanyProductFolderPath(),AppUtil.GetMyDocumentsFolderPath()");
  }
}

}  // namespace
}  // namespace corvalin
