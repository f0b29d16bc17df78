// The tree list field formatters, the fuzzer choosing the cell, the width,
// the decimals and the factor: FormatNumber, FormatSlope and FormatCrownRatio
// on the current record of the working table give the fields the pure
// formatters give on the same text, every field is exactly as wide as its
// place (a crown ratio code in "codes" excepted, which goes out as typed),
// and the only failure is the overflow of a number or a product too large. RoundValue
// stays within its rounding step, ends on whole steps, and rounds the halves
// of odd whole numbers up and of even ones down.
#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "FuzzSupport.h"
#include "shell/Error.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "translation/NumberText.h"
#include "translation/TreeRecord.h"
#include "worktable/Recordset.h"
#include "worktable/clsDBEngine.h"

using namespace corvalin;
using fuzz::Require;

namespace {

constexpr int16_t kColumn = 7;

// A working table of one row, open, its row set in TftRecords.
void OpenOneRowTable() {
  RunState& run = Run();
  run.DataFolder = fuzz::ScratchHome() + "Data/";
  const std::string table = run.DataFolder + WorkingDatabaseName;
  std::filesystem::copy_file(fuzz::InstalledFilesFolder() + EmptyDatabaseName, table,
                             std::filesystem::copy_options::overwrite_existing);
  clsDBEngine& engine = DatabaseEngine();
  engine.PathToDB(table);
  engine.OpenDB();
  int32_t affected = 0;
  engine.SQLString("INSERT INTO tft (LineNum, c7, Excluded) VALUES (1, '', 'N')");
  engine.Execute(affected);
  engine.CloseDB();
  OpenDatabase();
  TftRecords()->MoveFirst();
}

// The product the field shows, or infinity when the cell's number itself
// is too large to read.
double CellTimes(const std::string& cell, double factor) {
  try {
    return CellNumber(TrimBlanks(cell)) * factor;
  } catch (const RuntimeError& error) {
    Require(error.number() == err::Overflow, "reading a cell's number raised an error other than overflow");
    return HUGE_VAL;
  }
}

// The field a formatter gives, or nothing when it raises the overflow
// error: a number too large to read (a slope or a crown ratio of "8E888")
// or a product too large to hold. Any other error is a finding.
template <typename Formatter>
std::optional<std::string> FieldOrOverflow(Formatter formatter) {
  try {
    return formatter();
  } catch (const RuntimeError& error) {
    Require(error.number() == err::Overflow, "a field formatter raised an error other than overflow");
    return std::nullopt;
  }
}

void CheckNumber(const std::string& cell, int width, int decimals, double factor) {
  const auto field = FieldOrOverflow([&] { return FormatNumber(kColumn, width, decimals, factor); });
  Require(field == FieldOrOverflow([&] { return NumberField(cell, width, decimals, factor); }),
          "FormatNumber and NumberField differ");
  if (!field) {
    Require(!std::isfinite(CellTimes(cell, factor)), "a finite number overflowed its field");
    return;
  }
  Require(field->size() == static_cast<std::size_t>(width), "a number field is not as wide as its place");
}

void CheckSlope(const std::string& cell, int width, bool isPercent) {
  const auto field = FieldOrOverflow([&] { return FormatSlope(kColumn, width, isPercent); });
  Require(field == FieldOrOverflow([&] { return SlopeField(cell, width, isPercent); }),
          "FormatSlope and SlopeField differ");
  if (!field) return;
  Require(field->size() == static_cast<std::size_t>(width), "a slope field is not as wide as its place");
}

void CheckCrownRatio(const std::string& cell) {
  const auto field = FieldOrOverflow([&] { return FormatCrownRatio(kColumn); });
  Require(field == FieldOrOverflow([&] { return CrownRatioField(cell, Run().UnitsCrownRatio); }),
          "FormatCrownRatio and CrownRatioField differ");
  if (!field) {
    Require(Run().UnitsCrownRatio != "codes", "a crown ratio code overflowed");
    return;
  }
  if (Run().UnitsCrownRatio == "codes") {
    const std::string typed = TrimBlanks(cell);
    Require(*field == (typed.empty() ? " " : typed), "a crown ratio code does not go out as typed");
  } else {
    Require(field->size() == 1 && std::string(" 123456789").find((*field)[0]) != std::string::npos,
            "a crown ratio percent is no code");
  }
}

void CheckRounding(FuzzedDataProvider& in) {
  const int digits = in.ConsumeIntegralInRange<int>(-1, 10);
  const double value = in.ConsumeFloatingPointInRange<double>(-1e6, 1e6);
  double rounded = 0;
  try {
    rounded = RoundValue(value, digits);
  } catch (const RuntimeError& error) {
    Require(error.number() == err::InvalidProcedureCall && (digits < 0 || digits > 9),
            "RoundValue refused digits 0 to 9");
    return;
  }
  Require(digits >= 0 && digits <= 9, "RoundValue took digits outside 0 to 9");
  const double scale = std::pow(10.0, digits);
  const double steps = rounded * scale;
  const double tolerance = 1e-9 * std::max(1.0, std::fabs(value * scale));
  Require(std::fabs(steps - value * scale) < 0.6 + tolerance, "RoundValue moved more than its step");
  Require(std::fabs(steps - std::nearbyint(steps)) <= tolerance, "RoundValue did not end on a whole step");

  const int whole = in.ConsumeIntegralInRange<int>(0, 1000000);
  const double half = RoundValue(whole + 0.5, 0);
  Require(half == (whole % 2 == 1 ? whole + 1.0 : static_cast<double>(whole)),
          "a half is not rounded up on an odd whole number and down on an even one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  static const bool opened = (OpenOneRowTable(), true);
  (void)opened;
  FuzzedDataProvider in(data, size);

  const int width = in.ConsumeIntegralInRange<int>(1, 16);
  const int decimals = in.ConsumeIntegralInRange<int>(0, 4);
  static const double kFactors[] = {1, 2.540005, 0.3048006, 120, 0.083333333, 0.0328083, 0};
  const double factor = in.ConsumeBool() ? kFactors[in.ConsumeIntegralInRange<std::size_t>(0, 6)]
                                         : in.ConsumeFloatingPoint<double>();
  const bool isPercent = in.ConsumeBool();
  static const char* const kCrownRatioUnits[] = {"codes", "%", ""};
  Run().UnitsCrownRatio = kCrownRatioUnits[in.ConsumeIntegralInRange<std::size_t>(0, 2)];
  CheckRounding(in);
  const std::string cell = in.ConsumeRemainingBytesAsString();

  TftRecords()->SetValue("c" + std::to_string(kColumn), cell);
  CheckNumber(cell, width, decimals, factor);
  CheckSlope(cell, width, isPercent);
  CheckCrownRatio(cell);
  return 0;
}
