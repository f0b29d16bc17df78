// The column format: how a line of the input file is cut into cells. The
// flags and the qualifier are edited on frmColumns; the markers of fixed width
// mode outlive that screen (a template does not carry them back, so the
// markers placed earlier in the run stay in force until the user moves them).
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvalin {

// The working table has c1 to c30, so a line gives at most 30 cells.
inline constexpr int16_t kMaxColumns = 30;
// In delimited mode a line is cut at most 29 times; the rest is cell 30.
inline constexpr int16_t kMaxSplits = kMaxColumns - 1;
// Fixed width mode: 29 cuts make the 30 columns.
inline constexpr int16_t kMaxMarkers = kMaxColumns - 1;
// A cell that reaches the working table holds at most this many characters.
inline constexpr std::size_t kMaxCellLength = 100;
// Character positions are signed 16-bit: the scan of a delimited line of this
// many characters steps past the last position that can be counted.
inline constexpr std::size_t kLongestDelimitedLine = 32766;

// The three entries of the text qualifier list, in list order.
inline constexpr const char* QualifierDoubleQuote = "\"";
inline constexpr const char* QualifierSingleQuote = "'";
inline constexpr const char* QualifierNone = "None";

// The fixed width markers: marker k is a cut after that many characters.
// Kept in the order the user made them; sorted just before a load.
struct ColumnMarkerList {
  int16_t NumMarkers = 0;
  std::array<int16_t, kMaxMarkers> Positions{};  // entry 0 is marker 1

  // Marker k, 1 to 29; any other k is the subscript error (9).
  int16_t& ColumnMarkers(int k);
  int16_t ColumnMarkers(int k) const;
  // Ascending, by neighbour swaps over markers 1 to NumMarkers.
  void Sort();
};

// The markers in force, process-wide.
ColumnMarkerList& Markers();
// No markers, all positions 0 (a fresh process).
void ResetMarkers();

// One reading of the format, everything the splitter needs.
struct ColumnFormat {
  bool FixedWidth = false;
  // The chosen delimiter characters (BuildColumnDelimiters).
  std::string ColumnDelimiters = ",";
  bool ConsecutiveAsOne = false;
  // The shown text of the qualifier list: a double quote, a single quote or "None".
  std::string TextQualifier = QualifierDoubleQuote;
  ColumnMarkerList Markers;
};

// The delimiter characters of the chosen controls, always in the order tab,
// semicolon, comma, space, other characters.
std::string ComposeColumnDelimiters(bool tab, bool semicolon, bool comma, bool space, bool other,
                                    const std::string& otherCharacters);

}  // namespace corvalin
