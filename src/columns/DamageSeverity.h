// Damage and severity codes. A pair cell holds four characters: the damage
// code in the first two, the severity right-justified in the last two. What
// a severity means, and which are valid, depends on the family of the damage
// code, so the rule and the dialog share one table of families.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvalin {

struct DamageFamily {
  int firstCode;
  int lastCode;
  // The items of cmbDamage for the family: one for a range, one per code for
  // the physical defects.
  std::vector<std::string> damageItems;
  int firstSeverity;
  int lastSeverity;
  std::vector<std::string> severityItems;
};

// The families in the order cmbDamage shows them.
const std::vector<DamageFamily>& DamageFamilies();
// The family of a damage code, or nullptr for a code outside every range.
const DamageFamily* DamageFamilyOf(int damageCode);
// The 18 items of cmbDamage in table order.
std::vector<std::string> DamageItems();

// The numeric value of a short code: blanks are skipped, digits read up to
// the first other character; a text without digits is 0.
int CodeValue(std::string_view text);

// True for the empty cell and for a well-formed pair whose severity is valid
// for its damage family. No trimming: four blanks are no pair.
bool IsValidDamageSeverityPair(std::string_view text);

}  // namespace corvalin
