// The cell rules and the tree list field writers on any cell text: the
// predicates answer, and every field comes out exactly as wide as its place
// in the record (a crown ratio code typed in "codes" excepted, which goes out
// as typed). The one failure allowed is the overflow of a number too large.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>

#include "columns/CellRules.h"
#include "columns/DamageSeverity.h"
#include "shell/Error.h"
#include "translation/TreeRecord.h"

using namespace corvalin;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  const std::string_view cell(reinterpret_cast<const char*>(data), size);
  (void)IsDecimalText(cell);
  (void)IsValidTreeHistory(cell);
  (void)IsValidCrownRatio(cell);
  (void)IsValidTreeValue(cell);
  (void)IsValidPrescription(cell);
  (void)IsValidTopoPosition(cell);
  (void)IsValidSitePreparation(cell);
  (void)IsValidHabitatType(cell);
  (void)IsValidDamageSeverityPair(cell);
  try {
    for (const auto& [width, decimals, factor] :
         {std::tuple{8, 3, 1.0}, {5, 1, 2.540005}, {4, 0, 10.0}, {3, 0, 0.083333333}, {6, 1, 0.0}}) {
      if (NumberField(cell, width, decimals, factor).size() != static_cast<std::size_t>(width)) std::abort();
    }
    if (SlopeField(cell, 3, true).size() != 3 || SlopeField(cell, 2, false).size() != 2) std::abort();
    if (CrownRatioField(cell, "%").size() != 1) std::abort();
  } catch (const RuntimeError& error) {
    if (error.number() != err::Overflow) std::abort();
  }
  return 0;
}
