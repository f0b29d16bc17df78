// The splitter on any bytes, in each of its three modes: plain delimited,
// delimited with a text qualifier, and fixed width. The last bytes choose the
// mode, the delimiters and the markers; the rest is an input file cut into
// lines. Whatever the line, PullColumns gives at most 30 cells and nothing
// past its count, the same cells from the text as from the input preview,
// the load's cut gives them cleaned, and in the two modes that lose nothing
// the cells add up to the line. The only failures are the overflow of a too
// long delimited line and markers out of order.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "FuzzSupport.h"
#include "input/PullColumns.h"
#include "shell/Error.h"
#include "shell/RunState.h"
#include "worktable/InputLines.h"

using namespace corvalin;
using fuzz::Require;

namespace {

enum class Mode { Plain, Qualified, Fixed };

ColumnFormat ChooseFormat(FuzzedDataProvider& in, Mode mode) {
  ColumnFormat format;
  format.FixedWidth = mode == Mode::Fixed;
  format.ConsecutiveAsOne = in.ConsumeBool();
  format.TextQualifier =
      mode == Mode::Qualified ? (in.ConsumeBool() ? QualifierDoubleQuote : QualifierSingleQuote) : QualifierNone;
  static const char* const kDelimiterSets[] = {",", "\t", ";", " ", "\t;, ", ",x", "|"};
  format.ColumnDelimiters = kDelimiterSets[in.ConsumeIntegralInRange<std::size_t>(0, 6)];
  const int markers = in.ConsumeIntegralInRange<int>(0, kMaxMarkers);
  for (int k = 1; k <= markers; ++k) format.Markers.ColumnMarkers(k) = in.ConsumeIntegralInRange<int16_t>(-2, 300);
  format.Markers.NumMarkers = static_cast<int16_t>(markers);
  // The load sorts the markers; the preview shows them as the user made them.
  if (in.ConsumeBool()) format.Markers.Sort();
  return format;
}

// A cell as the working table takes it, worked out the plain way: spaces
// trimmed from both ends, then the first 100 characters.
std::string_view Cleaned(std::string_view cell) {
  while (!cell.empty() && cell.front() == ' ') cell.remove_prefix(1);
  while (!cell.empty() && cell.back() == ' ') cell.remove_suffix(1);
  return cell.substr(0, kMaxCellLength);
}

bool MarkersAscendFromZero(const ColumnMarkerList& markers) {
  for (int k = 1; k <= markers.NumMarkers; ++k) {
    if (markers.ColumnMarkers(k) < 0) return false;
    if (k > 1 && markers.ColumnMarkers(k) < markers.ColumnMarkers(k - 1)) return false;
  }
  return markers.ColumnMarkers(1) >= 0;
}

std::size_t CountOf(std::string_view line, const LineSplitter& splitter) {
  std::size_t delimiters = 0;
  for (char ch : line) delimiters += splitter.IsDelimiter(ch) ? 1 : 0;
  return delimiters;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const Mode mode = static_cast<Mode>(in.ConsumeIntegralInRange<int>(0, 2));
  const ColumnFormat format = ChooseFormat(in, mode);
  const LineSplitter splitter(format);

  InputLines lines = InputLines::FromText(in.ConsumeRemainingBytesAsString());
  RunState& run = Run();
  run.InputPreview.clear();
  std::string_view line;
  while (!lines.AtEnd() && run.InputPreview.size() < 20) {
    lines.Next(line);
    run.InputPreview.emplace_back(line);
  }
  run.InputPreviewCount = static_cast<int16_t>(run.InputPreview.size());

  for (std::size_t i = 0; i < run.InputPreview.size(); ++i) {
    const std::string& text = run.InputPreview[i];
    ParsedLine parsed;
    try {
      parsed = PullColumns(format, -1, text);
    } catch (const RuntimeError& error) {
      Require(error.number() == err::Overflow || error.number() == err::InvalidProcedureCall,
              "the splitter raised an error other than overflow or invalid argument");
      if (error.number() == err::Overflow) Require(!format.FixedWidth, "a fixed width line overflowed");
      if (error.number() == err::InvalidProcedureCall)
        Require(format.FixedWidth && !MarkersAscendFromZero(format.Markers), "sorted markers were refused");
      continue;
    }
    // Only the qualified mode makes no cell of an empty line.
    const int least = mode == Mode::Qualified ? 0 : 1;
    Require(parsed.Count >= least && parsed.Count <= kMaxColumns, "the cell count is out of range");
    for (int n = parsed.Count + 1; n <= kMaxColumns; ++n)
      Require(parsed.Column(n).empty(), "a cell past the count holds text");
    // The load's cut gives the same cells, each cleaned.
    CleanedCells cleaned;
    splitter.CutCleaned(text, cleaned);
    Require(cleaned.Count == parsed.Count, "the cleaned cut counts other cells");
    for (int n = 1; n <= kMaxColumns; ++n)
      Require(cleaned.Cell(n - 1) == Cleaned(parsed.Column(n)), "a cleaned cell is not the cut's cell cleaned");

    const ParsedLine fromPreview = PullColumns(format, static_cast<int16_t>(i + 1), "ignored");
    Require(fromPreview.Count == parsed.Count && fromPreview.Columns == parsed.Columns,
            "the preview line and the same text split differently");

    std::string joined;
    for (int n = 1; n <= parsed.Count; ++n) joined += parsed.Column(n);
    if (mode == Mode::Fixed) {
      Require(parsed.Count == std::max<int>(2, format.Markers.NumMarkers + 1), "a fixed width count is off");
      Require(joined == text, "the fixed width cells do not add up to the line");
    } else if (mode == Mode::Plain && !format.ConsecutiveAsOne) {
      const std::size_t cuts = std::min<std::size_t>(CountOf(text, splitter), kMaxSplits);
      Require(static_cast<std::size_t>(parsed.Count) == cuts + 1, "a delimited count is not its cuts plus one");
      Require(joined.size() + cuts == text.size(), "the delimited cells and cuts do not add up to the line");
    }
  }
  return 0;
}
