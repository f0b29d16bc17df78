// The two records: fields in their columns, units through their factors.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "shell/RunState.h"
#include "translation/TreeRecord.h"

namespace corvalin {
namespace {

// The run state's column of each of the 21 types, in record order.
std::vector<int16_t*> TypeColumns(RunState& state) {
  return {&state.ColPlotId,        &state.ColTreeId,      &state.ColTreeCount,   &state.ColTreeHistory,
          &state.ColSpecies,       &state.ColDbh,         &state.ColDbhInc,      &state.ColTotalHeight,
          &state.ColTopkillHeight, &state.ColHeightInc,   &state.ColCrownRatio,  &state.ColDamage1,
          &state.ColDamage2,       &state.ColDamage3,     &state.ColTreeValue,   &state.ColPrescription,
          &state.ColPlotSlope,     &state.ColPlotAspect,  &state.ColHabitatType, &state.ColTopoPosition,
          &state.ColSitePreparation};
}

// A run state in which validation found no column of any type.
RunState NoColumns() {
  RunState state;
  for (int16_t* column : TypeColumns(state)) *column = -1;
  return state;
}

// A run state in which validation found only this type, in this column.
RunState Only(int16_t RunState::*type, int16_t column = 1) {
  RunState state = NoColumns();
  state.*type = column;
  return state;
}

// Columns 1 to 21 hold the 21 types in record order.
RunState AllColumns() {
  RunState state = NoColumns();
  int16_t n = 1;
  for (int16_t* column : TypeColumns(state)) *column = n++;
  state.UnitsDbh = "inches";
  state.UnitsDbhInc = "inches";
  state.UnitsTotalHeight = "feet";
  state.UnitsTopkillHeight = "feet";
  state.UnitsHeightInc = "feet";
  state.UnitsCrownRatio = "%";
  state.UnitsPlotSlope = "%";
  return state;
}

// A row whose only cell is this one.
RowCells Cell(std::size_t column, std::string_view text) {
  RowCells cells{};
  cells[column] = text;
  return cells;
}

// The two records a row gives under a run state.
std::string Bc(const RunState& state, const RowCells& cells) { return BcRecord(BcRecordSetup(state), cells); }
std::string Us(const RunState& state, const RowCells& cells) { return UsRecord(UsRecordSetup(state), cells); }

RowCells FullRow() {
  RowCells cells{};
  const char* values[] = {"1234567", "12", "25.5", "1", "fd", "12.3", "0.5", "80", "60", "2", "45",
                          "2505", "", "9901", "1", "2", "35", "180", "260", "3", "1"};
  for (int i = 0; i < 21; ++i) cells[static_cast<std::size_t>(i + 1)] = values[i];
  return cells;
}

TEST(BcRecord, EveryFieldInItsColumns) {
  const std::string record = Bc(AllColumns(), FullRow());
  EXPECT_EQ(record,
            "      1234567"  "  12"  "  25.500"  "1"  "FD"  " 31.2"  " 1.3"  "24.4"  "18.3"  "  61.0"  "5"
            "2505"  "    "  "9901"  "1"  "2"  "  2"  "180"  "260"  "3"  "1");
  EXPECT_EQ(record.size(), 77u);
}

TEST(UsRecord, EveryFieldInItsColumns) {
  const std::string record = Us(AllColumns(), FullRow());
  EXPECT_EQ(record,
            "1234"  " 12"  "    26"  "1"  "FD "  " 123"  "  5"  " 80"  " 60"  "  20"  "5"
            "2505"  "    "  "9901"  "1"  "2"  " 2"  "180"  "260"  "3"  "1");
  EXPECT_EQ(record.size(), 59u);
}

TEST(BcRecord, NoAssignedColumnGivesABlankLineOfFullLength) {
  EXPECT_EQ(Bc(NoColumns(), RowCells{}), std::string(77, ' '));
}

TEST(UsRecord, NoAssignedColumnGivesABlankLineOfFullLength) {
  EXPECT_EQ(Us(NoColumns(), RowCells{}), std::string(59, ' '));
}

TEST(BcRecord, PlotIdKeepsItsFirstThirteenCharacters) {
  EXPECT_EQ(Bc(Only(&RunState::ColPlotId, 2), Cell(2, "ABCDEFGHIJKLMNOP")).substr(0, 13), "ABCDEFGHIJKLM");
}

TEST(UsRecord, PlotIdKeepsItsFirstFourCharacters) {
  const RunState state = Only(&RunState::ColPlotId);
  EXPECT_EQ(Us(state, Cell(1, "ABCDEFG")).substr(0, 4), "ABCD");
  EXPECT_EQ(Us(state, Cell(1, "7")).substr(0, 4), "   7");
}

TEST(Records, SpeciesIsUpperCasedAfterFormatting) {
  const RunState state = Only(&RunState::ColSpecies, 3);
  EXPECT_EQ(Bc(state, Cell(3, "df")).substr(26, 2), "DF");
  EXPECT_EQ(Us(state, Cell(3, "df")).substr(14, 3), "DF ");
  EXPECT_EQ(Bc(state, Cell(3, "d")).substr(26, 2), " D");
  EXPECT_EQ(Us(state, Cell(3, "d")).substr(14, 3), "D  ");
}

TEST(Records, TreeCountTieAndZero) {
  const RunState state = Only(&RunState::ColTreeCount);
  EXPECT_EQ(Bc(state, Cell(1, "25.5")).substr(17, 8), "  25.500");
  EXPECT_EQ(Us(state, Cell(1, "25.5")).substr(7, 6), "    26");
  for (const char* empty : {"0", ""}) {
    EXPECT_EQ(Bc(state, Cell(1, empty)).substr(17, 8), "        ") << empty;
    EXPECT_EQ(Us(state, Cell(1, empty)).substr(7, 6), "      ") << empty;
  }
}

TEST(Records, UnassignedPeriodicDbhIncIsBlankWhateverItsUnits) {
  RunState state = NoColumns();
  state.UnitsDbhInc = "cm";
  EXPECT_EQ(Bc(state, Cell(1, "5")).substr(33, 4), "    ");
  EXPECT_EQ(Us(state, Cell(1, "5")).substr(21, 3), "   ");
}

TEST(Records, HeightWithAnUnknownUnitNameStaysBlank) {
  RunState state = Only(&RunState::ColTotalHeight);
  state.UnitsTotalHeight = "furlongs";
  EXPECT_EQ(Bc(state, Cell(1, "80")).substr(37, 4), "    ");
  EXPECT_EQ(Us(state, Cell(1, "80")).substr(24, 3), "   ");
  state.UnitsTotalHeight = "Feet";  // names compare case and all
  EXPECT_EQ(Us(state, Cell(1, "80")).substr(24, 3), "   ");
}

TEST(Records, CrownRatioField) {
  RunState state = Only(&RunState::ColCrownRatio);
  state.UnitsCrownRatio = "%";
  const std::pair<const char*, const char*> percent[] = {{"45", "5"}, {"81", "9"}, {"0", " "}};
  for (const auto& [cell, code] : percent) {
    EXPECT_EQ(Bc(state, Cell(1, cell)).substr(51, 1), code) << cell;
    EXPECT_EQ(Us(state, Cell(1, cell)).substr(34, 1), code) << cell;
  }
  state.UnitsCrownRatio = "codes";
  EXPECT_EQ(Bc(state, Cell(1, "3")).substr(51, 1), "3");
  EXPECT_EQ(Us(state, Cell(1, "3")).substr(34, 1), "3");
}

TEST(Records, TwoCharacterCrownRatioCodeLengthensTheLine) {
  RunState state = Only(&RunState::ColCrownRatio);
  state.UnitsCrownRatio = "codes";
  EXPECT_EQ(Bc(state, Cell(1, "12")).size(), 78u);
  EXPECT_EQ(Us(state, Cell(1, "12")).size(), 60u);
}

TEST(Records, SlopeField) {
  RunState state = Only(&RunState::ColPlotSlope);
  struct Case {
    const char* units;
    const char* cell;
    const char* bc;
    const char* us;
  };
  const Case cases[] = {
      {"%", "35", "  2", " 2"},      {"%", "14", "  1", " 1"},       {"%", "0.5", "  0", " 0"},
      {"degrees", "35", " 35", "35"}, {"degrees", "2.5", "  2", " 2"}, {"degrees", "1000", "100", "10"},
      {"degrees", "", "  0", " 0"},
  };
  for (const Case& c : cases) {
    state.UnitsPlotSlope = c.units;
    EXPECT_EQ(Bc(state, Cell(1, c.cell)).substr(66, 3), c.bc) << c.units << " " << c.cell;
    EXPECT_EQ(Us(state, Cell(1, c.cell)).substr(49, 2), c.us) << c.units << " " << c.cell;
  }
}

TEST(Records, SlopeUnitsOtherThanPercentAreDegrees) {
  RunState state = Only(&RunState::ColPlotSlope);
  state.UnitsPlotSlope = "? units";
  EXPECT_EQ(Us(state, Cell(1, "35")).substr(49, 2), "35");
}

TEST(Records, CodedFieldsGoOutAsTheCellText) {
  RunState state = NoColumns();
  state.ColTreeHistory = 1;
  state.ColDamage1 = 2;
  state.ColTreeValue = 3;
  state.ColPrescription = 4;
  state.ColPlotAspect = 5;
  state.ColHabitatType = 6;
  state.ColTopoPosition = 7;
  state.ColSitePreparation = 8;
  RowCells cells{};
  const char* values[] = {"9", "x1", "8", "10", "359.5", "999", "5", "4"};
  for (int i = 0; i < 8; ++i) cells[static_cast<std::size_t>(i + 1)] = values[i];
  const std::string bc = Bc(state, cells);
  EXPECT_EQ(bc.substr(25, 1), "9");
  EXPECT_EQ(bc.substr(52, 4), "  x1");
  EXPECT_EQ(bc.substr(64, 1), "8");
  EXPECT_EQ(bc.substr(65, 1), "1");
  EXPECT_EQ(bc.substr(69, 3), "359");
  EXPECT_EQ(bc.substr(72, 3), "999");
  EXPECT_EQ(bc.substr(75, 2), "54");
  const std::string us = Us(state, cells);
  EXPECT_EQ(us.substr(13, 1), "9");
  EXPECT_EQ(us.substr(35, 4), "  x1");
  EXPECT_EQ(us.substr(47, 2), "81");
  EXPECT_EQ(us.substr(51, 8), "359999" "54");
}

TEST(UnitFactors, MetricRecordTablesAsPrinted) {
  const std::vector<std::pair<std::string, std::pair<double, double>>> table = {
      {"yards", {91.44018, 0.9144018}}, {"feet", {30.48006, 0.3048006}}, {"inches", {2.540005, 0.02540005}},
      {"m", {100, 1}},                  {"dm", {10, 0.1}},               {"cm", {1, 0.01}},
      {"mm", {0.1, 0.001}}};
  for (const auto& [units, factors] : table) {
    EXPECT_EQ(BcCentimetreFactor(units), factors.first) << units;
    EXPECT_EQ(BcMetreFactor(units), factors.second) << units;
  }
}

TEST(UnitFactors, ImperialRecordTablesAsPrinted) {
  struct Row {
    const char* units;
    double tenthInch, foot, tenthFoot;
  };
  const Row table[] = {{"yards", 360, 3, 30},
                       {"feet", 120, 1, 10},
                       {"inches", 10, 0.083333333, 0.83333333},
                       {"m", 393.700012, 3.28083, 32.8083},
                       {"dm", 39.3700012, 0.328083, 3.28083},
                       {"cm", 3.93700012, 0.0328083, 0.328083},
                       {"mm", 0.393700012, 0.00328083, 0.0328083}};
  for (const Row& row : table) {
    EXPECT_EQ(UsTenthInchFactor(row.units), row.tenthInch) << row.units;
    EXPECT_EQ(UsFootFactor(row.units), row.foot) << row.units;
    EXPECT_EQ(UsTenthFootFactor(row.units), row.tenthFoot) << row.units;
  }
}

TEST(UnitFactors, UnknownNamesHaveFactorZero) {
  for (const char* units : {"", "? units", "%", "degrees", "codes", "Feet", "CM", "inch"}) {
    EXPECT_EQ(BcCentimetreFactor(units), 0.0) << units;
    EXPECT_EQ(BcMetreFactor(units), 0.0) << units;
    EXPECT_EQ(UsTenthInchFactor(units), 0.0) << units;
    EXPECT_EQ(UsFootFactor(units), 0.0) << units;
    EXPECT_EQ(UsTenthFootFactor(units), 0.0) << units;
    EXPECT_FALSE(IsLengthUnitName(units)) << units;
  }
  for (const char* units : {"yards", "feet", "inches", "m", "dm", "cm", "mm"}) EXPECT_TRUE(IsLengthUnitName(units));
}

// Every length unit through every measured field of both records: a cell of
// "1.5" in the named unit, and the field that the record holds.
struct UnitCase {
  const char* record;
  const char* field;
  const char* units;
  int start;
  const char* expected;
};

const UnitCase kUnitCases[] = {
    {"Bc", "Dbh", "yards", 28, "137.2"},
    {"Bc", "Dbh", "feet", 28, " 45.7"},
    {"Bc", "Dbh", "inches", 28, "  3.8"},
    {"Bc", "Dbh", "m", 28, "150.0"},
    {"Bc", "Dbh", "dm", 28, " 15.0"},
    {"Bc", "Dbh", "cm", 28, "  1.5"},
    {"Bc", "Dbh", "mm", 28, "  0.2"},
    {"Bc", "DbhInc", "yards", 33, "37.2"},
    {"Bc", "DbhInc", "feet", 33, "45.7"},
    {"Bc", "DbhInc", "inches", 33, " 3.8"},
    {"Bc", "DbhInc", "m", 33, "50.0"},
    {"Bc", "DbhInc", "dm", 33, "15.0"},
    {"Bc", "DbhInc", "cm", 33, " 1.5"},
    {"Bc", "DbhInc", "mm", 33, " 0.2"},
    {"Bc", "TotalHeight", "yards", 37, " 1.4"},
    {"Bc", "TotalHeight", "feet", 37, " 0.5"},
    {"Bc", "TotalHeight", "inches", 37, " 0.0"},
    {"Bc", "TotalHeight", "m", 37, " 1.5"},
    {"Bc", "TotalHeight", "dm", 37, " 0.2"},
    {"Bc", "TotalHeight", "cm", 37, " 0.0"},
    {"Bc", "TotalHeight", "mm", 37, " 0.0"},
    {"Bc", "TopkillHeight", "yards", 41, " 1.4"},
    {"Bc", "TopkillHeight", "feet", 41, " 0.5"},
    {"Bc", "TopkillHeight", "inches", 41, " 0.0"},
    {"Bc", "TopkillHeight", "m", 41, " 1.5"},
    {"Bc", "TopkillHeight", "dm", 41, " 0.2"},
    {"Bc", "TopkillHeight", "cm", 41, " 0.0"},
    {"Bc", "TopkillHeight", "mm", 41, " 0.0"},
    {"Bc", "HeightInc", "yards", 45, " 137.2"},
    {"Bc", "HeightInc", "feet", 45, "  45.7"},
    {"Bc", "HeightInc", "inches", 45, "   3.8"},
    {"Bc", "HeightInc", "m", 45, " 150.0"},
    {"Bc", "HeightInc", "dm", 45, "  15.0"},
    {"Bc", "HeightInc", "cm", 45, "   1.5"},
    {"Bc", "HeightInc", "mm", 45, "   0.2"},
    {"Us", "Dbh", "yards", 17, " 540"},
    {"Us", "Dbh", "feet", 17, " 180"},
    {"Us", "Dbh", "inches", 17, "  15"},
    {"Us", "Dbh", "m", 17, " 591"},
    {"Us", "Dbh", "dm", 17, "  59"},
    {"Us", "Dbh", "cm", 17, "   6"},
    {"Us", "Dbh", "mm", 17, "   1"},
    {"Us", "DbhInc", "yards", 21, "540"},
    {"Us", "DbhInc", "feet", 21, "180"},
    {"Us", "DbhInc", "inches", 21, " 15"},
    {"Us", "DbhInc", "m", 21, "591"},
    {"Us", "DbhInc", "dm", 21, " 59"},
    {"Us", "DbhInc", "cm", 21, "  6"},
    {"Us", "DbhInc", "mm", 21, "  1"},
    {"Us", "TotalHeight", "yards", 24, "  5"},
    {"Us", "TotalHeight", "feet", 24, "  2"},
    {"Us", "TotalHeight", "inches", 24, "  0"},
    {"Us", "TotalHeight", "m", 24, "  5"},
    {"Us", "TotalHeight", "dm", 24, "  0"},
    {"Us", "TotalHeight", "cm", 24, "  0"},
    {"Us", "TotalHeight", "mm", 24, "  0"},
    {"Us", "TopkillHeight", "yards", 27, "  5"},
    {"Us", "TopkillHeight", "feet", 27, "  2"},
    {"Us", "TopkillHeight", "inches", 27, "  0"},
    {"Us", "TopkillHeight", "m", 27, "  5"},
    {"Us", "TopkillHeight", "dm", 27, "  0"},
    {"Us", "TopkillHeight", "cm", 27, "  0"},
    {"Us", "TopkillHeight", "mm", 27, "  0"},
    {"Us", "HeightInc", "yards", 30, "  45"},
    {"Us", "HeightInc", "feet", 30, "  15"},
    {"Us", "HeightInc", "inches", 30, "   1"},
    {"Us", "HeightInc", "m", 30, "  49"},
    {"Us", "HeightInc", "dm", 30, "   5"},
    {"Us", "HeightInc", "cm", 30, "   0"},
    {"Us", "HeightInc", "mm", 30, "   0"},
};

class EveryUnitInEveryMeasuredField : public ::testing::TestWithParam<UnitCase> {};

TEST_P(EveryUnitInEveryMeasuredField, FieldHoldsTheConvertedValue) {
  const UnitCase& c = GetParam();
  RunState state = NoColumns();
  const std::string field = c.field;
  if (field == "Dbh") state.ColDbh = 4, state.UnitsDbh = c.units;
  if (field == "DbhInc") state.ColDbhInc = 4, state.UnitsDbhInc = c.units;
  if (field == "TotalHeight") state.ColTotalHeight = 4, state.UnitsTotalHeight = c.units;
  if (field == "TopkillHeight") state.ColTopkillHeight = 4, state.UnitsTopkillHeight = c.units;
  if (field == "HeightInc") state.ColHeightInc = 4, state.UnitsHeightInc = c.units;
  const bool bc = std::string(c.record) == "Bc";
  const std::string record = bc ? Bc(state, Cell(4, "1.5")) : Us(state, Cell(4, "1.5"));
  const std::string expected = c.expected;
  ASSERT_EQ(record.size(), bc ? 77u : 59u);
  EXPECT_EQ(record.substr(static_cast<std::size_t>(c.start), expected.size()), expected);
  // Nothing else of the line is touched.
  std::string rest = record;
  rest.replace(static_cast<std::size_t>(c.start), expected.size(), expected.size(), ' ');
  EXPECT_EQ(rest, std::string(record.size(), ' '));
}

INSTANTIATE_TEST_SUITE_P(Records, EveryUnitInEveryMeasuredField, ::testing::ValuesIn(kUnitCases),
                         [](const ::testing::TestParamInfo<UnitCase>& info) {
                           return std::string(info.param.record) + info.param.field + "_" + info.param.units;
                         });

}  // namespace
}  // namespace corvalin
