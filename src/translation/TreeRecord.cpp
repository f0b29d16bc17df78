#include "translation/TreeRecord.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include "shell/Error.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "translation/NumberText.h"

namespace corvalin {

namespace {

std::string_view TrimmedView(std::string_view text) {
  std::size_t b = 0;
  std::size_t e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  return text.substr(b, e - b);
}

std::string PadLeft(std::string_view text, int width) {
  std::string field(static_cast<std::size_t>(width) - text.size(), ' ');
  field += text;
  return field;
}

// A cell of the row, or nothing when the type has no column.
std::string_view Cell(const RowCells& cells, int16_t column) {
  if (column < 1 || column > 30) Raise(err::SubscriptOutOfRange);
  return cells[static_cast<std::size_t>(column)];
}

std::string Right(const RowCells& cells, int16_t column, int width) {
  return column == -1 ? UnassignedField(width) : RightTextField(Cell(cells, column), width);
}

std::string Number(const RowCells& cells, int16_t column, int width, int decimals, double factor) {
  return column == -1 ? UnassignedField(width) : NumberField(Cell(cells, column), width, decimals, factor);
}

std::string Slope(const RowCells& cells, int16_t column, int width, bool isPercent) {
  return column == -1 ? UnassignedField(width) : SlopeField(Cell(cells, column), width, isPercent);
}

std::string CrownRatio(const RowCells& cells, int16_t column, std::string_view units) {
  return column == -1 ? UnassignedField(1) : CrownRatioField(Cell(cells, column), units);
}

RecordSetup ColumnsOf(const RunState& state) {
  RecordSetup setup;
  setup.PlotId = state.ColPlotId;
  setup.TreeId = state.ColTreeId;
  setup.TreeCount = state.ColTreeCount;
  setup.TreeHistory = state.ColTreeHistory;
  setup.Species = state.ColSpecies;
  setup.Dbh = state.ColDbh;
  setup.DbhInc = state.ColDbhInc;
  setup.TotalHeight = state.ColTotalHeight;
  setup.TopkillHeight = state.ColTopkillHeight;
  setup.HeightInc = state.ColHeightInc;
  setup.CrownRatio = state.ColCrownRatio;
  setup.Damage1 = state.ColDamage1;
  setup.Damage2 = state.ColDamage2;
  setup.Damage3 = state.ColDamage3;
  setup.TreeValue = state.ColTreeValue;
  setup.Prescription = state.ColPrescription;
  setup.PlotSlope = state.ColPlotSlope;
  setup.PlotAspect = state.ColPlotAspect;
  setup.HabitatType = state.ColHabitatType;
  setup.TopoPosition = state.ColTopoPosition;
  setup.SitePreparation = state.ColSitePreparation;
  setup.SlopeIsPercent = state.UnitsPlotSlope == "%";
  setup.UnitsCrownRatio = state.UnitsCrownRatio;
  return setup;
}

// The tail shared by both records: crown ratio to site preparation.
void AppendCommonTail(std::string& record, const RecordSetup& s, const RowCells& cells, int slopeWidth) {
  record += CrownRatio(cells, s.CrownRatio, s.UnitsCrownRatio);
  record += Right(cells, s.Damage1, 4);
  record += Right(cells, s.Damage2, 4);
  record += Right(cells, s.Damage3, 4);
  record += Right(cells, s.TreeValue, 1);
  record += Right(cells, s.Prescription, 1);
  record += Slope(cells, s.PlotSlope, slopeWidth, s.SlopeIsPercent);
  record += Right(cells, s.PlotAspect, 3);
  record += Right(cells, s.HabitatType, 3);
  record += Right(cells, s.TopoPosition, 1);
  record += Right(cells, s.SitePreparation, 1);
}

}  // namespace

std::string UnassignedField(int width) { return std::string(static_cast<std::size_t>(width), ' '); }

std::string RightTextField(std::string_view cell, int width) {
  std::string_view text = TrimmedView(cell);
  if (text.size() > static_cast<std::size_t>(width)) text = text.substr(0, static_cast<std::size_t>(width));
  return PadLeft(text, width);
}

std::string LeftTextField(std::string_view cell, int width) {
  std::string_view text = TrimmedView(cell);
  if (text.size() > static_cast<std::size_t>(width)) text = text.substr(0, static_cast<std::size_t>(width));
  std::string field(text);
  field.append(static_cast<std::size_t>(width) - text.size(), ' ');
  return field;
}

std::string NumberField(std::string_view cell, int width, int decimals, double factor) {
  const std::string_view text = TrimmedView(cell);
  if (text.empty()) return UnassignedField(width);
  const double value = CellNumber(text) * factor;
  if (!std::isfinite(value)) Raise(err::Overflow);
  // An exact 0 (a count, a diameter or a height of 0, or a factor of 0 for a
  // unit the record does not know) leaves the field blank; a value that only
  // rounds to 0 still prints.
  if (value == 0.0) return UnassignedField(width);
  const std::string number = FixedDecimalText(value, decimals);
  // Too wide a number loses its high digits: validation keeps such values out.
  if (number.size() > static_cast<std::size_t>(width))
    return number.substr(number.size() - static_cast<std::size_t>(width));
  return PadLeft(number, width);
}

double RoundValue(double value, int digits) {
  if (digits < 0 || digits > 9) Raise(err::InvalidProcedureCall);
  int32_t scale = 1;
  for (int i = 0; i < digits; ++i) scale *= 10;
  const double scaled = static_cast<double>(scale) * value;
  const double integerPart = std::trunc(scaled);
  const bool odd = std::fmod(integerPart, 2.0) != 0.0;
  const double nudge = odd ? 0.5 : 0.4;
  const double rounded = value > 0 ? std::trunc(scaled + nudge) : std::trunc(scaled - nudge);
  return rounded / static_cast<double>(scale);
}

std::string SlopeField(std::string_view cell, int width, bool isPercent) {
  double value = LeadingNumber(cell);
  // The arc tangent of a percent, in radians, as the model's files have
  // always had it: a percent slope comes out as 0, 1 or 2.
  if (isPercent) value = std::atan(value);
  value = RoundValue(value, 0);
  std::string text = TrimBlanks(ShortestNumberText(value));
  if (!text.empty() && text[0] == '.') text.insert(text.begin(), '0');
  if (text.size() > static_cast<std::size_t>(width)) text.resize(static_cast<std::size_t>(width));
  return PadLeft(text, width);
}

std::string CrownRatioField(std::string_view cell, std::string_view unitsCrownRatio) {
  const std::string_view v = TrimmedView(cell);
  if (unitsCrownRatio == "codes") {
    // A code goes out as typed, without a cut: a two-character code
    // lengthens the line.
    return v.empty() ? std::string(" ") : std::string(v);
  }
  const double p = LeadingNumber(v);
  if (p == 0.0) return " ";
  for (int code = 1; code <= 8; ++code) {
    if (p <= code * 10.0) return std::string(1, static_cast<char>('0' + code));
  }
  return "9";
}

namespace {

// The seven length units; each factor table below follows their order.
constexpr std::array<std::string_view, 7> kLengthUnitNames = {"yards", "feet", "inches", "m", "dm", "cm", "mm"};
using UnitFactorTable = std::array<double, kLengthUnitNames.size()>;

// The factors are the constants of the tree list format as the model's tools
// have always used them, digits and all; they are not to be derived anew.
constexpr UnitFactorTable kBcCentimetre = {91.44018, 30.48006, 2.540005, 100, 10, 1, 0.1};
constexpr UnitFactorTable kBcMetre = {0.9144018, 0.3048006, 0.02540005, 1, 0.1, 0.01, 0.001};
constexpr UnitFactorTable kUsTenthInch = {360, 120, 10, 393.700012, 39.3700012, 3.93700012, 0.393700012};
constexpr UnitFactorTable kUsFoot = {3, 1, 0.083333333, 3.28083, 0.328083, 0.0328083, 0.00328083};
constexpr UnitFactorTable kUsTenthFoot = {30, 10, 0.83333333, 32.8083, 3.28083, 0.328083, 0.0328083};

// The factor of the named unit, by exact comparison; 0 for any other name.
double FactorOf(std::string_view units, const UnitFactorTable& factors) {
  for (std::size_t i = 0; i < kLengthUnitNames.size(); ++i)
    if (units == kLengthUnitNames[i]) return factors[i];
  return 0;
}

}  // namespace

bool IsLengthUnitName(std::string_view units) {
  return std::find(kLengthUnitNames.begin(), kLengthUnitNames.end(), units) != kLengthUnitNames.end();
}

double BcCentimetreFactor(std::string_view units) { return FactorOf(units, kBcCentimetre); }
double BcMetreFactor(std::string_view units) { return FactorOf(units, kBcMetre); }
double UsTenthInchFactor(std::string_view units) { return FactorOf(units, kUsTenthInch); }
double UsFootFactor(std::string_view units) { return FactorOf(units, kUsFoot); }
double UsTenthFootFactor(std::string_view units) { return FactorOf(units, kUsTenthFoot); }

RecordSetup BcRecordSetup(const RunState& state) {
  RecordSetup setup = ColumnsOf(state);
  setup.Factors.Dbh = BcCentimetreFactor(state.UnitsDbh);
  setup.Factors.DbhInc = BcCentimetreFactor(state.UnitsDbhInc);
  setup.Factors.TotalHeight = BcMetreFactor(state.UnitsTotalHeight);
  setup.Factors.TopkillHeight = BcMetreFactor(state.UnitsTopkillHeight);
  setup.Factors.HeightInc = BcCentimetreFactor(state.UnitsHeightInc);
  return setup;
}

RecordSetup UsRecordSetup(const RunState& state) {
  RecordSetup setup = ColumnsOf(state);
  setup.Factors.Dbh = UsTenthInchFactor(state.UnitsDbh);
  setup.Factors.DbhInc = UsTenthInchFactor(state.UnitsDbhInc);
  setup.Factors.TotalHeight = UsFootFactor(state.UnitsTotalHeight);
  setup.Factors.TopkillHeight = UsFootFactor(state.UnitsTopkillHeight);
  setup.Factors.HeightInc = UsTenthFootFactor(state.UnitsHeightInc);
  return setup;
}

std::string BcRecord(const RecordSetup& s, const RowCells& cells) {
  std::string record;
  record.reserve(kBcRecordLength + 8);
  record += Right(cells, s.PlotId, 13);
  record += Right(cells, s.TreeId, 4);
  record += Number(cells, s.TreeCount, 8, 3, 1);
  record += Right(cells, s.TreeHistory, 1);
  record += ToUpper(Right(cells, s.Species, 2));
  record += Number(cells, s.Dbh, 5, 1, s.Factors.Dbh);
  record += Number(cells, s.DbhInc, 4, 1, s.Factors.DbhInc);
  record += Number(cells, s.TotalHeight, 4, 1, s.Factors.TotalHeight);
  record += Number(cells, s.TopkillHeight, 4, 1, s.Factors.TopkillHeight);
  record += Number(cells, s.HeightInc, 6, 1, s.Factors.HeightInc);
  AppendCommonTail(record, s, cells, 3);
  return record;
}

std::string UsRecord(const RecordSetup& s, const RowCells& cells) {
  std::string record;
  record.reserve(kUsRecordLength + 8);
  record += Right(cells, s.PlotId, 4);
  record += Right(cells, s.TreeId, 3);
  record += Number(cells, s.TreeCount, 6, 0, 1);
  record += Right(cells, s.TreeHistory, 1);
  record += ToUpper(s.Species == -1 ? UnassignedField(3) : LeftTextField(Cell(cells, s.Species), 3));
  record += Number(cells, s.Dbh, 4, 0, s.Factors.Dbh);
  record += Number(cells, s.DbhInc, 3, 0, s.Factors.DbhInc);
  record += Number(cells, s.TotalHeight, 3, 0, s.Factors.TotalHeight);
  record += Number(cells, s.TopkillHeight, 3, 0, s.Factors.TopkillHeight);
  record += Number(cells, s.HeightInc, 4, 0, s.Factors.HeightInc);
  AppendCommonTail(record, s, cells, 2);
  return record;
}

}  // namespace corvalin
