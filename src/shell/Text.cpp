#include "shell/Text.h"

#include <cctype>

#include "shell/Error.h"

namespace corvalin {

std::string TrimLeftBlanks(std::string_view text) {
  std::size_t b = 0;
  while (b < text.size() && text[b] == ' ') ++b;
  return std::string(text.substr(b));
}

std::string TrimRightBlanks(std::string_view text) {
  std::size_t e = text.size();
  while (e > 0 && text[e - 1] == ' ') --e;
  return std::string(text.substr(0, e));
}

std::string TrimBlanks(std::string_view text) {
  std::size_t b = 0;
  std::size_t e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  return std::string(text.substr(b, e - b));
}

std::string ToUpper(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

std::string ToLower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

bool StartsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::string TrimAtNull(std::string_view text) {
  const auto nul = text.find('\0');
  return std::string(nul == std::string_view::npos ? text : text.substr(0, nul));
}

std::string TrimBufferAtNull(std::string_view text) {
  const auto nul = text.find('\0');
  if (nul == std::string_view::npos) Raise(err::InvalidProcedureCall, "TrimAtNull");
  return std::string(text.substr(0, nul));
}

bool IsYes(std::string_view text) { return !text.empty() && (text.front() == 'Y' || text.front() == 'y'); }

int IsYesValue(std::string_view text) { return IsYes(text) ? 1 : 0; }

std::string YesNoText(int value) { return value == 1 ? "YES" : "NO"; }

bool IsSingleWord(std::string_view text) { return TrimBlanks(text).find(' ') == std::string::npos; }

std::string SqlQuote(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    out += c;
    if (c == '\'') out += '\'';
  }
  return out;
}

std::string MarkTabs(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c == '\t') c = kTabMark;
  return out;
}

}  // namespace corvalin
