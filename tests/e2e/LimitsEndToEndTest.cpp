// The limits of the product where a whole unattended run meets them: 30
// columns, 100 commands and 100 characters a cell. (32,767 lines and records:
// BadInputEndToEndTest; 29 markers cannot be reached by an unattended run,
// whose template brings no markers, and are tested at the splitter and the
// column format screen.)
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TemplateText.h"
#include "TreeListRun.h"

namespace corvalin {
namespace {

using testing::ColumnAssignment;
using testing::CommandKeys;
using testing::FiveColumns;
using testing::ProgramRun;
using testing::TemplateText;

class Limits : public testing::TreeListRun {
 protected:
  // Plot ID, Tree ID, Tree Count and Species in columns 1 to 4, DBH in inches
  // in column 30, the columns between unassigned.
  void PutThirtyColumnTemplate() {
    std::vector<ColumnAssignment> columns(30, ColumnAssignment{"? column", "? units"});
    const auto five = FiveColumns("inches");
    for (std::size_t i = 0; i < 4; ++i) columns[i] = five[i];
    columns[29] = five[4];
    PutTemplate("wide", TemplateText("OrvanVariant=NI", "IMPERIAL", columns));
  }

  // A line of the tree's first four cells, 25 filler cells and these cells.
  static std::string WideLine(int tree, const std::string& rest) {
    std::string line = "1," + std::to_string(tree) + ",1,DF";
    for (int n = 5; n <= 29; ++n) line += ",f" + std::to_string(n);
    return line + "," + rest + "\r\n";
  }
};

TEST_F(Limits, ThirtiethColumnReachesTheTreeList) {
  PutThirtyColumnTemplate();
  const ProgramRun run = Translate(WideLine(1, "25.4"), "out.tre", "wide");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254));
}

// A line is cut 29 times; the rest, commas and all, is column 30, and its
// check says so.
TEST_F(Limits, CellsPastTheThirtiethStayInItAndFailItsCheck) {
  PutThirtyColumnTemplate();
  const ProgramRun run = Translate(WideLine(1, "25.4") + WideLine(2, "25.4,note"), "out.tre", "wide");
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(run.errors, "Invalid DBH value.\n");
  EXPECT_EQ(run.status, 1);
}

// Ninety-nine commands that find nothing, and a hundredth that turns the
// survey's species name into the model's code: without it the species check
// fails.
TEST_F(Limits, HundredthCommandIsReplayed) {
  std::vector<CommandKeys> commands;
  for (int k = 1; k <= 99; ++k) commands.push_back({"REPLACE_ALL", "none" + std::to_string(k), "x", "4", "0", "0", ""});
  commands.push_back({"REPLACE_ALL", "DOUGLAS FIR", "DF", "4", "0", "0", ""});
  PutTemplate("hundred", TemplateText("OrvanVariant=NI", "IMPERIAL", FiveColumns("inches"), commands));
  const ProgramRun run = Translate("1,1,1,DOUGLAS FIR,25.4\r\n", "out.tre", "hundred");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254));
}

// A cell keeps its first 100 characters: a DBH written with 96 leading zeros
// is whole, one with 97 loses its last digit on the way to the table.
TEST_F(Limits, CellKeepsItsFirstHundredCharacters) {
  const ProgramRun run =
      Translate("1,1,1,DF," + std::string(96, '0') + "25.4\r\n1,2,1,DF," + std::string(97, '0') + "25.4\r\n");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(TreeList(), Record(1, 1, "DF", 254) + Record(1, 2, "DF", 250));
}

}  // namespace
}  // namespace corvalin
