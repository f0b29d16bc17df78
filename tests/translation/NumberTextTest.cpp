// Reading a cell as a number and writing a number with fixed decimals.
#include <cstdlib>
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>

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

// The fifteen digits by the formatter's scientific writing, as the tree
// list has always rounded from them.
std::string FormatterDigits(double magnitude, int& pointAt) {
  char buffer[40];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific, 14);
  const std::string text(buffer, result.ptr);
  pointAt = 1 + std::stoi(text.substr(text.find('e') + 1));
  return text.substr(0, 1) + text.substr(2, 14);
}

TEST(FifteenDigitsQuickly, AgreesWithTheFormatterOnEveryMagnitudeItTakes) {
  std::mt19937_64 random(20261123);
  std::uniform_real_distribution<double> exponent(-3.0, 12.0);
  std::uniform_int_distribution<int> tenths(0, 999999);
  int taken = 0;
  for (int i = 0; i < 400000; ++i) {
    // Random magnitudes, and the products of typed decimals with the unit
    // factors the records use: the values whose last digit decides.
    const double magnitude = i % 2 == 0 ? std::pow(10.0, exponent(random))
                                        : tenths(random) / 10.0 * (i % 4 == 1 ? 2.540005 : 0.3048006);
    char digits[15];
    int pointAt = 0;
    if (!FifteenDigitsQuickly(magnitude, digits, pointAt)) continue;
    ++taken;
    int expectedPoint = 0;
    const std::string expected = FormatterDigits(magnitude, expectedPoint);
    ASSERT_EQ(std::string(digits, 15), expected) << magnitude;
    ASSERT_EQ(pointAt, expectedPoint) << magnitude;
  }
  // Nearly all of them go the quick way.
  EXPECT_GT(taken, 390000);
}

TEST(FifteenDigitsQuickly, LeavesPowersOfTenTheirFirstDigitAndOutOfRangeMagnitudesToTheFormatter) {
  char digits[15];
  int pointAt = 0;
  for (double power : {1e-3, 1e-2, 0.1, 1.0, 10.0, 1e5, 1e11}) {
    ASSERT_TRUE(FifteenDigitsQuickly(power, digits, pointAt)) << power;
    int expectedPoint = 0;
    EXPECT_EQ(std::string(digits, 15), FormatterDigits(power, expectedPoint)) << power;
    EXPECT_EQ(pointAt, expectedPoint) << power;
  }
  EXPECT_FALSE(FifteenDigitsQuickly(1e12, digits, pointAt));
  EXPECT_FALSE(FifteenDigitsQuickly(0.0009, digits, pointAt));
}

TEST(LeadingNumber, ReadsEveryPlainPrefixAsTheCLibraryDoes) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<int> digit(0, 9);
  std::uniform_int_distribution<int> length(1, 18);
  for (int i = 0; i < 100000; ++i) {
    std::string text = i % 3 == 0 ? "-" : (i % 3 == 1 ? "+" : "");
    const int whole = length(random) % 8;
    for (int k = 0; k < whole; ++k) text += static_cast<char>('0' + digit(random));
    text += '.';
    const int fraction = length(random);
    for (int k = 0; k < fraction; ++k) text += static_cast<char>('0' + digit(random));
    text += i % 2 == 0 ? "x" : " 12";
    ASSERT_EQ(LeadingNumber(text), std::strtod(text.c_str(), nullptr)) << text;
  }
}

}  // namespace
}  // namespace corvalin
