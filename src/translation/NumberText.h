// Numbers in and out of the tree list record: reading a cell as a number the
// way the system's locale writes numbers, and writing a number with a fixed
// count of decimals as the model's columns want it.
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

// The value of the longest leading part of the text that reads as a number
// ("." as decimal point, optional sign and exponent), after leading blanks
// and tabs; 0 when there is none. "12a" reads 12, "abc" reads 0. A number
// beyond the range of a double raises the overflow error (6).
double LeadingNumber(std::string_view text);

// The locale's conversion of the whole text (leading and trailing white
// space allowed). False when the text is not one number in the locale's
// writing, or is out of range.
bool LocaleNumber(std::string_view text, double& value);

// The locale's conversion, and the leading-number reading when that fails.
double CellNumber(std::string_view text);

// The value with exactly `decimals` decimals, rounded half away from zero as
// judged on its 15-significant-digit decimal form; the integer part has at
// least one digit, a minus sign in front, the locale's decimal mark. No
// padding and no cut.
std::string FixedDecimalText(double value, int decimals);

// The first fifteen significant digits of a positive magnitude, rounded as
// the scientific writing of the formatter rounds them, and the place of the
// point behind the digit pointAt (12.35 gives "123500000000000", 2). False
// when the magnitude lies outside 1e-3 to 1e12 or too near a half for the
// quick way to be sure; the formatter then decides.
bool FifteenDigitsQuickly(double magnitude, char* digits, int& pointAt);

// The shortest decimal text of a value (at most 15 significant digits, an
// "E+nn" exponent from 1E+15 on); 0 for both zeros.
std::string ShortestNumberText(double value);

// The locale's decimal mark (LC_NUMERIC).
std::string_view LocaleDecimalPoint();

}  // namespace corvalin
