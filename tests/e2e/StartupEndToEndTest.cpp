// The built program, run unattended in a temporary HOME without a display.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TestSupport.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::WriteFile;

// Runs start from a folder of their own, so that the input file is found by
// a name relative to it.
class StartupEndToEnd : public testing::UnattendedRun {
 protected:
  void SetUp() override {
    UnattendedRun::SetUp();
    fs::create_directories(home / "run");
    WriteFile(home / "run" / "trees.csv", "1,1,DF,25.4\r\n");
    WriteFile(home / "Work" / "Sample.cnv", "[FORMAT_INFO]\r\n");
  }

  // Runs corvalin with these arguments from the run folder; gives the exit
  // status.
  int Corvalin(const std::vector<std::string>& arguments) {
    return testing::RunCorvalin(home, arguments, home / "run").status;
  }
};

TEST_F(StartupEndToEnd, TheWizardWithoutADisplaySaysWhyAndEnds) {
  const testing::ProgramRun run = testing::RunCorvalin(home, {}, home / "run");
  EXPECT_EQ(run.status, 1);
#if CORVALIN_BUILT_WITH_DESKTOP
  EXPECT_EQ(run.errors,
            "corvalin: the wizard needs a display (DISPLAY or WAYLAND_DISPLAY is not set); "
            "give input, output and template to run unattended\n");
#else
  EXPECT_EQ(run.errors, "corvalin: this build has no desktop; give input, output and template to run unattended\n");
#endif
  EXPECT_FALSE(ResultWritten());
}

TEST_F(StartupEndToEnd, HelpAndVersionAnswerOnStandardOutputAndTouchNothing) {
  fs::remove_all(home / ".config");
  const testing::ProgramRun help = testing::RunCorvalin(home, {"--help"}, home / "run");
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.errors, "");
  EXPECT_EQ(help.output.substr(0, help.output.find('\n')),
            "Usage: corvalin                           start the wizard (needs a display)");
  EXPECT_NE(help.output.find("corvalin INPUT OUTPUT TEMPLATE"), std::string::npos);
  EXPECT_NE(help.output.find("result.txt"), std::string::npos);
  // The last line points to the manual page the package installs.
  const std::string manualLine = "\n\nThe manual page tells more: man corvalin\n";
  ASSERT_GT(help.output.size(), manualLine.size());
  EXPECT_EQ(help.output.substr(help.output.size() - manualLine.size()), manualLine);
  const testing::ProgramRun version = testing::RunCorvalin(home, {"--version"}, home / "run");
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output, "corvalin 1.0.0\n");
  // Neither read nor wrote the settings or the Work folder.
  EXPECT_FALSE(fs::exists(home / ".config"));
  EXPECT_FALSE(ResultWritten());
}

TEST_F(StartupEndToEnd, AFileNamedLikeAnOptionIsReachedByItsPath) {
  fs::copy_file(home / "run" / "trees.csv", home / "run" / "--help");
  // Three fields are a run, and the input's path its name: the run reads
  // it (the template lacks what a translation needs, so it fails there).
  EXPECT_NE(Corvalin({"./--help", "out.tre", "Sample"}), 0);
  EXPECT_TRUE(ResultWritten());
  EXPECT_NE(Result(), "Invalid input file path\\name: \r\n");
}

TEST_F(StartupEndToEnd, UnknownTemplateNameWritesUntrappedErrorAndFails) {
  const int status = Corvalin({"trees.csv", "out.tre", "Nope"});
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_NE(status, 0);
  EXPECT_EQ(ReadFile(home / "stderr.txt"), "Invalid Template Name specified: Nope\n");
}

TEST_F(StartupEndToEnd, TemplateNameInAnotherCaseIsUnknown) {
  EXPECT_NE(Corvalin({"trees.csv", "out.tre", "sample"}), 0);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

// An empty field among the three stops the run with a result naming it.
TEST_F(StartupEndToEnd, EachEmptyFieldWritesItsOwnMessage) {
  const struct {
    std::vector<std::string> arguments;
    std::string result;
  } cases[] = {
      {{"", "out.tre", "Sample"}, "Invalid input file path\\name: \r\n"},
      {{"trees.csv", "", "Sample"}, "Invalid output file path\\name: \r\n"},
      // Two fields and a trailing blank: "trees.csv out.tre ".
      {{"trees.csv", "out.tre", ""}, "Invalid template file path\\name: \r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.result);
    fs::remove(home / "Work" / "result.txt");
    const testing::ProgramRun run = testing::RunCorvalin(home, c.arguments, home / "run");
    EXPECT_NE(run.status, 0);
    EXPECT_EQ(Result(), c.result);
    // The result file alone says which field, and no tree list is begun.
    EXPECT_EQ(run.errors, "");
    EXPECT_FALSE(fs::exists(home / "run" / "out.tre"));
  }
}

TEST_F(StartupEndToEnd, MissingInputFileWritesUntrappedError) {
  EXPECT_EQ(Corvalin({"missing.csv", "out.tre", "Sample"}), 1);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(ReadFile(home / "stderr.txt"), "Can't open input file.\n");
  EXPECT_FALSE(fs::exists(home / "run" / "out.tre"));
}

TEST_F(StartupEndToEnd, UnsetFoldersWithoutADisplayTakeTheDefaultPlacesWithTheInstalledTemplates) {
  fs::remove(home / ".config" / "Orvanta" / "Orvanta.ini");
  // Nobody answers the two folder questions: their default button, Yes, sets
  // up the default folders, and the new Work folder holds the installed
  // templates, not the one of the old Work folder.
  EXPECT_NE(Corvalin({"trees.csv", "out.tre", "Sample"}), 0);
  const fs::path work = home / "Documents" / "Orvanta" / "Work";
  EXPECT_TRUE(fs::is_directory(home / "Documents" / "Orvanta" / "Data"));
  EXPECT_TRUE(fs::exists(work / "lolo.cnv"));
  EXPECT_EQ(ReadFile(work / "result.txt"), "Untrapped error.\r\n");
  const std::string errors = ReadFile(home / "stderr.txt");
  EXPECT_EQ(errors,
            "Your Data folder needs to be set up.  Choose Yes to use the following default location, or No to "
            "choose a custom folder.\r\n\r\n" +
                (home / "Documents" / "Orvanta" / "Data").string() +
                "/\nYour Work folder needs to be set up.  Choose Yes to use the following default location, or No "
                "to choose a custom folder.\r\n\r\n" +
                work.string() + "/\nInvalid Template Name specified: Sample\n");
}

// Folders named in the settings without a leading "/" are taken from the
// user's home, as a path typed there would be, not from the program's folder.
TEST_F(StartupEndToEnd, RelativeFoldersInTheSettingsAreTakenFromTheHome) {
  fs::create_directories(home / "forest" / "Data");
  fs::create_directories(home / "forest" / "Work");
  WriteFile(home / "forest" / "Work" / "Sample.cnv", "[FORMAT_INFO]\r\n");
  WriteFile(home / ".config" / "Orvanta" / "Orvanta.ini", "[Common]\r\nDataDir=forest/Data/\r\nWorkDir=forest/Work/\r\n");
  EXPECT_EQ(Corvalin({"trees.csv", "out.tre", "Nope"}), 1);
  // No folder question was asked: the template list is that of forest/Work.
  EXPECT_EQ(ReadFile(home / "stderr.txt"), "Invalid Template Name specified: Nope\n");
  EXPECT_EQ(ReadFile(home / "forest" / "Work" / "result.txt"), "Untrapped error.\r\n");
}

}  // namespace
}  // namespace corvalin
