#include "translation/NumberText.h"

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

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWhite(char c) { return c == ' ' || c == '\t'; }

locale_t ClassicLocale() {
  static locale_t classic = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  return classic;
}

}  // namespace

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
  const std::string number(text.substr(start, end - start));
  const double value = strtod_l(number.c_str(), nullptr, ClassicLocale());
  if (!std::isfinite(value)) Raise(err::Overflow);
  return value;
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
  if (LocaleNumber(text, value)) return value;
  return LeadingNumber(text);
}

std::string FixedDecimalText(double value, int decimals) {
  if (!std::isfinite(value)) Raise(err::Overflow);
  const bool negative = value < 0;
  const double magnitude = std::fabs(value);

  // The digits d1..d15 and the count of them that stand before the point.
  std::string digits;
  int pointAt = 1;
  if (magnitude == 0.0) {
    digits.assign(kSignificantDigits, '0');
  } else {
    char buffer[40];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                      std::chars_format::scientific, kSignificantDigits - 1);
    const std::string_view written(buffer, static_cast<std::size_t>(result.ptr - buffer));
    const std::size_t e = written.find('e');
    digits.reserve(kSignificantDigits);
    digits.push_back(written[0]);
    digits.append(written.substr(2, e - 2));
    pointAt = 1 + std::atoi(std::string(written.substr(e + 1)).c_str());
  }

  // Keep the digits up to the last decimal; the first digit dropped decides.
  const int keep = pointAt + decimals;
  std::string kept;
  if (keep >= static_cast<int>(digits.size())) {
    kept = digits;
    kept.append(static_cast<std::size_t>(keep) - digits.size(), '0');
  } else if (keep >= 0) {
    kept = digits.substr(0, static_cast<std::size_t>(keep));
    if (digits[static_cast<std::size_t>(keep)] >= '5') {
      int k = keep - 1;
      while (k >= 0 && kept[static_cast<std::size_t>(k)] == '9') kept[static_cast<std::size_t>(k--)] = '0';
      if (k >= 0) {
        ++kept[static_cast<std::size_t>(k)];
      } else {
        kept.insert(kept.begin(), '1');
        ++pointAt;
      }
    }
  } else {
    // Even the first digit lies beyond the last decimal: the value rounds to 0.
    pointAt = 0;
    kept.assign(static_cast<std::size_t>(decimals), '0');
  }

  std::string integerPart;
  std::string fraction;
  if (pointAt > 0) {
    integerPart = kept.substr(0, static_cast<std::size_t>(pointAt));
    fraction = kept.substr(static_cast<std::size_t>(pointAt));
  } else {
    fraction.assign(static_cast<std::size_t>(-pointAt), '0');
    fraction += kept;
  }
  const std::size_t firstNonZero = integerPart.find_first_not_of('0');
  integerPart = firstNonZero == std::string::npos ? std::string("0") : integerPart.substr(firstNonZero);

  std::string text;
  text.reserve(integerPart.size() + fraction.size() + 3);
  if (negative) text.push_back('-');
  text += integerPart;
  if (decimals > 0) {
    text += LocaleDecimalPoint();
    text += fraction.substr(0, static_cast<std::size_t>(decimals));
  }
  return text;
}

std::string ShortestNumberText(double value) {
  if (value == 0.0) return "0";
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.*g", kSignificantDigits, value);
  std::string text(buffer);
  for (char& c : text) {
    if (c == 'e') c = 'E';
  }
  return text;
}

}  // namespace corvalin
