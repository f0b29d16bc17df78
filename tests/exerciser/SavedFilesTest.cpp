// The exerciser's check of the Work folder's files: what it takes as a whole
// file and what it reports, with the texts a finding prints.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "SavedFiles.h"

namespace corvalin::exerciser {
namespace {

namespace fs = std::filesystem;

const char* const kTemplate =
    "[COLUMN_DELIMITERS]\r\nFixedWidth=NO\r\nComma=YES\r\nTab=NO\r\nSemicolon=NO\r\nSpace=NO\r\nOther=NO\r\n"
    "OtherChars=\r\nTreatConsecutiveAsOne=NO\r\nTextQualifier=None\r\n[TEMPLATE_COMMANDS]\r\nNumberOfCommands=0\r\n";
const char* const kStands = "A st1 trees\\st1.tre WithPointData bc @\r\nC st1 thin1 @\r\n";

class SavedFilesCheck : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = fs::temp_directory_path() / ("corvalin-savedfiles-" + std::to_string(::getpid()) + "-" +
                                          ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder);
    fs::create_directories(folder / "work");
    fs::create_directories(folder / "installed");
    Write("work/lolo.cnv", kTemplate);
    Write("work/stands.slf", kStands);
    Write("installed/lolo.cnv", std::string(kTemplate) + "OrvanVariant=NI\r\n");
  }
  void TearDown() override { fs::remove_all(folder); }

  void Write(const std::string& name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }
  std::string Path(const std::string& name) const { return (folder / name).string(); }
  SavedFiles Files() const { return SavedFiles({Path("work/lolo.cnv"), Path("work/stands.slf")}, Path("installed")); }

  fs::path folder;
};

TEST_F(SavedFilesCheck, FilesAsTheyWereAreWhole) {
  SavedFiles files = Files();
  EXPECT_EQ(files.Check(false, Removal::None), "");
}

TEST_F(SavedFilesCheck, AChangeOutsideASaveIsAFinding) {
  SavedFiles files = Files();
  Write("work/stands.slf", "A st1 @\r\n");
  EXPECT_EQ(files.Check(false, Removal::None), "stands.slf changed outside a save (55 bytes before, 9 now)");
}

TEST_F(SavedFilesCheck, AWholeListWrittenByASaveBecomesTheOneToKeep) {
  SavedFiles files = Files();
  Write("work/stands.slf", "A st1 @\r\n");
  EXPECT_EQ(files.Check(true, Removal::None), "");
  EXPECT_EQ(files.Check(false, Removal::None), "");
}

TEST_F(SavedFilesCheck, AListCutInItsLastLineIsNotWhole) {
  SavedFiles files = Files();
  Write("work/stands.slf", "A st1 @\r\nC st");
  EXPECT_EQ(files.Check(true, Removal::None),
            "stands.slf is not a whole file after a save: its last line has no line end");
}

TEST_F(SavedFilesCheck, AnEmptiedTemplateIsNotWhole) {
  SavedFiles files = Files();
  Write("work/lolo.cnv", "");
  EXPECT_EQ(files.Check(true, Removal::None), "lolo.cnv is not a whole file after a save: it is empty");
}

TEST_F(SavedFilesCheck, ATemplateCutInASectionHeadingIsNotWhole) {
  SavedFiles files = Files();
  Write("work/lolo.cnv", "[COLUMN_DELIMITERS]\r\nComma=YES\r\n[TEMPLATE_COMM\r\n");
  EXPECT_EQ(files.Check(true, Removal::None),
            "lolo.cnv is not a whole file after a save: a section heading is cut: [TEMPLATE_COMM");
}

TEST_F(SavedFilesCheck, LinesInATemplateAreAFindingUnlessItIsNamedAsAListFile) {
  const std::string lines = "A \"South\" @ /x/stands.slf @ @\r\n";
  {
    SavedFiles files = Files();
    Write("work/lolo.cnv", lines);
    EXPECT_EQ(files.Check(true, Removal::None),
              "lolo.cnv is not a whole file after a save: a line is neither a section nor a key: "
              "A \"South\" @ /x/stands.slf @ @");
  }
  Write("work/lolo.cnv", kTemplate);
  SavedFiles files = Files();
  Write("work/lolo.cnv", lines);
  EXPECT_EQ(files.Check(true, Removal::None, {Path("work/lolo.cnv")}), "");
}

TEST_F(SavedFilesCheck, ATemplateSavedOverLinesItHeldBeforeKeepsThem) {
  const std::string line = "A \"South\" @ /x/stands.slf @ @\r\n";
  Write("work/lolo.cnv", line);
  SavedFiles files = Files();
  Write("work/lolo.cnv", line + kTemplate);
  EXPECT_EQ(files.Check(true, Removal::None), "");
  Write("work/lolo.cnv", line + "B new line\r\n" + kTemplate);
  EXPECT_EQ(files.Check(true, Removal::None),
            "lolo.cnv is not a whole file after a save: a line is neither a section nor a key: B new line");
}

TEST_F(SavedFilesCheck, DeleteOnTheFirstScreenMayRemoveTheTemplateOnly) {
  SavedFiles files = Files();
  fs::remove(folder / "work/lolo.cnv");
  EXPECT_EQ(files.Check(false, Removal::Template), "");
  fs::remove(folder / "work/stands.slf");
  EXPECT_EQ(files.Check(false, Removal::Template), "stands.slf went missing outside a save");
}

TEST_F(SavedFilesCheck, TheInstalledSampleCopiedBackIsWhole) {
  SavedFiles files = Files();
  std::ifstream installed(folder / "installed/lolo.cnv", std::ios::binary);
  Write("work/lolo.cnv", std::string(std::istreambuf_iterator<char>(installed), std::istreambuf_iterator<char>()));
  EXPECT_EQ(files.Check(false, Removal::None), "");
}

}  // namespace
}  // namespace corvalin::exerciser
