#include "columns/ValidateTable.h"

#include <array>
#include <string>
#include <string_view>

#include "columns/CellRules.h"
#include "columns/DamageSeverity.h"
#include "columns/SpeciesCodes.h"
#include "columns/Vocabulary.h"
#include "shell/Error.h"
#include "shell/FirstRowThat.h"
#include "shell/RunState.h"
#include "shell/Text.h"

namespace corvalin {

namespace {

// A fault: the message, and the cell to show with it.
bool Fault(ValidationResult& result, const std::string& text, int16_t column = -1,
           Recordset::Bookmark row = -1) {
  result.fault = text;
  result.column = column;
  result.row = row;
  return false;
}

// The types that carry units. A length takes a length unit of the grid's
// measurement system; the others are measured on a scale of their own and
// take one of their two scales.
struct UnitType {
  const char* type;
  int16_t RunState::*column;
  std::string RunState::*units;
  const char* mustSpecify;
  const char* invalid;
  std::array<std::string_view, 2> scales;  // none for a length
};

// The height increment's bad unit reports the diameter increment's words:
// users and their scripts know this message as it stands.
constexpr std::array<UnitType, 7> kUnitTypes = {{
    {"DBH", &RunState::ColDbh, &RunState::UnitsDbh, "Must specify units for DBH column.",
     "Invalid units for DBH column.", {}},
    {"Periodic DBH Inc.", &RunState::ColDbhInc, &RunState::UnitsDbhInc,
     "Must specify units for Periodic DBH Inc. column.", "Invalid units for Periodic DBH Inc. column.", {}},
    {"Total Height", &RunState::ColTotalHeight, &RunState::UnitsTotalHeight,
     "Must specify units for Total Height column.", "Invalid units for Total Height column.", {}},
    {"Height to Topkill", &RunState::ColTopkillHeight, &RunState::UnitsTopkillHeight,
     "Must specify units for Height to Topkill column.", "Invalid units for Height to Topkill column.", {}},
    {"Periodic Height Inc.", &RunState::ColHeightInc, &RunState::UnitsHeightInc,
     "Must specify units for Periodic Height Inc. column.", "Invalid units for Periodic DBH Inc. column.", {}},
    {"Crown Ratio", &RunState::ColCrownRatio, &RunState::UnitsCrownRatio,
     "Must specify units for Crown Ratio column.", "Invalid units for Crown Ratio column.", {"codes", "%"}},
    {"Plot Slope", &RunState::ColPlotSlope, &RunState::UnitsPlotSlope, "Must specify units for Plot Slope column.",
     "Invalid units for Plot Slope column.", {"degrees", "%"}},
}};

struct IndexOnlyType {
  const char* type;
  int16_t RunState::*column;
};

constexpr std::array<IndexOnlyType, 14> kIndexOnlyTypes = {{
    {"Plot ID", &RunState::ColPlotId},
    {"Tree ID", &RunState::ColTreeId},
    {"Tree Count", &RunState::ColTreeCount},
    {"Tree History", &RunState::ColTreeHistory},
    {"Species", &RunState::ColSpecies},
    {"Damage/Severity - 1", &RunState::ColDamage1},
    {"Damage/Severity - 2", &RunState::ColDamage2},
    {"Damage/Severity - 3", &RunState::ColDamage3},
    {"Tree Value Class", &RunState::ColTreeValue},
    {"Cut/Leave Prescription", &RunState::ColPrescription},
    {"Plot Aspect", &RunState::ColPlotAspect},
    {"Plot US Habitat Type", &RunState::ColHabitatType},
    {"Plot Topographic Position", &RunState::ColTopoPosition},
    {"Plot Site Preparation", &RunState::ColSitePreparation},
}};

constexpr std::array<int16_t RunState::*, 21> kAllIndexes = {
    &RunState::ColPlotId,       &RunState::ColTreeId,         &RunState::ColTreeCount,
    &RunState::ColTreeHistory,  &RunState::ColSpecies,        &RunState::ColDbh,
    &RunState::ColDbhInc,       &RunState::ColTotalHeight,    &RunState::ColTopkillHeight,
    &RunState::ColHeightInc,    &RunState::ColCrownRatio,     &RunState::ColDamage1,
    &RunState::ColDamage2,      &RunState::ColDamage3,        &RunState::ColTreeValue,
    &RunState::ColPrescription, &RunState::ColPlotSlope,      &RunState::ColPlotAspect,
    &RunState::ColHabitatType,  &RunState::ColTopoPosition,   &RunState::ColSitePreparation,
};

// The column pass for one heading: false after a reported fault.
bool CheckAssignment(const ValidationInput& input, ValidationResult& result, int16_t i, const std::string& type,
                     const std::string& units) {
  RunState& run = Run();
  const auto faultAtColumn = [&](const char* text) { return Fault(result, text, i); };
  if (type == UnassignedColumn) return true;
  for (const IndexOnlyType& t : kIndexOnlyTypes) {
    if (type != t.type) continue;
    run.*t.column = i;
    return true;
  }
  for (const UnitType& t : kUnitTypes) {
    if (type != t.type) continue;
    run.*t.column = i;
    if (units == UnassignedUnits) return faultAtColumn(t.mustSpecify);
    const bool isLength = t.scales[0].empty();
    if (isLength) {
      if (units == "degrees" || units == "%" || units == "codes") return faultAtColumn(t.invalid);
      if (!IsUnitsOfMeasurementSystem(units, input.metric)) return faultAtColumn("Incorrect units (metric/imperial).");
    } else if (units != t.scales[0] && units != t.scales[1]) {
      return faultAtColumn(t.invalid);
    }
    run.*t.units = units;
    return true;
  }
  return Fault(result, "ERROR - unknown column type.");
}

// The fields c1..c30 of the row set, found once for the whole row pass.
struct CellFields {
  explicit CellFields(const Recordset& rows) : rows_(rows) {
    for (int n = 1; n <= 30; ++n) index_[static_cast<std::size_t>(n)] = rows.FieldIndex("c" + std::to_string(n));
  }
  int Of(int16_t column) const {
    const int index = column >= 1 && column <= 30 ? index_[static_cast<std::size_t>(column)] : -1;
    // A column the row set lacks fails as reading it by name would.
    return index >= 0 ? index : rows_.RequireField("c" + std::to_string(column));
  }

 private:
  const Recordset& rows_;
  std::array<int, 31> index_{};
};

// The columns a tree list cannot do without, in the order they are asked for.
struct RequiredColumn {
  int16_t RunState::*column;
  const char* missing;
};

constexpr std::array<RequiredColumn, 5> kRequiredColumns = {{
    {&RunState::ColPlotId, "Plot ID column is required."},
    {&RunState::ColTreeId, "Tree ID column is required."},
    {&RunState::ColTreeCount, "Tree Count column is required."},
    {&RunState::ColSpecies, "Species column is required."},
    {&RunState::ColDbh, "DBH column is required."},
}};

// The checks of one cell each that follow the diameter, in their order; each
// fault selects the row.
struct CellCheck {
  int16_t RunState::*column;
  bool (*valid)(std::string_view cell);
  const char* message;
};

constexpr std::array<CellCheck, 15> kCellChecks = {{
    {&RunState::ColDbhInc, IsDecimalText, "Invalid Periodic DBH Inc. value."},
    {&RunState::ColTotalHeight, IsDecimalText, "Invalid Total Height value."},
    {&RunState::ColTopkillHeight, IsDecimalText, "Invalid Height to Topkill value."},
    {&RunState::ColHeightInc, IsDecimalText, "Invalid Periodic Height Inc. value."},
    {&RunState::ColCrownRatio, IsValidCrownRatio, "Invalid Crown Ratio Code."},
    {&RunState::ColDamage1, IsValidDamageSeverityPair, "Invalid Damage Severity Pair - 1."},
    {&RunState::ColDamage2, IsValidDamageSeverityPair, "Invalid Damage Severity Pair - 2."},
    {&RunState::ColDamage3, IsValidDamageSeverityPair, "Invalid Damage Severity Pair - 3."},
    {&RunState::ColTreeValue, IsValidTreeValue, "Invalid Tree Value Code."},
    {&RunState::ColPrescription, IsValidPrescription, "Invalid Cut or Leave Prescription Code."},
    {&RunState::ColPlotSlope, IsDecimalText, "Invalid Plot Slope value."},
    {&RunState::ColPlotAspect, IsDecimalText, "Invalid Plot Aspect value."},
    {&RunState::ColHabitatType, IsValidHabitatType, "Invalid Plot US Habitat Type value."},
    {&RunState::ColTopoPosition, IsValidTopoPosition, "Invalid Plot Topographical Code."},
    {&RunState::ColSitePreparation, IsValidSitePreparation, "Invalid Plot Site Preparation Code."},
}};

// The cell checks of one row taking part, in their fixed order.
bool CheckRow(const ValidationInput& input, ValidationResult& result, const Recordset& rows, Recordset::Bookmark row,
              const CellFields& fields) {
  const RunState& run = Run();
  // The cell's text as it stands; a Null cannot be read as text.
  const auto cell = [&](int16_t column) {
    const auto value = rows.CellAt(row, fields.Of(column));
    if (!value) Raise(err::InvalidUseOfNull, "ValidateTable");
    return *value;
  };
  const auto faultAtRow = [&](const char* text) { return Fault(result, text, -1, row); };
  if (run.ColPlotId != -1 && TrimBlanks(cell(run.ColPlotId)).empty()) return faultAtRow("Invalid Plot Id.");
  // The next three leave the selection where it is.
  if (run.ColTreeId != -1 && TrimBlanks(cell(run.ColTreeId)).empty()) return Fault(result, "Invalid Tree Id.");
  if (run.ColTreeCount != -1) {
    const std::string count = TrimBlanks(cell(run.ColTreeCount));
    if (count == "0" || count.empty()) return Fault(result, "Tree Count is required.");
    if (!IsDecimalText(count)) return Fault(result, "Invalid Tree Count.");
  }
  if (run.ColTreeHistory != -1 && !IsValidTreeHistory(cell(run.ColTreeHistory)))
    return faultAtRow("Invalid Tree History Code.");
  if (run.ColSpecies != -1) {
    // A copy: the mapped "BC" code is not written back to the table.
    std::string species(cell(run.ColSpecies));
    if (!IsValidSpecies(species, input.variant)) return faultAtRow("Invalid Species Code.");
  }
  if (run.ColDbh != -1) {
    const std::string_view dbh = cell(run.ColDbh);
    if (TrimBlanks(dbh).empty()) return faultAtRow("DBH value is required.");
    if (!IsDecimalText(dbh)) return faultAtRow("Invalid DBH value.");
  }
  for (const CellCheck& check : kCellChecks) {
    const int16_t column = run.*check.column;
    if (column != -1 && !check.valid(cell(column))) return faultAtRow(check.message);
  }
  return true;
}

}  // namespace

ValidationResult ValidateTable(const ValidationInput& input) {
  RunState& run = Run();
  ValidationResult result;
  const std::array<std::string, 32>& headings = input.headings;
  // The units are not reset: they keep their last value until overwritten.
  for (int16_t RunState::*index : kAllIndexes) run.*index = -1;

  // Headings that are still the plain field names: the screen was loaded but
  // never shown, and there is nothing to check against.
  if (headings[1].find('\r') == std::string::npos) return result;

  const int16_t columnCount = run.ColumnCount;
  for (int16_t i = 1; i <= columnCount; i = Inc16(i)) {
    std::string type, units;
    SplitHeading(headings.at(static_cast<std::size_t>(i)), type, units);
    if (type != UnassignedColumn) {
      for (int16_t j = Inc16(i); j <= columnCount; j = Inc16(j)) {
        std::string otherType, otherUnits;
        SplitHeading(headings.at(static_cast<std::size_t>(j)), otherType, otherUnits);
        if (otherType == type) {
          Fault(result, "Duplicate columns.", i);
          return result;
        }
      }
    }
    if (!CheckAssignment(input, result, i, type, units)) return result;
  }

  for (const RequiredColumn& required : kRequiredColumns) {
    if (run.*required.column != -1) continue;
    Fault(result, required.missing);
    return result;
  }

  if (!input.rows) Raise(err::ObjectNotSet);
  const Recordset& rows = *input.rows;
  std::array<bool, 31> columnAssigned{};
  for (int16_t i = 1; i <= columnCount; i = Inc16(i))
    columnAssigned.at(static_cast<std::size_t>(i)) = HeadingIsAssigned(headings.at(static_cast<std::size_t>(i)));
  const CellFields fields(rows);
  // Every row from the first, read in place by its bookmark: the grid's own
  // position stays where it is.
  const long rowCount = rows.RecordCount();
  const int excludedField = rowCount == 0 ? -1 : rows.RequireField("Excluded");
  const auto takesPart = [&](Recordset::Bookmark row) {
    bool rowHasData = false;
    for (int16_t i = 1; i <= columnCount && !rowHasData; i = Inc16(i)) {
      if (!columnAssigned[static_cast<std::size_t>(i)]) continue;
      // Null counts as empty; blanks count as data.
      const auto value = rows.CellAt(row, fields.Of(i));
      if (value && !value->empty()) rowHasData = true;
    }
    return rowHasData && rows.CellAt(row, excludedField).value_or(std::string_view()) == "N";
  };
  // The rows that pass are looked through on two threads; the pass goes on
  // here from the first that does not, to report it as it always has.
  const long firstFault = FirstRowThat(rowCount, [&](long row) {
    ValidationResult scratch;
    return takesPart(row) && !CheckRow(input, scratch, rows, row, fields);
  });
  for (Recordset::Bookmark row = firstFault; row < rowCount; ++row) {
    if (takesPart(row) && !CheckRow(input, result, rows, row, fields)) return result;
  }
  result.valid = true;
  return result;
}

}  // namespace corvalin
