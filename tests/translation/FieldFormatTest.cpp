// The field formatters of the tree list record, on the text of one cell.
#include <gtest/gtest.h>

#include <string>

#include "shell/Error.h"
#include "translation/TreeRecord.h"

namespace corvalin {
namespace {

TEST(RightTextField, TrimsCutsToFirstCharactersAndPadsInFront) {
  EXPECT_EQ(RightTextField("7", 4), "   7");
  EXPECT_EQ(RightTextField("ABCDEFG", 4), "ABCD");
  EXPECT_EQ(RightTextField("  12  ", 4), "  12");
  EXPECT_EQ(RightTextField("", 3), "   ");
  EXPECT_EQ(RightTextField("A B", 4), " A B");
}

TEST(LeftTextField, TrimsCutsToFirstCharactersAndPadsBehind) {
  EXPECT_EQ(LeftTextField("df", 3), "df ");
  EXPECT_EQ(LeftTextField(" d ", 3), "d  ");
  EXPECT_EQ(LeftTextField("ABCD", 3), "ABC");
  EXPECT_EQ(LeftTextField("", 3), "   ");
}

TEST(RightTextField, OnlyBlanksAreTrimmedNotTabs) {
  EXPECT_EQ(RightTextField("\t7", 3), " \t7");
}

TEST(UnassignedField, IsBlanksOfTheWidth) {
  EXPECT_EQ(UnassignedField(4), "    ");
  EXPECT_EQ(UnassignedField(1), " ");
}

TEST(NumberField, EmptyOrBlankCellGivesBlanks) {
  EXPECT_EQ(NumberField("", 6, 0, 1), "      ");
  EXPECT_EQ(NumberField("   ", 8, 3, 1), "        ");
}

TEST(NumberField, ExactZeroGivesBlanksButAValueRoundingToZeroPrints) {
  EXPECT_EQ(NumberField("0", 6, 0, 1), "      ");
  EXPECT_EQ(NumberField("0.0", 8, 3, 1), "        ");
  EXPECT_EQ(NumberField("0.4", 6, 0, 1), "     0");
  EXPECT_EQ(NumberField("0.0001", 8, 3, 1), "   0.000");
}

TEST(NumberField, FactorOfZeroLeavesTheFieldBlank) {
  EXPECT_EQ(NumberField("80", 3, 0, 0), "   ");
}

TEST(NumberField, TreeCountTieRoundsAwayFromZero) {
  EXPECT_EQ(NumberField("25.5", 6, 0, 1), "    26");
  EXPECT_EQ(NumberField("24.5", 6, 0, 1), "    25");
  EXPECT_EQ(NumberField("25.5", 8, 3, 1), "  25.500");
}

TEST(NumberField, TypedTieOfOneDecimalRoundsUp) {
  EXPECT_EQ(NumberField("12.35", 5, 1, 1), " 12.4");
}

TEST(NumberField, NegativeValuesCarryTheSignInFront) {
  EXPECT_EQ(NumberField("-12.35", 6, 1, 1), " -12.4");
  EXPECT_EQ(NumberField("-2.5", 4, 0, 1), "  -3");
  EXPECT_EQ(NumberField("-0.04", 5, 1, 1), " -0.0");
}

TEST(NumberField, TooWideAValueKeepsItsLastCharacters) {
  EXPECT_EQ(NumberField("1234.5", 5, 1, 1), "234.5");
  EXPECT_EQ(NumberField("12345", 4, 0, 10), "3450");
  EXPECT_EQ(NumberField("-123", 3, 0, 1), "123");
}

TEST(NumberField, NonNumericTextReadsItsLeadingNumber) {
  EXPECT_EQ(NumberField("12a", 4, 0, 1), "  12");
  EXPECT_EQ(NumberField("abc", 4, 0, 1), "    ");
}

TEST(NumberField, CommaDecimalMarkReadsItsLeadingNumberWherePointIsTheMark) {
  EXPECT_EQ(NumberField("12,7", 5, 1, 1), " 12.0");
}

TEST(NumberField, DbhInInchesInTheMetricRecord) {
  EXPECT_EQ(NumberField("12.3", 5, 1, 2.540005), " 31.2");
}

TEST(NumberField, DbhInInchesInTheImperialRecord) {
  EXPECT_EQ(NumberField("12.3", 4, 0, 10), " 123");
}

TEST(NumberField, TotalHeightInFeetInBothRecords) {
  EXPECT_EQ(NumberField("80", 4, 1, 0.3048006), "24.4");
  EXPECT_EQ(NumberField("80", 3, 0, 1), " 80");
}

TEST(NumberField, ProductBeyondRangeIsOverflow) {
  try {
    NumberField("1e308", 5, 0, 393.700012);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::Overflow);
  }
}

TEST(RoundValue, OddIntegerPartRoundsHalfUp) {
  EXPECT_EQ(RoundValue(3.5, 0), 4.0);
  EXPECT_EQ(RoundValue(1.5422, 0), 2.0);
  EXPECT_EQ(RoundValue(1.4995, 0), 1.0);
  EXPECT_EQ(RoundValue(35, 0), 35.0);
}

TEST(RoundValue, EvenIntegerPartNeedsSixTenthsToGoUp) {
  EXPECT_EQ(RoundValue(2.5, 0), 2.0);
  EXPECT_EQ(RoundValue(2.55, 0), 2.0);
  EXPECT_EQ(RoundValue(2.6, 0), 3.0);
  EXPECT_EQ(RoundValue(0.5, 0), 0.0);
  EXPECT_EQ(RoundValue(0.4636, 0), 0.0);
  EXPECT_EQ(RoundValue(1000, 0), 1000.0);
}

TEST(RoundValue, NegativeValuesMirrorPositiveOnes) {
  EXPECT_EQ(RoundValue(-2.5, 0), -2.0);
  EXPECT_EQ(RoundValue(-2.6, 0), -3.0);
  EXPECT_EQ(RoundValue(-3.5, 0), -4.0);
  EXPECT_EQ(RoundValue(0.0, 0), 0.0);
}

TEST(RoundValue, DigitsScaleBeforeTheRounding) {
  EXPECT_EQ(RoundValue(0.35, 1), 0.4);   // t = 3, odd
  EXPECT_EQ(RoundValue(0.25, 1), 0.2);   // t = 2, even
  EXPECT_EQ(RoundValue(0.26, 1), 0.3);
}

TEST(SlopeField, PercentSlopeIsItsArcTangentInRadians) {
  EXPECT_EQ(SlopeField("35", 3, true), "  2");
  EXPECT_EQ(SlopeField("14", 3, true), "  1");
  EXPECT_EQ(SlopeField("0.5", 3, true), "  0");
  EXPECT_EQ(SlopeField("35", 2, true), " 2");
}

TEST(SlopeField, DegreesAreRoundedByTheProgramsOwnRounding) {
  EXPECT_EQ(SlopeField("35", 3, false), " 35");
  EXPECT_EQ(SlopeField("2.5", 3, false), "  2");
  EXPECT_EQ(SlopeField("3.5", 3, false), "  4");
}

TEST(SlopeField, TooWideASlopeKeepsItsFirstCharacters) {
  EXPECT_EQ(SlopeField("1000", 2, false), "10");
  EXPECT_EQ(SlopeField("1000", 3, false), "100");
}

TEST(SlopeField, EmptyOrNonNumericSlopePrintsZero) {
  EXPECT_EQ(SlopeField("", 3, false), "  0");
  EXPECT_EQ(SlopeField("", 2, true), " 0");
  EXPECT_EQ(SlopeField("steep", 3, false), "  0");
}

TEST(SlopeField, NegativeSlopeKeepsItsSign) {
  EXPECT_EQ(SlopeField("-35", 3, false), "-35");
  EXPECT_EQ(SlopeField("-35", 3, true), " -2");
  EXPECT_EQ(SlopeField("-0.3", 3, false), "  0");
}

TEST(SlopeField, LeadingBlanksAreReadOver) {
  EXPECT_EQ(SlopeField("  12", 3, false), " 12");
}

TEST(CrownRatioField, PercentMapsToTheCodeOfItsTenth) {
  EXPECT_EQ(CrownRatioField("45", "%"), "5");
  EXPECT_EQ(CrownRatioField("81", "%"), "9");
  EXPECT_EQ(CrownRatioField("100", "%"), "9");
  EXPECT_EQ(CrownRatioField("0", "%"), " ");
}

TEST(CrownRatioField, BoundsBelongToTheLowerCode) {
  const char* expected[] = {"1", "2", "2", "3", "3", "4", "4", "5", "5", "6", "6", "7", "7", "8", "8", "9"};
  const char* cells[] = {"10", "10.5", "20", "20.01", "30", "31", "40", "41", "50", "51", "60", "61", "70", "71", "80", "80.5"};
  for (int i = 0; i < 16; ++i) EXPECT_EQ(CrownRatioField(cells[i], "%"), expected[i]) << cells[i];
  EXPECT_EQ(CrownRatioField("11", "%"), "2");
  EXPECT_EQ(CrownRatioField("0.1", "%"), "1");
}

TEST(CrownRatioField, NegativePercentGivesCodeOne) {
  EXPECT_EQ(CrownRatioField("-5", "%"), "1");
}

TEST(CrownRatioField, NonNumericOrEmptyPercentGivesOneBlank) {
  EXPECT_EQ(CrownRatioField("high", "%"), " ");
  EXPECT_EQ(CrownRatioField("", "%"), " ");
}

TEST(CrownRatioField, CodesGoOutAsTypedWithoutACut) {
  EXPECT_EQ(CrownRatioField("3", "codes"), "3");
  EXPECT_EQ(CrownRatioField(" 3 ", "codes"), "3");
  EXPECT_EQ(CrownRatioField("12", "codes"), "12");
  EXPECT_EQ(CrownRatioField("", "codes"), " ");
}

TEST(CrownRatioField, UnitsOtherThanCodesAreReadAsPercent) {
  EXPECT_EQ(CrownRatioField("45", "? units"), "5");
  EXPECT_EQ(CrownRatioField("45", ""), "5");
}

}  // namespace
}  // namespace corvalin
