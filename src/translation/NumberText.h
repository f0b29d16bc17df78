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

// The shortest decimal text of a value (at most 15 significant digits, an
// "E+nn" exponent from 1E+15 on); 0 for both zeros.
std::string ShortestNumberText(double value);

// The locale's decimal mark (LC_NUMERIC).
std::string_view LocaleDecimalPoint();

}  // namespace corvalin
