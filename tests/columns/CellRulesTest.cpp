#include <gtest/gtest.h>

#include "columns/CellRules.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

struct Case {
  const char* text;
  bool valid;
};

template <class Predicate>
void ExpectTable(Predicate predicate, std::initializer_list<Case> cases) {
  for (const Case& c : cases) EXPECT_EQ(predicate(c.text), c.valid) << "\"" << c.text << "\"";
}

TEST(CellRules, DecimalTextIsDigitsAndAtMostOnePointAfterTrimming) {
  ExpectTable(IsDecimalText, {{"", true},     {".", true},     {"007", true},  {"1.", true},   {"12.5", true},
                              {" 3 ", true},  {"   ", true},   {"0", true},    {"99999", true}, {"-1", false},
                              {"+1", false},  {"1e5", false},  {"1,5", false}, {"1.2.3", false}, {"..", false},
                              {"1 2", false}, {"\t1", false},  {"A", false}});
}

TEST(CellRules, TreeHistoryIsOneDigitFromOneToNineUntrimmed) {
  ExpectTable(IsValidTreeHistory, {{"", true},    {"1", true},    {"9", true},  {"0", false},
                                   {"10", false}, {"3 ", false},  {" 3", false}, {"A", false}});
}

TEST(CellRules, CrownRatioInCodesTakesOnlyOneDigitOneToNine) {
  corvalin::Run().UnitsCrownRatio = "codes";
  ExpectTable(IsValidCrownRatio, {{"", true}, {"1", true}, {"9", true}, {"0", false}, {"10", false}, {"5.5", false}});
}

TEST(CellRules, CrownRatioInPercentTakesAnyDecimal) {
  corvalin::Run().UnitsCrownRatio = "%";
  ExpectTable(IsValidCrownRatio, {{"", true}, {"10", true}, {"55.5", true}, {"0", true}, {"x", false}});
  corvalin::Run().UnitsCrownRatio = "";
  ExpectTable(IsValidCrownRatio, {{"10", true}, {"1,0", false}});
}

TEST(CellRules, TreeValueIsOneTwoThreeOrEight) {
  ExpectTable(IsValidTreeValue, {{"", true},   {"1", true},   {"2", true},   {"3", true},  {"8", true},
                                 {"4", false}, {"7", false},  {"9", false},  {"0", false}, {"18", false},
                                 {" 1", false}});
}

TEST(CellRules, PrescriptionLooksOnlyAtTheStartOfTheValue) {
  ExpectTable(IsValidPrescription, {{"", true},    {"1", true},   {"9", true},   {"10", true},  {"12", true},
                                    {"5X", true},  {"3abc", true}, {"0", false}, {"A1", false}, {" 1", false},
                                    {"01", false}});
}

TEST(CellRules, TopographicPositionIsOneDigitOneToFive) {
  ExpectTable(IsValidTopoPosition, {{"", true}, {"1", true}, {"5", true}, {"6", false}, {"9", false}, {"0", false},
                                    {"12", false}});
}

TEST(CellRules, SitePreparationIsOneDigitOneToFour) {
  ExpectTable(IsValidSitePreparation, {{"", true}, {"1", true}, {"4", true}, {"5", false}, {"0", false}});
}

TEST(CellRules, HabitatTypeIsOneOfThirtyCodesUntrimmed) {
  ExpectTable(IsValidHabitatType, {{"", true},      {"130", true},   {"170", true},   {"550", true},
                                   {"850", true},   {"999", true},   {"720", true},   {" 130", false},
                                   {"130 ", false}, {"140", false},  {"13", false},   {"1300", false}});
}

}  // namespace
}  // namespace corvalin
