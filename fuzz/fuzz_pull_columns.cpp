// The splitter on any bytes: the first bytes choose a column format, the
// rest is an input file cut into lines. Whatever the line, the record holds
// 30 strings, at most 30 cells, and nothing past its count; the only failures
// are the overflow of a too long delimited line and markers out of order.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "input/PullColumns.h"
#include "shell/Error.h"
#include "worktable/InputLines.h"

using namespace corvalin;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  ColumnFormat format;
  const uint8_t mode = data[0];
  format.FixedWidth = (mode & 1) != 0;
  format.ConsecutiveAsOne = (mode & 2) != 0;
  format.TextQualifier = (mode & 4) ? QualifierDoubleQuote : ((mode & 8) ? QualifierSingleQuote : QualifierNone);
  format.ColumnDelimiters = std::string(reinterpret_cast<const char*>(data + 1), data[1] % 4);
  const int markers = data[2] % (kMaxMarkers + 1);
  for (int k = 1; k <= markers; ++k) format.Markers.ColumnMarkers(k) = static_cast<int16_t>((data[3] * k) % 300);
  format.Markers.NumMarkers = static_cast<int16_t>(markers);
  if (data[3] & 1) format.Markers.Sort();

  InputLines lines = InputLines::FromText(std::string(reinterpret_cast<const char*>(data + 4), size - 4));
  const LineSplitter splitter(format);
  ParsedLine parsed;
  std::string_view line;
  while (!lines.AtEnd()) {
    lines.Next(line);
    try {
      splitter.Split(line, parsed);
    } catch (const RuntimeError& error) {
      if (error.number() != err::Overflow && error.number() != err::InvalidProcedureCall) std::abort();
      continue;
    }
    if (parsed.Count < 0 || parsed.Count > kMaxColumns) std::abort();
    for (int n = parsed.Count + 1; n <= kMaxColumns; ++n)
      if (!parsed.Column(n).empty()) std::abort();
    for (int n = 1; n <= kMaxColumns; ++n)
      if (CleanCell(parsed.Column(n)).size() > kMaxCellLength) std::abort();
  }
  return 0;
}
