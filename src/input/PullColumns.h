// The splitter: one line of the input file cut into cells by the column
// format. The preview of frmColumns and the load of the working table both cut
// with it, so what the user sees is what is loaded. It works on one string at
// a time and touches no file.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "input/ColumnFormat.h"

namespace corvalin {

// The cells of one line: slots past Count hold the empty string.
struct ParsedLine {
  std::array<std::string, kMaxColumns> Columns{};  // entry 0 is column 1
  int16_t Count = 0;

  // Column n, 1 to 30; any other n is the subscript error (9).
  const std::string& Column(int n) const;
};

// The cells of one line without copying them: each is a piece of the line,
// or, when a qualifier was taken out of the middle of it, a piece of the
// line's rebuilt text. Valid while the line and this object are unchanged.
struct LineCells {
  std::array<std::string_view, kMaxColumns> Cells{};  // entry 0 is column 1; empty past Count
  int16_t Count = 0;
  std::string Rebuilt;  // the cells that are not one piece of the line
};

// The cutting rules of one format, prepared once and used for many lines.
class LineSplitter {
 public:
  explicit LineSplitter(const ColumnFormat& format);

  // True when ch is one of the delimiters, compared without regard to case:
  // with "x" among the other characters, "X" cuts too.
  bool IsDelimiter(char ch) const { return delimiter_[static_cast<unsigned char>(ch)]; }

  // Cuts line into out, reusing out's storage. Raises the overflow error (6)
  // for a delimited line too long to count its positions, and the invalid
  // argument error (5) for fixed width markers out of order.
  void Split(std::string_view line, ParsedLine& out) const;
  // The same cut, the cells left where they lie: the load's way, which
  // copies each cell once, into the working table's rows.
  void Cut(std::string_view line, LineCells& out) const;

 private:
  void PlainSplit(std::string_view line, LineCells& out) const;
  void QualifierSplit(std::string_view line, LineCells& out) const;
  void UnquotedQualifierSplit(std::string_view line, LineCells& out) const;
  void FixedSplit(std::string_view line, LineCells& out) const;

  ColumnFormat format_;
  char qualifier_ = 0;
  bool qualified_ = false;
  std::array<bool, 256> delimiter_{};
};

// ch occurs in delimiters, without regard to case.
bool IsDelimiter(const std::string& delimiters, char ch);

// The cells of a line. lineIndex -1: the line is lineText; any other value:
// the line is entry lineIndex of the input preview, lineText being ignored.
ParsedLine PullColumns(const ColumnFormat& format, int16_t lineIndex, std::string_view lineText);

// A cell on its way to the working table: spaces (only spaces) trimmed from
// both ends, then cut to its first 100 characters. Inline: the load cleans
// every cell of the file.
inline std::string_view CleanCell(std::string_view cell) {
  std::size_t b = 0;
  std::size_t e = cell.size();
  while (b < e && cell[b] == ' ') ++b;
  while (e > b && cell[e - 1] == ' ') --e;
  return cell.substr(b, std::min(e - b, kMaxCellLength));
}

}  // namespace corvalin
