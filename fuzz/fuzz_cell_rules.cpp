// The cell predicates and the damage and severity pair rule on any cell
// text, under any crown ratio units. The narrower rules are special cases of
// the wider ones (a site preparation code is a topographic position code is a
// tree history code is a decimal number), and a pair the rule passes is its
// two codes written back in its own padding.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "columns/CellRules.h"
#include "columns/DamageSeverity.h"
#include "shell/RunState.h"

using namespace corvalin;
using fuzz::Require;

namespace {

// A code of at most two digits in two places: blank or zero in front of one digit.
std::string TwoPlaces(int code, char pad) {
  if (code >= 10) return std::to_string(code);
  return std::string(1, pad) + std::to_string(code);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  static const char* const kCrownRatioUnits[] = {"codes", "%", "", "Codes"};
  Run().UnitsCrownRatio = kCrownRatioUnits[in.ConsumeIntegralInRange<std::size_t>(0, 3)];
  const std::string cell = in.ConsumeRemainingBytesAsString();

  const bool decimal = IsDecimalText(cell);
  const bool history = IsValidTreeHistory(cell);
  const bool topo = IsValidTopoPosition(cell);
  const bool preparation = IsValidSitePreparation(cell);
  const bool crownRatio = IsValidCrownRatio(cell);
  const bool treeValue = IsValidTreeValue(cell);
  const bool prescription = IsValidPrescription(cell);
  const bool habitat = IsValidHabitatType(cell);
  const bool pair = IsValidDamageSeverityPair(cell);

  Require(!preparation || topo, "a site preparation code is no topographic position code");
  Require(!topo || history, "a topographic position code is no tree history code");
  Require(!history || decimal, "a tree history code is no decimal number");
  Require(!treeValue || decimal, "a tree value code is no decimal number");
  Require(!habitat || decimal, "a habitat type code is no decimal number");
  Require(!history || cell.empty() || prescription, "a tree history code is no prescription code");
  if (Run().UnitsCrownRatio == "codes")
    Require(crownRatio == history, "a crown ratio code is not a tree history code");
  else
    Require(crownRatio == decimal, "a crown ratio is not a decimal number");
  Require(!cell.empty() || (decimal && history && topo && preparation && crownRatio && treeValue && prescription &&
                            habitat && pair),
          "an empty cell is refused");

  if (pair && !cell.empty()) {
    Require(cell.size() == 4, "a pair that passes is not four characters");
    const int damage = CodeValue(cell.substr(0, 2));
    const int severity = CodeValue(cell.substr(2, 2));
    Require(DamageFamilyOf(damage) != nullptr, "a pair that passes has a damage code of no family");
    Require(TwoPlaces(damage, cell[0]) + TwoPlaces(severity, cell[2]) == cell,
            "a pair that passes is not its codes in two places each");
  }
  return 0;
}
