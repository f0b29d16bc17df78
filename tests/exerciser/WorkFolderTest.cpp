// The Work folder the exerciser starts every run from: the sample template,
// the template made for the rarer dialogs, a stand list and a location file,
// each as the program reads it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Inputs.h"
#include "TestSupport.h"
#include "shell/ProfileFile.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"

namespace corvalin::exerciser {
namespace {

namespace fs = std::filesystem;

class ExerciserWorkFolder : public corvalin::testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    work = (home / "exercised-work").string();
    SeedWorkFolder(work, CORVALIN_SOURCE_DIR "/data/Work");
  }
  std::string work;
};

TEST_F(ExerciserWorkFolder, HoldsTheFilesTheCheckWatches) {
  EXPECT_EQ(WatchedFiles(work), (std::vector<std::string>{work + "/lolo.cnv", work + "/mixed.cnv", work + "/stands.slf",
                                                          work + "/places.loc"}));
  for (const std::string& path : WatchedFiles(work)) EXPECT_TRUE(fs::exists(path)) << path;
}

TEST_F(ExerciserWorkFolder, TheMixedTemplateHasADamageColumnAndARangeAndAStartingWithCommandFirst) {
  const std::string mixed = work + "/mixed.cnv";
  EXPECT_EQ(ReadProfileString(mixed, "FORMAT_INFO", "ColumnHeader8", ""), "Damage/Severity - 1");
  EXPECT_EQ(ReadProfileString(mixed, "FORMAT_INFO", "ColumnHeader7", ""), "Total Height");
  ReadTemplateCommands(mixed);
  ASSERT_EQ(Commands().CommandCount, 41);
  const TemplateCommand range = TemplateCommandAt(1);
  EXPECT_EQ(range.CommandType, "EXCLUDE_RANGE");
  EXPECT_EQ(range.StartLine, 5);
  EXPECT_EQ(range.EndLine, 9);
  const TemplateCommand starting = TemplateCommandAt(2);
  EXPECT_EQ(starting.CommandType, "EXCLUDE_STARTING_WITH");
  EXPECT_EQ(starting.DeleteString, "1");
  // The sample's own commands follow, renumbered: its first is the third.
  ReadTemplateCommands(work + "/lolo.cnv");
  ASSERT_EQ(Commands().CommandCount, 39);
  const TemplateCommand sampleFirst = TemplateCommandAt(1);
  const TemplateCommand sampleLast = TemplateCommandAt(39);
  ReadTemplateCommands(mixed);
  EXPECT_EQ(TemplateCommandAt(3).CommandType, sampleFirst.CommandType);
  EXPECT_EQ(TemplateCommandAt(3).DeleteString, sampleFirst.DeleteString);
  EXPECT_EQ(TemplateCommandAt(41).FindString, sampleLast.FindString);
  EXPECT_EQ(TemplateCommandAt(41).ReplacementString, sampleLast.ReplacementString);
}

TEST_F(ExerciserWorkFolder, TheSurveyInputIsACopyInTheRunsFolder) {
  const std::string survey = CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv";
  const std::string input = MakeInput("survey", home.string(), survey);
  EXPECT_EQ(input, home.string() + "/tree.csv");
  EXPECT_EQ(fs::file_size(input), fs::file_size(survey));
}

}  // namespace
}  // namespace corvalin::exerciser
