// The closed vocabulary in which a column is given its meaning: the column
// types, the unit names, the model variants and the fixed code lists behind
// coded columns. Every string here is a key compared exactly; the odd
// spellings are part of what templates and settings already hold.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvalin {

// The unassigned markers of a heading.
inline constexpr const char* UnassignedColumn = "? column";
inline constexpr const char* UnassignedUnits = "? units";

// The grid has a heading over each of the table columns c1..c30.
inline constexpr int kHeadingColumns = 30;

// cmbHeaderChoices, in the order the list shows them.
const std::vector<std::string>& HeaderChoices();
// cmbVariant, in the order the list shows them; "BC" is the default.
const std::vector<std::string>& VariantNames();
inline constexpr const char* DefaultVariant = "BC";

// The fixed pick lists of coded columns.
const std::vector<std::string>& TreeHistoryItems();
const std::vector<std::string>& CrownRatioItems();
const std::vector<std::string>& TreeValueClassItems();
const std::vector<std::string>& CutLeavePrescriptionItems();
const std::vector<std::string>& PlotTopographicalPositionItems();
const std::vector<std::string>& PlotSitePreparationItems();
const std::vector<std::string>& PlotHabitatItems();

// The five types measured in a length unit.
bool IsLengthType(std::string_view type);
// The units offered for a type under the measurement system, in list order
// (empty for a type without units).
std::vector<std::string> UnitChoicesFor(std::string_view type, bool metric);
// Whether units name a length of the selected measurement system.
bool IsUnitsOfMeasurementSystem(std::string_view units, bool metric);
// Whether a column of this assignment shows a drop-down button in its cells.
bool HasPickList(std::string_view type, std::string_view units);

// A heading is type + CR + LF + units.
std::string MakeHeading(std::string_view type, std::string_view units);
// The type before the CR, or the whole heading when it has none.
std::string HeadingType(std::string_view heading);
// Splits a heading at its CR. A heading without one cannot be split: that is
// the invalid procedure call error (5), as for any string cut at position 0.
void SplitHeading(std::string_view heading, std::string& type, std::string& units);
// A column is unassigned when its heading begins with "?".
bool HeadingIsAssigned(std::string_view heading);

}  // namespace corvalin
