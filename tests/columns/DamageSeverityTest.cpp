#include <gtest/gtest.h>

#include "columns/DamageSeverity.h"

namespace corvalin {
namespace {

struct Case {
  const char* text;
  bool valid;
};

// Blanks written as underscores, as in the tables of the product's manual.
std::string Blanks(std::string text) {
  for (char& c : text)
    if (c == '_') c = ' ';
  return text;
}

void ExpectPairs(std::initializer_list<Case> cases) {
  for (const Case& c : cases)
    EXPECT_EQ(IsValidDamageSeverityPair(Blanks(c.text)), c.valid) << "\"" << c.text << "\"";
}

TEST(DamageSeverity, WellFormedPairsOfTheExamples) {
  ExpectPairs({{"01_3", true}, {"_1_3", true}, {"12_9", true}, {"55_7", true}, {"5507", true}, {"5599", true},
               {"0103", false}});
}

TEST(DamageSeverity, EmptyCellIsValidAndFourBlanksAreNot) {
  ExpectPairs({{"", true}, {"____", false}});
}

TEST(DamageSeverity, ThirdCharacterMustBeBlankExceptForSpecialStatus) {
  ExpectPairs({{"3010", false}, {"30_6", true}, {"30_7", false}});
}

TEST(DamageSeverity, ZeroSeverityOnlyForDecaysAndDefects) {
  ExpectPairs({{"45_0", true}, {"99_0", true}, {"12_0", false}, {"95_9", true}});
}

TEST(DamageSeverity, SpecialStatusTakesOneToNinetyNine) {
  ExpectPairs({{"55_1", true}, {"5599", true}, {"5500", false}, {"55_0", false}, {"55A1", false}});
}

TEST(DamageSeverity, GapsInTheTableAreNoDamageCode) {
  ExpectPairs({{"19_1", false}, {"43_1", false}, {"00_1", false}, {"23_1", false}, {"56_1", false},
               {"66_1", false}, {"89_1", false}});
}

TEST(DamageSeverity, LengthMustBeExactlyFour) {
  ExpectPairs({{"9_1", false}, {"09_1", true}, {"_9_1", true}, {"09_12", false}, {"09_", false}});
}

TEST(DamageSeverity, LettersInTheDamageCodeAreRejected) {
  ExpectPairs({{"AB_1", false}, {"1A_1", false}, {"01_A", false}});
}

TEST(DamageSeverity, SeverityRangesOfEachFamily) {
  ExpectPairs({{"01_4", true},  {"01_5", false}, {"18_9", true},  {"22_2", true}, {"22_3", false},
               {"34_6", true},  {"39_4", true},  {"39_5", false}, {"42_2", true}, {"54_2", true},
               {"65_3", true},  {"65_4", false}, {"79_2", true},  {"88_2", true}, {"94_2", true},
               {"94_3", false}, {"01_0", false}});
}

TEST(DamageSeverity, CmbDamageHoldsEighteenItemsInTableOrder) {
  const std::vector<std::string> items = DamageItems();
  ASSERT_EQ(items.size(), 18u);
  EXPECT_EQ(items[0], "  01 - 09 : Bark beetles");
  EXPECT_EQ(items[1], "  10 - 18 : Defoliators");
  EXPECT_EQ(items[8], "  55      : Special Tree Status");
  EXPECT_EQ(items[12], "  90 - 94 : Miscellaneous");
  EXPECT_EQ(items[13], "  95 : Physical defect - Unspecified");
  EXPECT_EQ(items[17], "  99 : Physical defect - Checks, bole cracks");
  for (const std::string& item : items) EXPECT_EQ(CodeValue(item.substr(2, 2)) > 0, true) << item;
}

TEST(DamageSeverity, SeverityItemsFollowTheFamily) {
  EXPECT_EQ(DamageFamilyOf(35)->severityItems,
            (std::vector<std::string>{"  1 : Br. infection, >2' from bole", "  2 : Br. infection, 6\"-2' from bole",
                                      "  3 : Bole inf., or Br. inf. <6\" from bole", "  4 : Topkill"}));
  EXPECT_EQ(DamageFamilyOf(75)->severityItems, (std::vector<std::string>{"  1 : Minor", "  2 : Severe"}));
  EXPECT_EQ(DamageFamilyOf(31)->severityItems.back(), "  6 : Hawksworth classification 6");
  EXPECT_EQ(DamageFamilyOf(55)->severityItems, (std::vector<std::string>{"  1 : Valid values are 1 through 99"}));
  EXPECT_EQ(DamageFamilyOf(97)->severityItems.front(), "  0 : < 5% volume loss");
  EXPECT_EQ(DamageFamilyOf(12)->severityItems.front(), "  1 : Light defoliation,  no topkill");
  EXPECT_EQ(DamageFamilyOf(19), nullptr);
}

TEST(DamageSeverity, CodeValueSkipsBlanksAndStopsAtOtherCharacters) {
  EXPECT_EQ(CodeValue(" 3"), 3);
  EXPECT_EQ(CodeValue("07"), 7);
  EXPECT_EQ(CodeValue("AB"), 0);
  EXPECT_EQ(CodeValue("5A"), 5);
  EXPECT_EQ(CodeValue(""), 0);
}

}  // namespace
}  // namespace corvalin
