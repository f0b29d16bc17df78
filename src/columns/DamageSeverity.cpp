#include "columns/DamageSeverity.h"

namespace corvalin {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlankOrDigit(char c) { return c == ' ' || IsDigit(c); }

std::vector<std::string> MinorSevere() { return {"  1 : Minor", "  2 : Severe"}; }

}  // namespace

const std::vector<DamageFamily>& DamageFamilies() {
  static const std::vector<DamageFamily> families = {
      {1, 9, {"  01 - 09 : Bark beetles"}, 1, 4,
       {"  1 : Unsuccessful bole attack", "  2 : Strip attack", "  3 : Successful bole attack", "  4 : Topkill"}},
      {10, 18, {"  10 - 18 : Defoliators"}, 1, 9,
       {"  1 : Light defoliation,  no topkill", "  2 : Light defoliation, 1-10% topkill",
        "  3 : Light defoliation, >10% topkill", "  4 : Mod. defoliation, no topkill",
        "  5 : Mod. defoliation, 1-10% topkill", "  6 : Mod. defoliation, >10% topkill",
        "  7 : Heavy defoliation, no topkill", "  8 : Heavy defoliation, 1-10% topkill",
        "  9 : Heavy defoliation, >10% topkill"}},
      {20, 22, {"  20 - 22 : Other insects"}, 1, 2, MinorSevere()},
      {30, 34, {"  30 - 34 : Dwarf mistletoe"}, 1, 6,
       {"  1 : Hawksworth classification 1", "  2 : Hawksworth classification 2",
        "  3 : Hawksworth classification 3", "  4 : Hawksworth classification 4",
        "  5 : Hawksworth classification 5", "  6 : Hawksworth classification 6"}},
      {35, 39, {"  35 - 39 : Stem rusts"}, 1, 4,
       {"  1 : Br. infection, >2' from bole", "  2 : Br. infection, 6\"-2' from bole",
        "  3 : Bole inf., or Br. inf. <6\" from bole", "  4 : Topkill"}},
      {40, 42, {"  40 - 42 : Stem cankers"}, 1, 2, MinorSevere()},
      {45, 49, {"  45 - 49 : Stem decays"}, 0, 9,
       {"  0 : < 5% rotten", "  1 : 5-15% rotten", "  2 : 16-25% rotten", "  3 : 26-35% rotten",
        "  4 : 36-45% rotten", "  5 : 46-55% rotten", "  6 : 56-65% rotten", "  7 : 66-75% rotten",
        "  8 : 76-85% rotten", "  9 : 86-100% rotten"}},
      {50, 54, {"  50 - 54 : Foliar pathogens"}, 1, 2, MinorSevere()},
      // Special tree status takes any number 1 to 99; its one item explains
      // that and is no code.
      {55, 55, {"  55      : Special Tree Status"}, 1, 99, {"  1 : Valid values are 1 through 99"}},
      {60, 65, {"  60 - 65 : Root diseases"}, 1, 3,
       {"  1 : Tree within 30' of source", "  2 : Fruiting body, stain, or decay", "  3 : Crown deterioration"}},
      {70, 79, {"  70 - 79 : Animal damage"}, 1, 2, MinorSevere()},
      {80, 88, {"  80 - 88 : Weather damage"}, 1, 2, MinorSevere()},
      {90, 94, {"  90 - 94 : Miscellaneous"}, 1, 2, MinorSevere()},
      {95, 99,
       {"  95 : Physical defect - Unspecified", "  96 : Physical defect - Missing top",
        "  97 : Physical defect - Dead top", "  98 : Physical defect - Fork, crook, sweep",
        "  99 : Physical defect - Checks, bole cracks"},
       0, 9,
       {"  0 : < 5% volume loss", "  1 : 5-15% volume loss", "  2 : 16-25% volume loss",
        "  3 : 26-35% volume loss", "  4 : 36-45% volume loss", "  5 : 46-55% volume loss",
        "  6 : 56-65% volume loss", "  7 : 66-75% volume loss", "  8 : 76-85% volume loss",
        "  9 : 86-100% volume loss"}},
  };
  return families;
}

const DamageFamily* DamageFamilyOf(int damageCode) {
  for (const auto& family : DamageFamilies())
    if (damageCode >= family.firstCode && damageCode <= family.lastCode) return &family;
  return nullptr;
}

std::vector<std::string> DamageItems() {
  std::vector<std::string> items;
  for (const auto& family : DamageFamilies())
    items.insert(items.end(), family.damageItems.begin(), family.damageItems.end());
  return items;
}

int CodeValue(std::string_view text) {
  int value = 0;
  for (char c : text) {
    if (c == ' ') continue;
    if (!IsDigit(c)) break;
    value = value * 10 + (c - '0');
  }
  return value;
}

bool IsValidDamageSeverityPair(std::string_view text) {
  if (text.empty()) return true;
  if (text.size() != 4) return false;
  const std::string_view dmg = text.substr(0, 2);
  const std::string_view sev = text.substr(2, 2);
  const int d = CodeValue(dmg);
  const int s = CodeValue(sev);
  if (d == 55 && !IsBlankOrDigit(sev[0])) return false;
  if (d != 55 && sev[0] != ' ') return false;
  if (!IsDigit(sev[1])) return false;
  if (!IsBlankOrDigit(dmg[0])) return false;
  if (!IsDigit(dmg[1])) return false;
  if (d < 1) return false;
  if (d <= 9 && dmg[0] != ' ' && dmg[0] != '0') return false;
  const DamageFamily* family = DamageFamilyOf(d);
  if (family == nullptr) return false;
  return s >= family->firstSeverity && s <= family->lastSeverity;
}

}  // namespace corvalin
