#include <gtest/gtest.h>

#include "columns/Vocabulary.h"
#include "shell/Error.h"

namespace corvalin {
namespace {

using Items = std::vector<std::string>;

TEST(Vocabulary, HeaderChoicesHoldTheTwentyTwoTypesInListOrder) {
  EXPECT_EQ(HeaderChoices(),
            (Items{"? column", "Plot ID", "Tree ID", "Tree Count", "Tree History", "Species", "DBH",
                   "Periodic DBH Inc.", "Total Height", "Height to Topkill", "Periodic Height Inc.", "Crown Ratio",
                   "Damage/Severity - 1", "Damage/Severity - 2", "Damage/Severity - 3", "Tree Value Class",
                   "Cut/Leave Prescription", "Plot Slope", "Plot Aspect", "Plot US Habitat Type",
                   "Plot Topographic Position", "Plot Site Preparation"}));
}

TEST(Vocabulary, VariantListHoldsFifteenNamesWithKtLast) {
  EXPECT_EQ(VariantNames(), (Items{"AK", "BC", "BH", "BM", "CI", "EC", "EM", "NC", "NI", "SO", "SW", "TT", "UT",
                                   "WS", "KT"}));
  EXPECT_STREQ(DefaultVariant, "BC");
}

TEST(Vocabulary, FixedCodeListsHoldTheirExactItems) {
  EXPECT_EQ(TreeHistoryItems(), (Items{"1-5 : Live Trees", "6-7 : Dead Merchantable", "8-9 : Dead Waste"}));
  EXPECT_EQ(CrownRatioItems(), (Items{"1 : 1-10%", "2 : 11-20%", "3 : 21-30%", "4 : 31-40%", "5 : 41-50%",
                                      "6 : 51-60%", "7 : 61-70%", "8 : 71-80%", "9 : 81-100%"}));
  EXPECT_EQ(TreeValueClassItems(),
            (Items{"1 : Preferred", "2 : Acceptable", "3 : Live Cull", "8 : Non-stockable opening"}));
  EXPECT_EQ(CutLeavePrescriptionItems(),
            (Items{"1 : Cut", "2 : Leave", "3 : Option 3", "4 : Option 4", "5 : Option 5", "6 : Option 6",
                   "7 : Option 7", "8 : Option 8", "9 : Option 9"}));
  EXPECT_EQ(PlotTopographicalPositionItems(),
            (Items{"1 : Bottom", "2 : Lower Slope", "3 : Mid Slope", "4 : Upper Slope", "5 : Ridge Top"}));
  EXPECT_EQ(PlotSitePreparationItems(),
            (Items{"1 : None", "2 : Mechanical", "3 : Burned", "4 : Road Cut, Fills, etc."}));
}

TEST(Vocabulary, HabitatListHoldsThirtyItemsFromYellowPineToOther) {
  const Items& items = PlotHabitatItems();
  ASSERT_EQ(items.size(), 30u);
  EXPECT_EQ(items.front(), "130 : Yellow Pine/Bluebunch Wheatgrass");
  EXPECT_EQ(items[15], "550 : Red Cedar/Devil's Club");
  EXPECT_EQ(items[28], "850 : White Bark Pine - Sub-Alpine Fir");
  EXPECT_EQ(items.back(), "999 : Other");
}

TEST(Vocabulary, UnitChoicesFollowTypeAndMeasurementSystem) {
  EXPECT_EQ(UnitChoicesFor("Plot Slope", true), (Items{"%", "degrees"}));
  EXPECT_EQ(UnitChoicesFor("Plot Slope", false), (Items{"%", "degrees"}));
  EXPECT_EQ(UnitChoicesFor("Crown Ratio", true), (Items{"codes", "%"}));
  for (const char* type : {"DBH", "Periodic DBH Inc.", "Total Height", "Height to Topkill", "Periodic Height Inc."}) {
    EXPECT_EQ(UnitChoicesFor(type, true), (Items{"m", "dm", "cm", "mm"})) << type;
    EXPECT_EQ(UnitChoicesFor(type, false), (Items{"yards", "feet", "inches"})) << type;
  }
  EXPECT_TRUE(UnitChoicesFor("Plot Aspect", true).empty());
  EXPECT_TRUE(UnitChoicesFor("? column", true).empty());
  EXPECT_TRUE(UnitChoicesFor("dbh", true).empty());
}

TEST(Vocabulary, UnitsOfMeasurementSystemAreTheLengthsOfTheSelectedSystem) {
  for (const char* units : {"cm", "m", "mm", "dm"}) {
    EXPECT_TRUE(IsUnitsOfMeasurementSystem(units, true)) << units;
    EXPECT_FALSE(IsUnitsOfMeasurementSystem(units, false)) << units;
  }
  for (const char* units : {"feet", "yards", "inches"}) {
    EXPECT_TRUE(IsUnitsOfMeasurementSystem(units, false)) << units;
    EXPECT_FALSE(IsUnitsOfMeasurementSystem(units, true)) << units;
  }
  for (const char* units : {"%", "degrees", "codes", "? units", "", "CM"}) {
    EXPECT_FALSE(IsUnitsOfMeasurementSystem(units, true)) << units;
    EXPECT_FALSE(IsUnitsOfMeasurementSystem(units, false)) << units;
  }
}

TEST(Vocabulary, PickListOnlyForCodedTypesAndCrownRatioInCodes) {
  for (const char* type : {"Species", "Tree History", "Damage/Severity - 1", "Damage/Severity - 2",
                           "Damage/Severity - 3", "Tree Value Class", "Cut/Leave Prescription",
                           "Plot US Habitat Type", "Plot Topographic Position", "Plot Site Preparation"})
    EXPECT_TRUE(HasPickList(type, "")) << type;
  EXPECT_TRUE(HasPickList("Crown Ratio", "codes"));
  EXPECT_FALSE(HasPickList("Crown Ratio", "%"));
  for (const char* type : {"? column", "Plot ID", "Tree ID", "Tree Count", "DBH", "Plot Slope", "Plot Aspect",
                           "Plot Topographical Position"})
    EXPECT_FALSE(HasPickList(type, "")) << type;
}

TEST(Vocabulary, HeadingIsTypeCarriageReturnLineFeedUnits) {
  EXPECT_EQ(MakeHeading("DBH", "cm"), "DBH\r\ncm");
  EXPECT_EQ(MakeHeading("Plot ID", ""), "Plot ID\r\n");
  std::string type, units;
  SplitHeading("DBH\r\ncm", type, units);
  EXPECT_EQ(type, "DBH");
  EXPECT_EQ(units, "cm");
  SplitHeading("Plot ID\r\n", type, units);
  EXPECT_EQ(type, "Plot ID");
  EXPECT_EQ(units, "");
}

TEST(Vocabulary, HeadingWithoutCarriageReturnCannotBeSplit) {
  std::string type, units;
  try {
    SplitHeading("c2", type, units);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 5);
  }
  EXPECT_EQ(HeadingType("c2"), "c2");
  EXPECT_EQ(HeadingType("Species\r\n"), "Species");
}

TEST(Vocabulary, OnlyTheFirstCharacterTellsAnUnassignedColumn) {
  EXPECT_FALSE(HeadingIsAssigned("? column\r\n? units"));
  EXPECT_FALSE(HeadingIsAssigned("?anything"));
  EXPECT_TRUE(HeadingIsAssigned("DBH\r\n? units"));
  EXPECT_TRUE(HeadingIsAssigned("c1"));
}

}  // namespace
}  // namespace corvalin
