// The splitter: one line of the input file cut into cells by the column
// format. The preview of frmColumns and the load of the working table both cut
// with it, so what the user sees is what is loaded. It works on one string at
// a time and touches no file.
#pragma once

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

// The cells of one line as they go into the working table, each cleaned
// (spaces, and only spaces, trimmed from both ends, then cut to its first
// 100 characters) and written back to back into Text: the load's way, which
// copies each piece of a cell once, with no pass over the cells after the
// cut.
struct CleanedCells {
  std::string Text;  // the cells from its start; past Length, room kept for the next line
  std::array<uint32_t, kMaxColumns> Ends{};  // entry 0: where column 1 ends in Text; past Count, Length
  int16_t Count = 0;

  std::size_t Length() const { return Ends[kMaxColumns - 1]; }
  std::string_view Cell(int slot) const {
    const uint32_t start = slot == 0 ? 0 : Ends[static_cast<std::size_t>(slot - 1)];
    return std::string_view(Text).substr(start, Ends[static_cast<std::size_t>(slot)] - start);
  }
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
  // The same cut, the cells left where they lie.
  void Cut(std::string_view line, LineCells& out) const;
  // The same cut with each cell cleaned, the cells copied into out.Text;
  // the same failures. The load's way: it copies each cell once.
  void CutCleaned(std::string_view line, CleanedCells& out) const;

 private:
  // The cutting rules, one for each way of cutting, for both ways of
  // keeping the cells (PullColumns.cpp): a cell is gathered from pieces of
  // the line, given to cells.Piece or scanned up to a delimiter by
  // cells.Run, and made by cells.EndCell; cells.SplitAtDelimiters makes the
  // cells of a stretch of the line in which every delimiter ends one.
  template <class Cells>
  void CutInto(std::string_view line, Cells& cells) const;
  template <class Cells>
  void PlainSplit(std::string_view line, Cells& cells) const;
  template <class Cells>
  void QualifierSplit(std::string_view line, Cells& cells) const;
  template <class Cells>
  void UnquotedQualifierSplit(std::string_view line, Cells& cells) const;
  template <class Cells>
  void FixedSplit(std::string_view line, Cells& cells) const;

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

}  // namespace corvalin
