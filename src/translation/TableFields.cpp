// The field formatters over the current record of TftRecords, for callers
// that format one field at a time. The writers read a whole row at once.
#include <optional>
#include <string>

#include "shell/RunState.h"
#include "translation/TreeRecord.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

namespace {

// The text of "c" + column in the current record; a Null reads as empty.
std::string CurrentCell(int16_t column) {
  std::optional<std::string> value = TftRecords()->Value("c" + std::to_string(column));
  return value ? *value : std::string();
}

}  // namespace

std::string FormatRightText(int16_t column, int width) {
  return column == -1 ? UnassignedField(width) : RightTextField(CurrentCell(column), width);
}

std::string FormatLeftText(int16_t column, int width) {
  return column == -1 ? UnassignedField(width) : LeftTextField(CurrentCell(column), width);
}

std::string FormatNumber(int16_t column, int width, int decimals, double factor) {
  return column == -1 ? UnassignedField(width) : NumberField(CurrentCell(column), width, decimals, factor);
}

std::string FormatSlope(int16_t column, int width, bool isPercent) {
  return column == -1 ? UnassignedField(width) : SlopeField(CurrentCell(column), width, isPercent);
}

std::string FormatCrownRatio(int16_t column) {
  return column == -1 ? UnassignedField(1) : CrownRatioField(CurrentCell(column), Run().UnitsCrownRatio);
}

}  // namespace corvalin
