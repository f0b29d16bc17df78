// An output that is a file the run reads or writes is refused before
// anything is written: the input under any name, the template, the result
// file, the working table and the settings file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "ProgramRun.h"
#include "TestSupport.h"
#include "TreeListRun.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ProgramRun;
using testing::ReadFile;
using testing::WriteFile;

const std::string kTrees = "1,1,1,DF,25.4\r\n1,2,1,DF,30\r\n";

class SameFile : public testing::TreeListRun {
 protected:
  // Runs "in.csv <output> trees" from the run folder on kTrees and expects
  // it refused with this reason, the input as it was.
  void ExpectRefused(const std::string& output, const std::string& reason) {
    const ProgramRun run = Translate(kTrees, output);
    EXPECT_EQ(run.errors, reason + "\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(ReadFile(home / "run" / "in.csv"), kTrees);
  }
};

TEST_F(SameFile, InputNamedFromItsFolderIsTheSameFile) {
  ExpectRefused("./in.csv", "Input and output cannot be the same file.");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(SameFile, InputNamedThroughItsParentIsTheSameFile) {
  ExpectRefused("../run/in.csv", "Input and output cannot be the same file.");
}

TEST_F(SameFile, SymbolicLinkToTheInputIsTheSameFile) {
  fs::create_symlink("in.csv", home / "run" / "link.tre");
  ExpectRefused("link.tre", "Input and output cannot be the same file.");
  EXPECT_TRUE(fs::is_symlink(home / "run" / "link.tre"));
}

TEST_F(SameFile, HardLinkToTheInputIsTheSameFile) {
  WriteFile(home / "run" / "in.csv", kTrees);
  fs::create_hard_link(home / "run" / "in.csv", home / "run" / "hard.tre");
  ExpectRefused("hard.tre", "Input and output cannot be the same file.");
}

// A folder that is a symbolic link to the input's folder: the output does
// not exist under that name, but it is the input.
TEST_F(SameFile, InputThroughALinkedFolderIsTheSameFile) {
  fs::create_directory_symlink(home / "run", home / "alias");
  ExpectRefused((home / "alias" / "in.csv").string(), "Input and output cannot be the same file.");
}

TEST_F(SameFile, TemplateIsRefusedAsOutput) {
  const std::string before = ReadFile(home / "Work" / "trees.cnv");
  ExpectRefused((home / "Work" / "trees.cnv").string(), "Output cannot be the template file.");
  EXPECT_EQ(ReadFile(home / "Work" / "trees.cnv"), before);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(SameFile, ResultFileIsRefusedAsOutput) {
  ExpectRefused("../Work/result.txt", "Output cannot be the result file.");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
}

TEST_F(SameFile, WorkingTableIsRefusedAsOutput) {
  WriteFile(home / "Data" / "TFT.mdb", "the wizard's working table");
  ExpectRefused((home / "Data" / "TFT.mdb").string(), "Output cannot be the working table.");
  EXPECT_EQ(ReadFile(home / "Data" / "TFT.mdb"), "the wizard's working table");
}

TEST_F(SameFile, SettingsFileIsRefusedAsOutput) {
  const fs::path settings = home / ".config" / "Orvanta" / "Orvanta.ini";
  const std::string before = ReadFile(settings);
  ExpectRefused(settings.string(), "Output cannot be the settings file.");
  EXPECT_EQ(ReadFile(settings), before);
}

// Another file of the same name in another folder is another file.
TEST_F(SameFile, FileOfTheSameNameElsewhereIsTranslated) {
  fs::create_directories(home / "run" / "out");
  const ProgramRun run = Translate(kTrees, "out/in.csv");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(ReadFile(home / "run" / "out" / "in.csv"), Record(1, 1, "DF", 254) + Record(1, 2, "DF", 300));
}

}  // namespace
}  // namespace corvalin
