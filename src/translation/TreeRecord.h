// The tree list record, one line per tree, in its two forms: the metric one
// of the "BC" variant (77 characters, decimals in the fields) and the
// imperial one of the U.S. variants (59 characters, whole numbers of scaled
// units). Both carry the same 21 fields in the same order.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvalin {

struct RunState;

// The length of a record in each form, as long as every field keeps its width
// (a crown ratio in "codes" may lengthen it).
inline constexpr int kBcRecordLength = 77;
inline constexpr int kUsRecordLength = 59;

// ---- The field formatters on a cell's text --------------------------------
// Pure: they take the text of the cell (a Null cell reads as empty) and
// return the field. An unassigned column is not their business: the record
// gives it a field of blanks (see UnassignedField).

// R(w): trimmed, cut to its first w characters, blanks in front up to w.
std::string RightTextField(std::string_view cell, int width);
// L(w): the same with the blanks behind.
std::string LeftTextField(std::string_view cell, int width);
// N(w,d): the number times factor, d decimals, right-justified in w; blanks
// when the cell is empty or the product is exactly 0; a text longer than w
// keeps its last w characters.
std::string NumberField(std::string_view cell, int width, int decimals, double factor);
// S(w): the slope, its arc tangent when it is a percent, rounded by
// RoundValue to a whole number; 0 prints "0".
std::string SlopeField(std::string_view cell, int width, bool isPercent);
// C: the crown ratio code; a percent is mapped to the codes 1 to 9.
std::string CrownRatioField(std::string_view cell, std::string_view unitsCrownRatio);
// The field of a column that is not assigned: all blanks of its width.
std::string UnassignedField(int width);

// The program's own rounding: halves of an odd integer part go up, and on an
// even integer part the fraction must reach 0.6 (2.5 gives 2, 3.5 gives 4,
// 2.55 gives 2, 2.6 gives 3). digits is 0 to 9.
double RoundValue(double value, int digits);

// ---- The formatters on the current record of TftRecords -------------------
// column is the table column ("c" + column), -1 when the type is not
// assigned, which gives the field of blanks (one blank for the crown ratio).
std::string FormatRightText(int16_t column, int width);
std::string FormatLeftText(int16_t column, int width);
std::string FormatNumber(int16_t column, int width, int decimals, double factor);
std::string FormatSlope(int16_t column, int width, bool isPercent);
std::string FormatCrownRatio(int16_t column);

// ---- Units -------------------------------------------------------------------
// The factor that turns a length in the named unit into the record's target
// unit, by exact comparison of the name; 0 for any other name.
double BcCentimetreFactor(std::string_view units);   // DBH, DBH inc., height inc.
double BcMetreFactor(std::string_view units);        // total height, topkill height
double UsTenthInchFactor(std::string_view units);    // DBH, DBH inc.
double UsFootFactor(std::string_view units);         // total height, topkill height
double UsTenthFootFactor(std::string_view units);    // height inc.
// One of the seven length unit names.
bool IsLengthUnitName(std::string_view units);

// ---- The record ------------------------------------------------------------
struct UnitFactors {
  double Dbh = 0;
  double DbhInc = 0;
  double TotalHeight = 0;
  double TopkillHeight = 0;
  double HeightInc = 0;
};

// What a record needs to know for a whole run: the column of each of the 21
// types (-1: none), the unit factors, the slope flag and the crown ratio units.
struct RecordSetup {
  int16_t PlotId = -1, TreeId = -1, TreeCount = -1, TreeHistory = -1, Species = -1, Dbh = -1,
          DbhInc = -1, TotalHeight = -1, TopkillHeight = -1, HeightInc = -1, CrownRatio = -1,
          Damage1 = -1, Damage2 = -1, Damage3 = -1, TreeValue = -1, Prescription = -1,
          PlotSlope = -1, PlotAspect = -1, HabitatType = -1, TopoPosition = -1, SitePreparation = -1;
  UnitFactors Factors;
  bool SlopeIsPercent = false;
  std::string UnitsCrownRatio;
};

// The setup of a run from the columns and units that validation left in the
// run state; the factors of the metric or the imperial record.
RecordSetup BcRecordSetup(const RunState& state);
RecordSetup UsRecordSetup(const RunState& state);

// The cells of one row, entry n holding the text of cn (1..30); entry 0 unused.
using RowCells = std::array<std::string_view, 31>;

// The record of one row, without line end.
std::string BcRecord(const RecordSetup& setup, const RowCells& cells);
std::string UsRecord(const RecordSetup& setup, const RowCells& cells);

}  // namespace corvalin
