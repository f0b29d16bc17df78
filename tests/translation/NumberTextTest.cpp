// Reading a cell as a number and writing a number with fixed decimals.
#include <cstdlib>
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "shell/Error.h"
#include "translation/NumberText.h"

namespace corvalin {
namespace {

TEST(FixedDecimalText, TypedHalfRoundsUpAlthoughItsBinaryValueLiesBelow) {
  // 12.35 is 12.3499999999999996... in binary; written with 15 significant
  // digits it is the tie the person typed, and a tie goes away from zero.
  EXPECT_EQ(FixedDecimalText(12.35, 1), "12.4");
  EXPECT_EQ(FixedDecimalText(-12.35, 1), "-12.4");
  EXPECT_EQ(FixedDecimalText(1.005, 2), "1.01");
}

TEST(FixedDecimalText, WholeNumberTiesRoundAwayFromZero) {
  EXPECT_EQ(FixedDecimalText(25.5, 0), "26");
  EXPECT_EQ(FixedDecimalText(24.5, 0), "25");
  EXPECT_EQ(FixedDecimalText(0.5, 0), "1");
  EXPECT_EQ(FixedDecimalText(-25.5, 0), "-26");
  EXPECT_EQ(FixedDecimalText(-24.5, 0), "-25");
  EXPECT_EQ(FixedDecimalText(25.49, 0), "25");
}

TEST(FixedDecimalText, DecimalsArePaddedWithZeros) {
  EXPECT_EQ(FixedDecimalText(25.5, 3), "25.500");
  EXPECT_EQ(FixedDecimalText(150, 1), "150.0");
  EXPECT_EQ(FixedDecimalText(7, 0), "7");
}

TEST(FixedDecimalText, IntegerPartHasAtLeastOneDigit) {
  EXPECT_EQ(FixedDecimalText(0.25, 1), "0.3");
  EXPECT_EQ(FixedDecimalText(0.04, 1), "0.0");
  EXPECT_EQ(FixedDecimalText(0.05, 1), "0.1");
  EXPECT_EQ(FixedDecimalText(0.0015, 1), "0.0");
  EXPECT_EQ(FixedDecimalText(0.4, 0), "0");
  EXPECT_EQ(FixedDecimalText(1e-300, 3), "0.000");
}

TEST(FixedDecimalText, NegativeValueThatRoundsToZeroKeepsItsSign) {
  EXPECT_EQ(FixedDecimalText(-0.04, 1), "-0.0");
  EXPECT_EQ(FixedDecimalText(-0.4, 0), "-0");
}

TEST(FixedDecimalText, CarryRunsThroughNines) {
  EXPECT_EQ(FixedDecimalText(99.96, 1), "100.0");
  EXPECT_EQ(FixedDecimalText(9.5, 0), "10");
  EXPECT_EQ(FixedDecimalText(-999.5, 0), "-1000");
}

TEST(FixedDecimalText, LargeValuesKeepAllTheirDigits) {
  EXPECT_EQ(FixedDecimalText(1234.5, 1), "1234.5");
  EXPECT_EQ(FixedDecimalText(1e20, 0), "100000000000000000000");
  EXPECT_EQ(FixedDecimalText(123456789012345678.0, 0), "123456789012346000");
}

TEST(FixedDecimalText, RoundingIsJudgedOnFifteenSignificantDigits) {
  // 0.1 * 3 is 0.30000000000000004 in binary: 15 digits make it 0.3.
  EXPECT_EQ(FixedDecimalText(0.1 * 3, 16), "0.3000000000000000");
  EXPECT_EQ(FixedDecimalText(2.675, 2), "2.68");
}

TEST(FixedDecimalText, NotANumberIsOverflow) {
  try {
    FixedDecimalText(1.0 / 0.0, 0);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::Overflow);
  }
}

TEST(LeadingNumber, ReadsTheLongestLeadingNumber) {
  EXPECT_EQ(LeadingNumber("12a"), 12.0);
  EXPECT_EQ(LeadingNumber("abc"), 0.0);
  EXPECT_EQ(LeadingNumber(""), 0.0);
  EXPECT_EQ(LeadingNumber("12.5.3"), 12.5);
  EXPECT_EQ(LeadingNumber("12,5"), 12.0);
  EXPECT_EQ(LeadingNumber("-3.5x"), -3.5);
  EXPECT_EQ(LeadingNumber("+7"), 7.0);
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("5."), 5.0);
  EXPECT_EQ(LeadingNumber("."), 0.0);
  EXPECT_EQ(LeadingNumber("-"), 0.0);
}

TEST(LeadingNumber, SkipsLeadingBlanksAndTabs) {
  EXPECT_EQ(LeadingNumber("  35"), 35.0);
  EXPECT_EQ(LeadingNumber("\t35 "), 35.0);
}

TEST(LeadingNumber, TakesAnExponentOnlyWithDigits) {
  EXPECT_EQ(LeadingNumber("1e3"), 1000.0);
  EXPECT_EQ(LeadingNumber("1E-2"), 0.01);
  EXPECT_EQ(LeadingNumber("12e"), 12.0);
  EXPECT_EQ(LeadingNumber("12e+"), 12.0);
}

TEST(LeadingNumber, NumberBeyondRangeIsOverflow) {
  try {
    LeadingNumber("1e999");
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::Overflow);
  }
}

TEST(LocaleNumber, WholeTextMustBeOneNumber) {
  double value = -1;
  EXPECT_TRUE(LocaleNumber("12.5", value));
  EXPECT_EQ(value, 12.5);
  EXPECT_TRUE(LocaleNumber("-3", value));
  EXPECT_EQ(value, -3.0);
  EXPECT_TRUE(LocaleNumber("1e2", value));
  EXPECT_EQ(value, 100.0);
  EXPECT_TRUE(LocaleNumber("7\t", value));
  EXPECT_EQ(value, 7.0);
  EXPECT_FALSE(LocaleNumber("12a", value));
  EXPECT_FALSE(LocaleNumber("", value));
  EXPECT_FALSE(LocaleNumber("abc", value));
}

TEST(LocaleNumber, HexadecimalInfinityAndNanAreNotNumbers) {
  double value = 0;
  EXPECT_FALSE(LocaleNumber("0x1A", value));
  EXPECT_FALSE(LocaleNumber("inf", value));
  EXPECT_FALSE(LocaleNumber("nan", value));
  EXPECT_FALSE(LocaleNumber("1e999", value));
}

TEST(CellNumber, FallsBackToTheLeadingNumber) {
  EXPECT_EQ(CellNumber("12a"), 12.0);
  EXPECT_EQ(CellNumber("abc"), 0.0);
  EXPECT_EQ(CellNumber("0x1A"), 0.0);
  EXPECT_EQ(CellNumber("3.25"), 3.25);
}

TEST(CellNumber, PlainDecimalsReadAsTheLocalesConversionReadsThem) {
  for (const char* text : {"5.", "-.5", "007", "12.35", "-0", "0.1", "123456789.123456789", "-24.5", "99999999999999999999"}) {
    char* end = nullptr;
    EXPECT_EQ(CellNumber(text), std::strtod(text, &end)) << text;
  }
  EXPECT_EQ(CellNumber("-"), 0.0);
  EXPECT_EQ(CellNumber("."), 0.0);
  EXPECT_EQ(CellNumber("1.2.3"), 1.2);
}

TEST(CellNumber, CommaIsNoDecimalMarkWherePointIsTheLocalesMark) {
  ASSERT_EQ(LocaleDecimalPoint(), ".");
  // The locale's conversion does not take "12,5"; its leading number is 12.
  EXPECT_EQ(CellNumber("12,5"), 12.0);
}

TEST(ShortestNumberText, WholeNumbersHaveNoPoint) {
  EXPECT_EQ(ShortestNumberText(1000), "1000");
  EXPECT_EQ(ShortestNumberText(-5), "-5");
  EXPECT_EQ(ShortestNumberText(0.0), "0");
  EXPECT_EQ(ShortestNumberText(-0.0), "0");
  EXPECT_EQ(ShortestNumberText(0.5), "0.5");
}

TEST(ShortestNumberText, FifteenDigitsThenAnExponent) {
  EXPECT_EQ(ShortestNumberText(999999999999999.0), "999999999999999");
  EXPECT_EQ(ShortestNumberText(1e15), "1E+15");
  EXPECT_EQ(ShortestNumberText(123456789012345678.0), "1.23456789012346E+17");
}

}  // namespace
}  // namespace corvalin
