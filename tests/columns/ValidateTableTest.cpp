// The gate before translation: assignments left to right, required columns,
// then every cell of every row taking part, first fault only.
#include "TableFixture.h"
#include "columns/ValidateTable.h"

namespace corvalin {
namespace {

class ValidateTableTest : public testing::TableFixture {
 protected:
  // Headings given as "type|units", one per column; the grid is bound to the table.
  frmHeaders& Grid(const std::vector<std::string>& headings) {
    frmHeaders& headers = LoadHeaders();
    for (std::size_t i = 0; i < headings.size(); ++i) {
      const auto bar = headings[i].find('|');
      headers.ColumnCaption[i + 1] = headings[i].substr(0, bar) + "\r\n" + headings[i].substr(bar + 1);
    }
    for (std::size_t i = headings.size() + 1; i <= 30; ++i) headers.ColumnCaption[i] = "? column\r\n? units";
    headers.SelectVariant(1);  // BC
    return headers;
  }
  static std::vector<std::string> Required() {
    return {"Plot ID|", "Tree ID|", "Tree Count|", "Species|", "DBH|cm"};
  }
  std::string Only() {
    EXPECT_EQ(ui.boxes.size(), 1u);
    return ui.boxes.empty() ? "" : ui.boxes.back().text;
  }
};

TEST_F(ValidateTableTest, FiveRequiredColumnsFilledPassAndExtraUnassignedColumnIsIgnored) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "rubbish"}}});
  auto cols = Required();
  cols.push_back("? column|? units");
  frmHeaders& headers = Grid(cols);
  EXPECT_TRUE(ValidateTable(headers));
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Run().ColPlotId, 1);
  EXPECT_EQ(Run().ColDbh, 5);
  EXPECT_EQ(Run().UnitsDbh, "cm");
  EXPECT_EQ(Run().ColCrownRatio, -1);
}

TEST_F(ValidateTableTest, EmptyRowSetPasses) {
  MakeTable({});
  Run().ColumnCount = 5;
  EXPECT_TRUE(ValidateTable(Grid(Required())));
}

TEST_F(ValidateTableTest, ExcludedRowsArePassedOver) {
  MakeTable({{1, {"", "1", "1", "FD", "20"}, "Y"}, {2, {"1", "1", "1", "FD", "20"}}});
  EXPECT_TRUE(ValidateTable(Grid(Required())));
}

TEST_F(ValidateTableTest, BlanksInOneAssignedColumnCountAsDataAndFailAtPlotId) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}, {2, {"", "", "  ", "", ""}}});
  frmHeaders& headers = Grid(Required());
  EXPECT_FALSE(ValidateTable(headers));
  EXPECT_EQ(Only(), "Invalid Plot Id.");
  ASSERT_EQ(headers.SelBookmarks.size(), 1u);
  EXPECT_EQ(headers.SelBookmarks[0], BookmarkOfLine(headers, 2));
}

TEST_F(ValidateTableTest, RowEmptyInAllAssignedColumnsIsPassedOver) {
  MakeTable({{1, {"", "", "", "", "", "junk"}}});
  EXPECT_TRUE(ValidateTable(Grid(Required())));
}

TEST_F(ValidateTableTest, TreeCountZeroPointZeroAndDoubleZeroPass) {
  MakeTable({{1, {"1", "1", "0.0", "FD", "20"}}, {2, {"1", "1", "00", "FD", "20"}}});
  EXPECT_TRUE(ValidateTable(Grid(Required())));
}

TEST_F(ValidateTableTest, TreeCountZeroFailsWithoutMovingTheSelection) {
  MakeTable({{1, {"1", "1", " 0 ", "FD", "20"}}});
  frmHeaders& headers = Grid(Required());
  EXPECT_FALSE(ValidateTable(headers));
  EXPECT_EQ(Only(), "Tree Count is required.");
  EXPECT_TRUE(headers.SelBookmarks.empty());
}

TEST_F(ValidateTableTest, TreeIdBlankAndTreeCountTextFailWithTheirMessages) {
  MakeTable({{1, {"1", " ", "1", "FD", "20"}}});
  EXPECT_FALSE(ValidateTable(Grid(Required())));
  EXPECT_EQ(Only(), "Invalid Tree Id.");
}

TEST_F(ValidateTableTest, TreeCountWithCommaIsInvalid) {
  MakeTable({{1, {"1", "1", "1,5", "FD", "20"}}});
  EXPECT_FALSE(ValidateTable(Grid(Required())));
  EXPECT_EQ(Only(), "Invalid Tree Count.");
}

TEST_F(ValidateTableTest, DbhPointPassesAndBlankDbhIsRequired) {
  MakeTable({{1, {"1", "1", "1", "FD", "."}}});
  EXPECT_TRUE(ValidateTable(Grid(Required())));
  App().UnloadAll();
  MakeTable({{1, {"1", "1", "1", "FD", " "}}});
  EXPECT_FALSE(ValidateTable(Grid(Required())));
  EXPECT_EQ(Only(), "DBH value is required.");
}

TEST_F(ValidateTableTest, SpeciesMappedUnderBcStaysAsTypedInTheTable) {
  MakeTable({{1, {"1", "1", "1", "yc", "20"}}});
  EXPECT_TRUE(ValidateTable(Grid(Required())));
  EXPECT_EQ(CellOf(1, "c4"), "yc");
}

TEST_F(ValidateTableTest, UnknownSpeciesFailsAndSelectsTheRow) {
  MakeTable({{1, {"1", "1", "1", "DF", "20"}}});
  frmHeaders& headers = Grid(Required());
  EXPECT_FALSE(ValidateTable(headers));
  EXPECT_EQ(Only(), "Invalid Species Code.");
  EXPECT_EQ(headers.SelBookmarks.size(), 1u);
}

TEST_F(ValidateTableTest, EmptyPeriodicDbhIncPassesAndCrownRatioTenDependsOnUnits) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "", "10"}}});
  auto cols = Required();
  cols.push_back("Periodic DBH Inc.|cm");
  cols.push_back("Crown Ratio|codes");
  EXPECT_FALSE(ValidateTable(Grid(cols)));
  EXPECT_EQ(Only(), "Invalid Crown Ratio Code.");
  EXPECT_EQ(Run().UnitsCrownRatio, "codes");
  App().UnloadAll();
  ui.boxes.clear();
  cols.back() = "Crown Ratio|%";
  EXPECT_TRUE(ValidateTable(Grid(cols)));
}

TEST_F(ValidateTableTest, DuplicateTypeSelectsTheLeftColumnBeforeLaterUnitChecks) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "FD"}}});
  std::vector<std::string> cols = {"Plot ID|", "Tree ID|", "Species|", "DBH|? units", "Tree Count|", "Species|"};
  frmHeaders& headers = Grid(cols);
  EXPECT_FALSE(ValidateTable(headers));
  EXPECT_EQ(Only(), "Duplicate columns.");
  EXPECT_EQ(headers.SelStartCol, 3);
}

TEST_F(ValidateTableTest, AssignmentsAreTakenLeftToRight) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "x"}}});
  std::vector<std::string> cols = {"Plot ID|", "DBH|degrees", "Tree ID|", "Tree ID|"};
  EXPECT_FALSE(ValidateTable(Grid(cols)));
  EXPECT_EQ(Only(), "Invalid units for DBH column.");
}

TEST_F(ValidateTableTest, HeightIncrementWithBadUnitsReportsTheDiameterIncrementsWords) {
  MakeTable({{1, {"1"}}});
  EXPECT_FALSE(ValidateTable(Grid({"Periodic Height Inc.|%"})));
  EXPECT_EQ(Only(), "Invalid units for Periodic DBH Inc. column.");
}

TEST_F(ValidateTableTest, MissingUnitsAndWrongSystemHaveTheirOwnMessages) {
  MakeTable({{1, {"1"}}});
  EXPECT_FALSE(ValidateTable(Grid({"Total Height|? units"})));
  EXPECT_EQ(Only(), "Must specify units for Total Height column.");
  App().UnloadAll();
  ui.boxes.clear();
  EXPECT_FALSE(ValidateTable(Grid({"Height to Topkill|feet"})));
  EXPECT_EQ(Only(), "Incorrect units (metric/imperial).");
  App().UnloadAll();
  ui.boxes.clear();
  EXPECT_FALSE(ValidateTable(Grid({"Plot Slope|cm"})));
  EXPECT_EQ(Only(), "Invalid units for Plot Slope column.");
  App().UnloadAll();
  ui.boxes.clear();
  EXPECT_FALSE(ValidateTable(Grid({"Crown Ratio|? units"})));
  EXPECT_EQ(Only(), "Must specify units for Crown Ratio column.");
}

TEST_F(ValidateTableTest, UnknownTypeStopsWithoutSelection) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = Grid({"Diameter|cm"});
  EXPECT_FALSE(ValidateTable(headers));
  EXPECT_EQ(Only(), "ERROR - unknown column type.");
  EXPECT_EQ(headers.SelStartCol, -1);
}

TEST_F(ValidateTableTest, RequiredColumnsAreReportedInOrder) {
  MakeTable({{1, {"1"}}});
  EXPECT_FALSE(ValidateTable(Grid({"Tree ID|"})));
  EXPECT_EQ(Only(), "Plot ID column is required.");
  App().UnloadAll();
  ui.boxes.clear();
  MakeTable({{1, {"1", "1", "1", "FD"}}});
  EXPECT_FALSE(ValidateTable(Grid({"Plot ID|", "Tree ID|", "Tree Count|", "Species|"})));
  EXPECT_EQ(Only(), "DBH column is required.");
}

TEST_F(ValidateTableTest, CodedColumnsReportTheirOwnMessages) {
  struct Case {
    const char* heading;
    const char* cell;
    const char* message;
  };
  for (const Case& c : {Case{"Tree History|", "0", "Invalid Tree History Code."},
                        Case{"Damage/Severity - 2|", "19 1", "Invalid Damage Severity Pair - 2."},
                        Case{"Tree Value Class|", "4", "Invalid Tree Value Code."},
                        Case{"Cut/Leave Prescription|", "0", "Invalid Cut or Leave Prescription Code."},
                        Case{"Plot Slope|%", "-5", "Invalid Plot Slope value."},
                        Case{"Plot Aspect|", "N", "Invalid Plot Aspect value."},
                        Case{"Plot US Habitat Type|", " 130", "Invalid Plot US Habitat Type value."},
                        Case{"Plot Site Preparation|", "5", "Invalid Plot Site Preparation Code."},
                        Case{"Total Height|m", "1.2.3", "Invalid Total Height value."}}) {
    App().UnloadAll();
    ui.boxes.clear();
    MakeTable({{1, {"1", "1", "1", "FD", "20", c.cell}}});
    auto cols = Required();
    cols.push_back(c.heading);
    EXPECT_FALSE(ValidateTable(Grid(cols))) << c.heading;
    EXPECT_EQ(Only(), c.message);
  }
}

TEST_F(ValidateTableTest, UnitsAreNotResetBetweenRuns) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  Run().UnitsTotalHeight = "feet";
  EXPECT_TRUE(ValidateTable(Grid(Required())));
  EXPECT_EQ(Run().UnitsTotalHeight, "feet");
  EXPECT_EQ(Run().ColTotalHeight, -1);
}

}  // namespace
}  // namespace corvalin
