#include "columns/SpeciesCodes.h"

#include <unordered_map>
#include <utility>

#include "shell/Text.h"

namespace corvalin {

namespace {

SpeciesList gSpeciesCodes{};

struct VariantRow {
  const char* variant;
  SpeciesList codes;
};

// The slot order is the model's and must stay as it is: never compacted,
// never sorted. "WS" really has "TO" twice.
const std::array<VariantRow, 15>& VariantRows() {
  static const std::array<VariantRow, 15> rows = {{
      {"AK", {"WS", "RC", "SF", "MH", "WH", "YC", "LP", "SS", "AF", "HD", "--", "--", "--", "--", "--"}},
      {"BC", {"PW", "LW", "FD", "BG", "HW", "CW", "PL", "SE", "BL", "PY", "EP", "AT", "CT", "OC", "OH"}},
      {"BH", {"CW", "OS", "DF", "--", "OH", "AS", "LP", "WS", "--", "PP", "J", "--", "--", "--", "--"}},
      {"BM", {"WP", "WL", "DF", "WF", "WH", "GF", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
      {"CI", {"WP", "WL", "DF", "GF", "WH", "RC", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
      {"EC", {"WP", "WL", "DF", "SF", "--", "GF", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
      {"EM", {"WB", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "MH", "--", "--", "--", "--"}},
      {"NC", {"OC", "SP", "DF", "WF", "M", "IC", "BO", "TO", "RF", "PP", "SF", "--", "--", "--", "--"}},
      {"NI", {"WP", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "MH", "--", "--", "--", "--"}},
      {"SO", {"WP", "SP", "DF", "WF", "MH", "IC", "LP", "ES", "RF", "PP", "--", "--", "--", "--", "--"}},
      {"SW", {"WP", "OS", "DF", "WF", "SF", "AS", "BS", "ES", "AF", "PP", "CB", "--", "--", "--", "--"}},
      {"TT", {"WB", "LM", "DF", "--", "--", "AS", "LP", "ES", "AF", "--", "--", "--", "--", "--", "--"}},
      {"UT", {"WB", "LM", "DF", "WF", "--", "AS", "LP", "ES", "AF", "PP", "--", "--", "--", "--", "--"}},
      {"WS", {"OC", "SP", "DF", "WF", "GS", "IC", "TO", "JP", "RF", "PP", "TO", "--", "--", "--", "--"}},
      {"KT", {"WP", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "OTH", "--", "--", "--", "--"}},
  }};
  return rows;
}

// The keys with a trailing blank stay although a trimmed cell can never
// reach them; "L" alone is the one bare single letter.
const std::vector<std::pair<std::string, std::string>>& BuildBcKeys() {
  static const std::vector<std::pair<std::string, std::string>> keys = [] {
    const std::vector<std::pair<const char*, std::vector<const char*>>> groups = {
        {"PW", {"PW"}},
        {"LW", {"LW", "L"}},
        {"FD", {"FD", "F ", "FDI", "FDC"}},
        {"BG", {"BG"}},
        {"HW", {"HW", "H ", "HM"}},
        {"CW", {"CW", "C "}},
        {"PL", {"PL"}},
        {"SE", {"SE", "SX", "S ", "SW", "SB", "SS"}},
        {"BL", {"BL", "B "}},
        {"PY", {"PY"}},
        {"EP", {"EP", "E "}},
        {"AT", {"AT"}},
        {"CT", {"AC", "CT"}},
        {"OC", {"OC", "Y ", "YC", "YP", "BA", "J ", "JR", "LA", "LT", "P ", "PJ", "PF", "PX", "PA", "T ", "TW",
                "X ", "XC", "Z ", "ZC", "BB", "BP", "BM", "BC", "OA", "OB", "PM", "PR", "PS", "SN", "OT"}},
        {"OH", {"OH", "D ", "DR", "U ", "UP", "A ", "AX", "R ", "RA", "EA", "EX", "EW", "K ", "KC", "V ", "VB",
                "VV", "VP", "G ", "GP", "M ", "MB", "MV", "Q ", "QG", "W ", "WB", "WP", "WA", "WD", "WS", "WT",
                "XH", "ZH", "UA", "AD", "EE", "ES", "VS", "ME", "MN", "MS", "OD", "OE", "OF", "OG", "QE"}},
    };
    std::vector<std::pair<std::string, std::string>> out;
    for (const auto& [target, members] : groups)
      for (const char* key : members) out.emplace_back(key, target);
    return out;
  }();
  return keys;
}

}  // namespace

SpeciesList& SpeciesCodes() { return gSpeciesCodes; }
void ResetSpeciesCodes() { gSpeciesCodes = SpeciesList{}; }

const SpeciesList* SpeciesRowOf(std::string_view variant) {
  for (const auto& row : VariantRows())
    if (variant == row.variant) return &row.codes;
  return nullptr;
}

const std::vector<std::pair<std::string, std::string>>& BcSpeciesKeys() { return BuildBcKeys(); }

void MapBcSpecies(std::string& code) {
  static const std::unordered_map<std::string, std::string> map(BuildBcKeys().begin(), BuildBcKeys().end());
  const auto found = map.find(ToUpper(code));
  code = found == map.end() ? std::string() : found->second;
}

bool IsValidSpecies(std::string& text, const std::string& variant) {
  std::string key = TrimBlanks(ToUpper(text));
  if (variant != "BC") {
    for (const std::string& code : gSpeciesCodes)
      if (key == code) return true;
    return false;
  }
  MapBcSpecies(key);
  if (key.empty()) return false;
  text = key;
  return true;
}

}  // namespace corvalin
