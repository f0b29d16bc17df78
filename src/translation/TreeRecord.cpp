#include "translation/TreeRecord.h"

#include <algorithm>
#include <array>
#include <cctype>
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

}  // namespace

std::string UnassignedField(int width) { return std::string(static_cast<std::size_t>(width), ' '); }

namespace {

// The blanks in front of a text of width at most `width`.
void AppendPadded(std::string& out, std::string_view text, int width) {
  out.append(static_cast<std::size_t>(width) - text.size(), ' ');
  out.append(text);
}

std::string_view CutTo(std::string_view text, int width) {
  return text.size() > static_cast<std::size_t>(width) ? text.substr(0, static_cast<std::size_t>(width)) : text;
}

// The fields as the record writes them, straight into its line.
void AppendRightText(std::string& out, std::string_view cell, int width) {
  AppendPadded(out, CutTo(TrimmedView(cell), width), width);
}

void AppendLeftText(std::string& out, std::string_view cell, int width) {
  const std::string_view text = CutTo(TrimmedView(cell), width);
  out.append(text);
  out.append(static_cast<std::size_t>(width) - text.size(), ' ');
}

void AppendNumber(std::string& out, std::string_view cell, int width, int decimals, double factor) {
  const std::string_view text = TrimmedView(cell);
  if (text.empty()) {
    out.append(static_cast<std::size_t>(width), ' ');
    return;
  }
  const double value = CellNumber(text) * factor;
  if (!std::isfinite(value)) Raise(err::Overflow);
  // An exact 0 (a count, a diameter or a height of 0, or a factor of 0 for a
  // unit the record does not know) leaves the field blank; a value that only
  // rounds to 0 still prints.
  if (value == 0.0) {
    out.append(static_cast<std::size_t>(width), ' ');
    return;
  }
  const std::string number = FixedDecimalText(value, decimals);
  // Too wide a number loses its high digits: validation keeps such values out.
  if (number.size() > static_cast<std::size_t>(width)) {
    out.append(number, number.size() - static_cast<std::size_t>(width), std::string::npos);
    return;
  }
  AppendPadded(out, number, width);
}

}  // namespace

std::string RightTextField(std::string_view cell, int width) {
  std::string field;
  AppendRightText(field, cell, width);
  return field;
}

std::string LeftTextField(std::string_view cell, int width) {
  std::string field;
  AppendLeftText(field, cell, width);
  return field;
}

std::string NumberField(std::string_view cell, int width, int decimals, double factor) {
  std::string field;
  AppendNumber(field, cell, width, decimals, factor);
  return field;
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

namespace {

// How a field is written from its cell.
enum class Form : uint8_t {
  Right,       // R(w): right-justified text
  RightUpper,  // R(w) in capitals
  LeftUpper,   // L(w) in capitals
  Number,      // N(w,d) times the factor of its units
  Slope,       // S(w)
  CrownRatio,  // C: one character, or the code as typed
};

// The unit factor a number field is multiplied by.
enum class Scale : uint8_t { None, Dbh, DbhInc, TotalHeight, TopkillHeight, HeightInc };

struct Field {
  int16_t RecordSetup::*column;
  Form form;
  int width;
  int decimals = 0;
  Scale scale = Scale::None;
};

// The metric record of the "BC" variant, 77 characters, field by field.
constexpr std::array<Field, 21> kBcLayout = {{
    // column                          form               width  dec  scale
    {&RecordSetup::PlotId,             Form::Right,        13},
    {&RecordSetup::TreeId,             Form::Right,         4},
    {&RecordSetup::TreeCount,          Form::Number,        8,    3},
    {&RecordSetup::TreeHistory,        Form::Right,         1},
    {&RecordSetup::Species,            Form::RightUpper,    2},
    {&RecordSetup::Dbh,                Form::Number,        5,    1,  Scale::Dbh},
    {&RecordSetup::DbhInc,             Form::Number,        4,    1,  Scale::DbhInc},
    {&RecordSetup::TotalHeight,        Form::Number,        4,    1,  Scale::TotalHeight},
    {&RecordSetup::TopkillHeight,      Form::Number,        4,    1,  Scale::TopkillHeight},
    {&RecordSetup::HeightInc,          Form::Number,        6,    1,  Scale::HeightInc},
    {&RecordSetup::CrownRatio,         Form::CrownRatio,    1},
    {&RecordSetup::Damage1,            Form::Right,         4},
    {&RecordSetup::Damage2,            Form::Right,         4},
    {&RecordSetup::Damage3,            Form::Right,         4},
    {&RecordSetup::TreeValue,          Form::Right,         1},
    {&RecordSetup::Prescription,       Form::Right,         1},
    {&RecordSetup::PlotSlope,          Form::Slope,         3},
    {&RecordSetup::PlotAspect,         Form::Right,         3},
    {&RecordSetup::HabitatType,        Form::Right,         3},
    {&RecordSetup::TopoPosition,       Form::Right,         1},
    {&RecordSetup::SitePreparation,    Form::Right,         1},
}};

// The imperial record of the U.S. variants, 59 characters, field by field.
constexpr std::array<Field, 21> kUsLayout = {{
    // column                          form               width  dec  scale
    {&RecordSetup::PlotId,             Form::Right,         4},
    {&RecordSetup::TreeId,             Form::Right,         3},
    {&RecordSetup::TreeCount,          Form::Number,        6,    0},
    {&RecordSetup::TreeHistory,        Form::Right,         1},
    {&RecordSetup::Species,            Form::LeftUpper,     3},
    {&RecordSetup::Dbh,                Form::Number,        4,    0,  Scale::Dbh},
    {&RecordSetup::DbhInc,             Form::Number,        3,    0,  Scale::DbhInc},
    {&RecordSetup::TotalHeight,        Form::Number,        3,    0,  Scale::TotalHeight},
    {&RecordSetup::TopkillHeight,      Form::Number,        3,    0,  Scale::TopkillHeight},
    {&RecordSetup::HeightInc,          Form::Number,        4,    0,  Scale::HeightInc},
    {&RecordSetup::CrownRatio,         Form::CrownRatio,    1},
    {&RecordSetup::Damage1,            Form::Right,         4},
    {&RecordSetup::Damage2,            Form::Right,         4},
    {&RecordSetup::Damage3,            Form::Right,         4},
    {&RecordSetup::TreeValue,          Form::Right,         1},
    {&RecordSetup::Prescription,       Form::Right,         1},
    {&RecordSetup::PlotSlope,          Form::Slope,         2},
    {&RecordSetup::PlotAspect,         Form::Right,         3},
    {&RecordSetup::HabitatType,        Form::Right,         3},
    {&RecordSetup::TopoPosition,       Form::Right,         1},
    {&RecordSetup::SitePreparation,    Form::Right,         1},
}};

double FactorOf(const RecordSetup& s, Scale scale) {
  switch (scale) {
    case Scale::None: return 1;
    case Scale::Dbh: return s.Factors.Dbh;
    case Scale::DbhInc: return s.Factors.DbhInc;
    case Scale::TotalHeight: return s.Factors.TotalHeight;
    case Scale::TopkillHeight: return s.Factors.TopkillHeight;
    case Scale::HeightInc: return s.Factors.HeightInc;
  }
  return 1;
}

// One field of the record, appended to its line: blanks of its width when its
// type has no column (the crown ratio's is one blank, its width).
void AppendField(std::string& record, const Field& field, const RecordSetup& s, const RowCells& cells) {
  const int16_t column = s.*field.column;
  if (column == -1) {
    record.append(static_cast<std::size_t>(field.width), ' ');
    return;
  }
  const std::string_view cell = Cell(cells, column);
  const std::size_t start = record.size();
  switch (field.form) {
    case Form::Right: AppendRightText(record, cell, field.width); return;
    case Form::RightUpper: AppendRightText(record, cell, field.width); break;
    case Form::LeftUpper: AppendLeftText(record, cell, field.width); break;
    case Form::Number: AppendNumber(record, cell, field.width, field.decimals, FactorOf(s, field.scale)); return;
    case Form::Slope: record += SlopeField(cell, field.width, s.SlopeIsPercent); return;
    case Form::CrownRatio: record += CrownRatioField(cell, s.UnitsCrownRatio); return;
  }
  // The species code in capitals, by the user's locale as ToUpper has it.
  for (std::size_t i = start; i < record.size(); ++i)
    record[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(record[i])));
}

std::string RecordOf(const std::array<Field, 21>& layout, int length, const RecordSetup& s, const RowCells& cells) {
  std::string record;
  record.reserve(static_cast<std::size_t>(length) + 8);
  for (const Field& field : layout) AppendField(record, field, s, cells);
  return record;
}

}  // namespace

std::string BcRecord(const RecordSetup& s, const RowCells& cells) { return RecordOf(kBcLayout, kBcRecordLength, s, cells); }

std::string UsRecord(const RecordSetup& s, const RowCells& cells) { return RecordOf(kUsLayout, kUsRecordLength, s, cells); }

}  // namespace corvalin
