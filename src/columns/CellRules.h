// The cell predicates: one small rule per coded or measured column type.
// They word nothing; ValidateTable words the fault and the grid paints the
// cell red. All take the cell's text as it stands and, unless told, do not
// trim it: a "3 " is no tree history code while it is a decimal number.
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

// The program's only notion of a number in a cell: after trimming blanks,
// digits and at most one point. "", ".", "007" and "1." are numbers.
bool IsDecimalText(std::string_view text);
bool IsValidTreeHistory(std::string_view text);
// Reads UnitsCrownRatio of the run state: "codes" takes one digit 1 to 9,
// any other units a decimal.
bool IsValidCrownRatio(std::string_view text);
bool IsValidTreeValue(std::string_view text);
// Only the start of the value counts: "12" and "5X" pass, "0" and "A1" fail.
bool IsValidPrescription(std::string_view text);
bool IsValidTopoPosition(std::string_view text);
bool IsValidSitePreparation(std::string_view text);
bool IsValidHabitatType(std::string_view text);

}  // namespace corvalin
