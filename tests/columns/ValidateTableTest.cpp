// The gate before translation: assignments left to right, required columns,
// then every cell of every row taking part, first fault only, with the cell
// it stopped at.
#include "TableFixture.h"
#include "columns/SpeciesCodes.h"
#include "columns/ValidateTable.h"

namespace corvalin {
namespace {

class ValidateTableTest : public testing::TableFixture {
 protected:
  // Validates the table under these headings, given as "type|units", one per
  // column; the other columns are unassigned. The variant is "BC", metric.
  ValidationResult Validate(const std::vector<std::string>& headings) {
    for (std::size_t i = 0; i < headings.size(); ++i) {
      const auto bar = headings[i].find('|');
      headings_[i + 1] = headings[i].substr(0, bar) + "\r\n" + headings[i].substr(bar + 1);
    }
    for (std::size_t i = headings.size() + 1; i <= 30; ++i) headings_[i] = "? column\r\n? units";
    rows_ = GridRows();
    return ValidateTable({headings_, "BC", true, rows_});
  }
  // The message of a validation that must fail.
  std::string Fault(const std::vector<std::string>& headings) {
    const ValidationResult result = Validate(headings);
    EXPECT_FALSE(result.valid);
    return result.fault;
  }
  static std::vector<std::string> Required() {
    return {"Plot ID|", "Tree ID|", "Tree Count|", "Species|", "DBH|cm"};
  }
  std::array<std::string, 32> headings_{};
  std::shared_ptr<Recordset> rows_;
};

TEST_F(ValidateTableTest, FiveRequiredColumnsFilledPassAndExtraUnassignedColumnIsIgnored) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "rubbish"}}});
  auto cols = Required();
  cols.push_back("? column|? units");
  const ValidationResult result = Validate(cols);
  EXPECT_TRUE(result.valid);
  EXPECT_EQ(result.fault, "");
  EXPECT_EQ(result.column, -1);
  EXPECT_EQ(result.row, -1);
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(Run().ColPlotId, 1);
  EXPECT_EQ(Run().ColDbh, 5);
  EXPECT_EQ(Run().UnitsDbh, "cm");
  EXPECT_EQ(Run().ColCrownRatio, -1);
}

TEST_F(ValidateTableTest, PlainFieldNamesAsHeadingsFailWithoutAMessage) {
  MakeTable({{1, {"1"}}});
  headings_[1] = "c1";
  const ValidationResult result = ValidateTable({headings_, "BC", true, GridRows()});
  EXPECT_FALSE(result.valid);
  EXPECT_EQ(result.fault, "");
  EXPECT_EQ(result.column, -1);
  EXPECT_EQ(result.row, -1);
}

TEST_F(ValidateTableTest, EmptyRowSetPasses) {
  MakeTable({});
  Run().ColumnCount = 5;
  EXPECT_TRUE(Validate(Required()).valid);
}

TEST_F(ValidateTableTest, ExcludedRowsArePassedOver) {
  MakeTable({{1, {"", "1", "1", "FD", "20"}, "Y"}, {2, {"1", "1", "1", "FD", "20"}}});
  EXPECT_TRUE(Validate(Required()).valid);
}

TEST_F(ValidateTableTest, BlanksInOneAssignedColumnCountAsDataAndFailAtPlotIdOnItsRow) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}, {2, {"", "", "  ", "", ""}}});
  const ValidationResult result = Validate(Required());
  EXPECT_FALSE(result.valid);
  EXPECT_EQ(result.fault, "Invalid Plot Id.");
  EXPECT_EQ(result.row, BookmarkOfLine(rows_, 2));
  EXPECT_EQ(result.column, -1);
}

TEST_F(ValidateTableTest, RowEmptyInAllAssignedColumnsIsPassedOver) {
  MakeTable({{1, {"", "", "", "", "", "junk"}}});
  EXPECT_TRUE(Validate(Required()).valid);
}

TEST_F(ValidateTableTest, TreeCountZeroPointZeroAndDoubleZeroPass) {
  MakeTable({{1, {"1", "1", "0.0", "FD", "20"}}, {2, {"1", "1", "00", "FD", "20"}}});
  EXPECT_TRUE(Validate(Required()).valid);
}

TEST_F(ValidateTableTest, TreeCountZeroFailsWithoutACellToSelect) {
  MakeTable({{1, {"1", "1", " 0 ", "FD", "20"}}});
  const ValidationResult result = Validate(Required());
  EXPECT_EQ(result.fault, "Tree Count is required.");
  EXPECT_EQ(result.row, -1);
  EXPECT_EQ(result.column, -1);
}

TEST_F(ValidateTableTest, TreeIdBlankAndTreeCountTextFailWithTheirMessages) {
  MakeTable({{1, {"1", " ", "1", "FD", "20"}}});
  EXPECT_EQ(Fault(Required()), "Invalid Tree Id.");
}

TEST_F(ValidateTableTest, TreeCountWithCommaIsInvalid) {
  MakeTable({{1, {"1", "1", "1,5", "FD", "20"}}});
  EXPECT_EQ(Fault(Required()), "Invalid Tree Count.");
}

TEST_F(ValidateTableTest, DbhPointPassesAndBlankDbhIsRequired) {
  MakeTable({{1, {"1", "1", "1", "FD", "."}}});
  EXPECT_TRUE(Validate(Required()).valid);
  MakeTable({{1, {"1", "1", "1", "FD", " "}}});
  EXPECT_EQ(Fault(Required()), "DBH value is required.");
}

TEST_F(ValidateTableTest, SpeciesMappedUnderBcStaysAsTypedInTheTable) {
  MakeTable({{1, {"1", "1", "1", "yc", "20"}}});
  EXPECT_TRUE(Validate(Required()).valid);
  EXPECT_EQ(CellOf(1, "c4"), "yc");
}

TEST_F(ValidateTableTest, UnknownSpeciesFailsAtItsRow) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}, {2, {"1", "2", "1", "DF", "20"}}});
  const ValidationResult result = Validate(Required());
  EXPECT_EQ(result.fault, "Invalid Species Code.");
  EXPECT_EQ(result.row, BookmarkOfLine(rows_, 2));
}

TEST_F(ValidateTableTest, LongTableStopsAtItsFirstFaultyRowWhateverFollows) {
  std::vector<testing::TableRow> rows;
  for (int line = 1; line <= 12000; ++line) rows.push_back({line, {"1", std::to_string(line), "1", "FD", "20"}});
  rows[9000 - 1].cells[3] = "DF";
  rows[7000 - 1].cells[4] = "";
  rows[6000 - 1] = {6000, {"", "", "1", "", "20"}, "Y"};
  rows[11000 - 1].cells[0] = "";
  MakeTable(rows);
  const ValidationResult result = Validate(Required());
  EXPECT_EQ(result.fault, "DBH value is required.");
  EXPECT_EQ(result.row, BookmarkOfLine(rows_, 7000));
}

TEST_F(ValidateTableTest, EmptyPeriodicDbhIncPassesAndCrownRatioTenDependsOnUnits) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "", "10"}}});
  auto cols = Required();
  cols.push_back("Periodic DBH Inc.|cm");
  cols.push_back("Crown Ratio|codes");
  EXPECT_EQ(Fault(cols), "Invalid Crown Ratio Code.");
  EXPECT_EQ(Run().UnitsCrownRatio, "codes");
  cols.back() = "Crown Ratio|%";
  EXPECT_TRUE(Validate(cols).valid);
}

TEST_F(ValidateTableTest, DuplicateTypeStopsAtTheLeftColumnBeforeLaterUnitChecks) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "FD"}}});
  const ValidationResult result =
      Validate({"Plot ID|", "Tree ID|", "Species|", "DBH|? units", "Tree Count|", "Species|"});
  EXPECT_EQ(result.fault, "Duplicate columns.");
  EXPECT_EQ(result.column, 3);
  EXPECT_EQ(result.row, -1);
}

TEST_F(ValidateTableTest, BadUnitsStopAtTheirColumn) {
  MakeTable({{1, {"1", "2"}}});
  const ValidationResult result = Validate({"Plot ID|", "Total Height|? units"});
  EXPECT_EQ(result.fault, "Must specify units for Total Height column.");
  EXPECT_EQ(result.column, 2);
}

TEST_F(ValidateTableTest, AssignmentsAreTakenLeftToRight) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "x"}}});
  EXPECT_EQ(Fault({"Plot ID|", "DBH|degrees", "Tree ID|", "Tree ID|"}), "Invalid units for DBH column.");
}

TEST_F(ValidateTableTest, HeightIncrementWithBadUnitsReportsTheDiameterIncrementsWords) {
  MakeTable({{1, {"1"}}});
  EXPECT_EQ(Fault({"Periodic Height Inc.|%"}), "Invalid units for Periodic DBH Inc. column.");
}

TEST_F(ValidateTableTest, MissingUnitsAndWrongSystemHaveTheirOwnMessages) {
  MakeTable({{1, {"1"}}});
  EXPECT_EQ(Fault({"Total Height|? units"}), "Must specify units for Total Height column.");
  EXPECT_EQ(Fault({"Height to Topkill|feet"}), "Incorrect units (metric/imperial).");
  EXPECT_EQ(Fault({"Plot Slope|cm"}), "Invalid units for Plot Slope column.");
  EXPECT_EQ(Fault({"Crown Ratio|? units"}), "Must specify units for Crown Ratio column.");
}

TEST_F(ValidateTableTest, ImperialUnitsPassUnderTheImperialSystem) {
  MakeTable({{1, {"1", "1", "1", "DF", "20"}}});
  SpeciesCodes() = *SpeciesRowOf("NI");
  Validate({"Plot ID|", "Tree ID|", "Tree Count|", "Species|", "DBH|inches"});
  const ValidationResult result = ValidateTable({headings_, "NI", false, rows_});
  EXPECT_TRUE(result.valid) << result.fault;
  EXPECT_EQ(Run().UnitsDbh, "inches");
}

TEST_F(ValidateTableTest, UnknownTypeStopsWithoutACellToSelect) {
  MakeTable({{1, {"1"}}});
  const ValidationResult result = Validate({"Diameter|cm"});
  EXPECT_EQ(result.fault, "ERROR - unknown column type.");
  EXPECT_EQ(result.column, -1);
  EXPECT_EQ(result.row, -1);
}

TEST_F(ValidateTableTest, RequiredColumnsAreReportedInOrder) {
  MakeTable({{1, {"1"}}});
  EXPECT_EQ(Fault({"Tree ID|"}), "Plot ID column is required.");
  MakeTable({{1, {"1", "1", "1", "FD"}}});
  EXPECT_EQ(Fault({"Plot ID|", "Tree ID|", "Tree Count|", "Species|"}), "DBH column is required.");
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
    MakeTable({{1, {"1", "1", "1", "FD", "20", c.cell}}});
    auto cols = Required();
    cols.push_back(c.heading);
    EXPECT_EQ(Fault(cols), c.message) << c.heading;
  }
}

TEST_F(ValidateTableTest, UnitsAreNotResetBetweenRuns) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  Run().UnitsTotalHeight = "feet";
  EXPECT_TRUE(Validate(Required()).valid);
  EXPECT_EQ(Run().UnitsTotalHeight, "feet");
  EXPECT_EQ(Run().ColTotalHeight, -1);
}

TEST_F(ValidateTableTest, GridWithoutRowsIsTheObjectError) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  Validate(Required());
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { ValidateTable({headings_, "BC", true, nullptr}); }), 91);
}

}  // namespace
}  // namespace corvalin
