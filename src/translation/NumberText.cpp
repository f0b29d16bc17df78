#include "translation/NumberText.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <locale.h>

#include "shell/Error.h"

namespace corvalin {

namespace {

// A double written in scientific form with 15 significant digits is exactly
// the decimal the number formatter of the model's tools rounds from: the
// binary value 12.349999999999999644... of a typed 12.35 is "1.23500000000000e+01",
// and so it rounds up to 12.4 as the person who typed it expects.
constexpr int kSignificantDigits = 15;
// Tree list fields have at most three decimals; the formatter takes up to 30.
constexpr int kMaxDecimals = 30;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWhite(char c) { return c == ' ' || c == '\t'; }

locale_t ClassicLocale() {
  static locale_t classic = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  return classic;
}

// The fifteen significant digits of a magnitude as the formatter's
// scientific writing gives them, by integer arithmetic where that is sure to
// agree: the product with a power of ten is taken in the wider long double,
// whose error is far below a unit of the last digit, and a product that lies
// too near a half is left to the formatter. The magnitudes of tree list
// fields (1e-3 to 1e12) all go this way.
}  // namespace

bool FifteenDigitsQuickly(double magnitude, char* digits, int& pointAt) {
  static constexpr double kPowers[] = {1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5,
                                       1e6,  1e7,  1e8,  1e9, 1e10, 1e11};
  constexpr int kFirstPower = -3;
  constexpr int kCount = static_cast<int>(sizeof kPowers / sizeof kPowers[0]);
  if (!(magnitude >= kPowers[0]) || magnitude >= 1e12) return false;
  int exponent = kFirstPower;
  while (exponent - kFirstPower + 1 < kCount && magnitude >= kPowers[exponent - kFirstPower + 1]) ++exponent;
  constexpr unsigned long long kLow = 100000000000000ULL;  // 10^14
  // The power estimated from the comparisons can be one off near a power of
  // ten (a tenth has no exact double); the product then says so.
  for (int attempt = 0; attempt < 3; ++attempt) {
    // Powers of ten up to 10^27 are exact in the wider type, so the table
    // holds what multiplying by ten again and again would give.
    static constexpr long double kScales[] = {1e0L,  1e1L,  1e2L,  1e3L,  1e4L,  1e5L,  1e6L,  1e7L,
                                              1e8L,  1e9L,  1e10L, 1e11L, 1e12L, 1e13L, 1e14L, 1e15L,
                                              1e16L, 1e17L, 1e18L, 1e19L, 1e20L};
    const int power = kSignificantDigits - 1 - exponent;
    if (power < 0 || power >= static_cast<int>(sizeof kScales / sizeof kScales[0])) return false;
    const long double product = static_cast<long double>(magnitude) * kScales[power];
    const long double whole = std::floor(product);
    const long double fraction = product - whole;
    if (std::fabs(fraction - 0.5L) < 1e-4L) return false;
    unsigned long long number = static_cast<unsigned long long>(whole) + (fraction > 0.5L ? 1 : 0);
    if (number < kLow) {
      --exponent;
      continue;
    }
    if (number >= 10 * kLow) {
      ++exponent;
      continue;
    }
    for (int i = kSignificantDigits - 1; i >= 0; --i) {
      digits[i] = static_cast<char>('0' + number % 10);
      number /= 10;
    }
    pointAt = 1 + exponent;
    return true;
  }
  return false;
}


std::string_view LocaleDecimalPoint() {
  const char* point = std::localeconv()->decimal_point;
  return (point != nullptr && *point != '\0') ? std::string_view(point) : std::string_view(".");
}

double LeadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsWhite(text[i])) ++i;
  const std::size_t start = i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  int mantissaDigits = 0;
  while (i < text.size() && IsDigit(text[i])) ++i, ++mantissaDigits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && IsDigit(text[i])) ++i, ++mantissaDigits;
  }
  if (mantissaDigits == 0) return 0.0;
  std::size_t end = i;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    if (j < text.size() && IsDigit(text[j])) {
      while (j < text.size() && IsDigit(text[j])) ++j;
      end = j;
    }
  }
  double value = 0.0;
  // The usual prefix, digits with a point and no exponent, is read in place;
  // the reading is the same correctly rounded one.
  const char* first = text.data() + start + (text[start] == '+' ? 1 : 0);
  const char* last = text.data() + end;
  const bool plain = end == i;
  const auto read = plain ? std::from_chars(first, last, value) : std::from_chars_result{first, std::errc::invalid_argument};
  if (!plain || read.ec != std::errc() || read.ptr != last) {
    const std::string number(text.substr(start, end - start));
    value = strtod_l(number.c_str(), nullptr, ClassicLocale());
  }
  if (!std::isfinite(value)) Raise(err::Overflow);
  return value;
}

// A text of digits with at most one point and an optional leading minus:
// what survey cells hold. Read with "." it has the same value whatever the
// locale: where the locale's mark is ".", its conversion reads exactly this;
// where it is another, the conversion stops at the "." and the leading-number
// reading takes over, with ".".
bool PlainDecimal(std::string_view text) {
  std::size_t i = (!text.empty() && text[0] == '-') ? 1 : 0;
  bool digit = false;
  bool point = false;
  for (; i < text.size(); ++i) {
    if (IsDigit(text[i])) {
      digit = true;
    } else if (text[i] == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  return digit;
}

bool LocaleNumber(std::string_view text, double& value) {
  // Only plain decimal writing counts as a number of the locale: the C
  // library would also take hexadecimal, "inf" and "nan".
  for (char c : text) {
    if (c == 'x' || c == 'X' || c == 'n' || c == 'N' || c == 'i' || c == 'I') return false;
  }
  const std::string copy(text);
  const char* begin = copy.c_str();
  char* end = nullptr;
  errno = 0;
  const double read = std::strtod(begin, &end);
  if (end == begin) return false;
  while (*end != '\0' && IsWhite(*end)) ++end;
  if (*end != '\0') return false;
  if (!std::isfinite(read)) return false;
  value = read;
  return true;
}

double CellNumber(std::string_view text) {
  double value = 0.0;
  if (PlainDecimal(text)) {
    const char* begin = text.data() + (text[0] == '-' ? 1 : 0);
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(begin, end, value);
    if (result.ec == std::errc() && result.ptr == end && std::isfinite(value)) return text[0] == '-' ? -value : value;
  }
  if (LocaleNumber(text, value)) return value;
  return LeadingNumber(text);
}

std::string FixedDecimalText(double value, int decimals) {
  if (!std::isfinite(value)) Raise(err::Overflow);
  if (decimals < 0 || decimals > kMaxDecimals) Raise(err::InvalidProcedureCall);
  const bool negative = value < 0;
  const double magnitude = std::fabs(value);

  // The digits d1..d15 and the count of them that stand before the point.
  char digits[kSignificantDigits];
  int pointAt = 1;
  if (magnitude == 0.0) {
    std::memset(digits, '0', sizeof digits);
  } else if (FifteenDigitsQuickly(magnitude, digits, pointAt)) {
    // The common case, without the formatter's cost.
  } else {
    char buffer[40];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                      std::chars_format::scientific, kSignificantDigits - 1);
    const char* e = std::find(buffer, result.ptr, 'e');
    digits[0] = buffer[0];
    std::memcpy(digits + 1, buffer + 2, kSignificantDigits - 1);
    int exponent = 0;
    std::from_chars(e + (e[1] == '+' ? 2 : 1), result.ptr, exponent);
    pointAt = 1 + exponent;
  }

  // Keep the digits up to the last decimal; the first digit dropped decides.
  // A double's point lies at most 309 places from its first digit.
  char kept[kSignificantDigits + 320 + kMaxDecimals];
  int keptLength = 0;
  const int keep = pointAt + decimals;
  if (keep >= kSignificantDigits) {
    std::memcpy(kept, digits, kSignificantDigits);
    std::memset(kept + kSignificantDigits, '0', static_cast<std::size_t>(keep - kSignificantDigits));
    keptLength = keep;
  } else if (keep >= 0) {
    std::memcpy(kept + 1, digits, static_cast<std::size_t>(keep));
    keptLength = keep;
    bool carryOut = false;
    if (digits[keep] >= '5') {
      int k = keep;  // kept[k] is digit k - 1
      while (k >= 1 && kept[k] == '9') kept[k--] = '0';
      if (k >= 1)
        ++kept[k];
      else
        carryOut = true;
    }
    if (carryOut) {
      kept[0] = '1';
      ++keptLength;
      ++pointAt;
    } else {
      std::memmove(kept, kept + 1, static_cast<std::size_t>(keptLength));
    }
  } else {
    // Even the first digit lies beyond the last decimal: the value rounds to 0.
    pointAt = 0;
    std::memset(kept, '0', static_cast<std::size_t>(decimals));
    keptLength = decimals;
  }

  std::string text;
  text.reserve(static_cast<std::size_t>(keptLength) + 4);
  if (negative) text.push_back('-');
  if (pointAt > 0) {
    int first = 0;
    while (first < pointAt && kept[first] == '0') ++first;
    if (first == pointAt)
      text.push_back('0');
    else
      text.append(kept + first, static_cast<std::size_t>(pointAt - first));
  } else {
    text.push_back('0');
  }
  if (decimals > 0) {
    text += LocaleDecimalPoint();
    if (pointAt > 0) {
      text.append(kept + pointAt, static_cast<std::size_t>(decimals));
    } else {
      // The fraction: the zeros up to the first kept digit, then the digits.
      const int zeros = std::min(-pointAt, decimals);
      text.append(static_cast<std::size_t>(zeros), '0');
      text.append(kept, static_cast<std::size_t>(decimals - zeros));
    }
  }
  return text;
}

std::string ShortestNumberText(double value) {
  if (value == 0.0) return "0";
  // A whole number below 15 digits is written as its digits: the common case
  // of a rounded slope, without the formatter's cost.
  if (std::fabs(value) < 1e15 && value == std::trunc(value)) {
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, static_cast<long long>(value));
    return std::string(buffer, result.ptr);
  }
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.*g", kSignificantDigits, value);
  std::string text(buffer);
  for (char& c : text) {
    if (c == 'e') c = 'E';
  }
  return text;
}

}  // namespace corvalin
