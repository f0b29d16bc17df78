// The built program, run unattended in a temporary HOME without a display.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "TestSupport.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::WriteFile;

class StartupEndToEnd : public ::testing::Test {
 protected:
  void SetUp() override {
    root = fs::temp_directory_path() / ("corvalin-e2e-" + std::to_string(::getpid()) + "-" +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(root);
    for (const char* folder : {"Data", "Work", "run", ".config/Orvanta"}) fs::create_directories(root / folder);
    WriteFile(root / ".config" / "Orvanta" / "Orvanta.ini",
              "[Common]\r\nDataDir=" + (root / "Data").string() + "/\r\nWorkDir=" + (root / "Work").string() +
                  "/\r\n");
    WriteFile(root / "run" / "trees.csv", "1,1,DF,25.4\r\n");
    WriteFile(root / "Work" / "Sample.cnv", "[FORMAT_INFO]\r\n");
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(root, ec);
  }

  // Runs corvalin with these arguments (already quoted for the shell) from
  // the run folder; gives the exit status.
  int Corvalin(const std::string& arguments) {
    const std::string program = (testing::BinaryDir() / "bin" / "corvalin").string();
    const std::string command = "cd '" + (root / "run").string() + "' && env -u DISPLAY -u WAYLAND_DISPLAY HOME='" +
                                root.string() + "' XDG_CONFIG_HOME='" + (root / ".config").string() + "' '" +
                                program + "' " + arguments + " 2>'" + (root / "stderr.txt").string() + "'";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Result() const { return ReadFile(root / "Work" / "result.txt"); }

  fs::path root;
};

TEST_F(StartupEndToEnd, UnknownTemplateNameWritesUntrappedErrorAndFails) {
  const int status = Corvalin("trees.csv out.tre Nope");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(status, 0);
  EXPECT_EQ(ReadFile(root / "stderr.txt"), "Invalid Template Name specified: Nope\n");
}

TEST_F(StartupEndToEnd, TemplateNameInAnotherCaseIsUnknown) {
  EXPECT_NE(Corvalin("trees.csv out.tre sample"), 0);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(StartupEndToEnd, EmptyTemplateFieldWritesTheTemplateMessage) {
  // Two fields and a trailing blank: "trees.csv out.tre ".
  EXPECT_NE(Corvalin("trees.csv out.tre ''"), 0);
  EXPECT_EQ(Result(), "Invalid template file path\\name: \r\n");
}

TEST_F(StartupEndToEnd, EmptyInputFieldWritesTheInputMessage) {
  EXPECT_NE(Corvalin("'' out.tre Sample"), 0);
  EXPECT_EQ(Result(), "Invalid input file path\\name: \r\n");
}

TEST_F(StartupEndToEnd, EmptyOutputFieldWritesTheOutputMessage) {
  EXPECT_NE(Corvalin("trees.csv '' Sample"), 0);
  EXPECT_EQ(Result(), "Invalid output file path\\name: \r\n");
}

TEST_F(StartupEndToEnd, MissingInputFileWritesUntrappedError) {
  EXPECT_NE(Corvalin("missing.csv out.tre Sample"), 0);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(ReadFile(root / "stderr.txt"), "Can't open input file.\n");
}

TEST_F(StartupEndToEnd, UnsetFoldersWithoutADisplayTakeTheDefaultPlacesWithTheInstalledTemplates) {
  fs::remove(root / ".config" / "Orvanta" / "Orvanta.ini");
  // Nobody answers the two folder questions: their default button, Yes, sets
  // up the default folders, and the new Work folder holds the installed
  // templates, not the one of the old Work folder.
  EXPECT_NE(Corvalin("trees.csv out.tre Sample"), 0);
  const fs::path work = root / "Documents" / "Orvanta" / "Work";
  EXPECT_TRUE(fs::is_directory(root / "Documents" / "Orvanta" / "Data"));
  EXPECT_TRUE(fs::exists(work / "lolo.cnv"));
  EXPECT_EQ(ReadFile(work / "result.txt"), "Untrapped error.\r\n");
  const std::string errors = ReadFile(root / "stderr.txt");
  EXPECT_EQ(errors,
            "Your Data folder needs to be set up.  Choose Yes to use the following default location, or No to "
            "choose a custom folder.\r\n\r\n" +
                (root / "Documents" / "Orvanta" / "Data").string() +
                "/\nYour Work folder needs to be set up.  Choose Yes to use the following default location, or No "
                "to choose a custom folder.\r\n\r\n" +
                work.string() + "/\nInvalid Template Name specified: Sample\n");
}

}  // namespace
}  // namespace corvalin
