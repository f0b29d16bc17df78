#include "columns/CellRules.h"

#include <array>

#include "shell/RunState.h"
#include "shell/Text.h"

namespace corvalin {

namespace {

// A string of exactly one character that occurs in the set.
bool IsOneOf(std::string_view text, std::string_view set) {
  return text.size() == 1 && set.find(text.front()) != std::string_view::npos;
}

}  // namespace

bool IsDecimalText(std::string_view text) {
  const std::string trimmed = TrimBlanks(text);
  bool pointSeen = false;
  for (char c : trimmed) {
    if (c == '.') {
      if (pointSeen) return false;
      pointSeen = true;
    } else if (c < '0' || c > '9') {
      return false;
    }
  }
  return true;
}

bool IsValidTreeHistory(std::string_view text) { return text.empty() || IsOneOf(text, "123456789"); }

bool IsValidCrownRatio(std::string_view text) {
  if (Run().UnitsCrownRatio == "codes") return text.empty() || IsOneOf(text, "123456789");
  return text.empty() || IsDecimalText(text);
}

bool IsValidTreeValue(std::string_view text) {
  return text.empty() || text == "1" || text == "2" || text == "3" || text == "8";
}

bool IsValidPrescription(std::string_view text) {
  if (text.empty()) return true;
  if (text.front() >= '1' && text.front() <= '9') return true;
  return text.substr(0, 2) == "10";
}

bool IsValidTopoPosition(std::string_view text) { return text.empty() || IsOneOf(text, "12345"); }

bool IsValidSitePreparation(std::string_view text) { return text.empty() || IsOneOf(text, "1234"); }

bool IsValidHabitatType(std::string_view text) {
  static constexpr std::array<std::string_view, 30> kCodes = {
      "130", "170", "250", "260", "280", "290", "310", "320", "330", "420", "470", "510", "520", "530", "540",
      "550", "570", "610", "620", "640", "660", "670", "680", "690", "710", "720", "730", "830", "850", "999"};
  if (text.empty()) return true;
  for (std::string_view code : kCodes)
    if (text == code) return true;
  return false;
}

}  // namespace corvalin
