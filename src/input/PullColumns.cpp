#include "input/PullColumns.h"

#include <algorithm>
#include <cstring>

#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"

namespace corvalin {

namespace {

// The other case of a letter of the single-byte code page (Windows-1252), or
// the character itself: the platform's text comparison pairs these.
unsigned char OtherCase(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 32);
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 32);
  switch (c) {
    case 0x8A: return 0x9A;  // S caron
    case 0x9A: return 0x8A;
    case 0x8C: return 0x9C;  // OE
    case 0x9C: return 0x8C;
    case 0x8E: return 0x9E;  // Z caron
    case 0x9E: return 0x8E;
    case 0x9F: return 0xFF;  // Y diaeresis
    case 0xFF: return 0x9F;
    default: return c;
  }
}

// The n characters after position start (counted from 0), as the platform's
// Mid does: a start past the end gives the empty text, a negative length is
// an invalid argument.
std::string_view Mid(std::string_view line, long long start, long long length) {
  if (start < 0 || length < 0) Raise(err::InvalidProcedureCall);
  if (static_cast<std::size_t>(start) >= line.size()) return {};
  return line.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
}

std::string_view MidToEnd(std::string_view line, long long start) {
  if (start < 0) Raise(err::InvalidProcedureCall);
  if (static_cast<std::size_t>(start) >= line.size()) return {};
  return line.substr(static_cast<std::size_t>(start));
}

// Entry index of the input preview: 1 to InputPreviewCount, and never past
// the 999 lines the preview holds.
const std::string& PreviewLine(int16_t index) {
  Assert(index >= 1);
  Assert(index <= Run().InputPreviewCount);
  const auto& preview = Run().InputPreview;
  if (index < 1 || index > kMaxPreviewLines || static_cast<std::size_t>(index) > preview.size())
    Raise(err::SubscriptOutOfRange);
  return preview[static_cast<std::size_t>(index - 1)];
}

}  // namespace

const std::string& ParsedLine::Column(int n) const {
  if (n < 1 || n > kMaxColumns) Raise(err::SubscriptOutOfRange);
  return Columns[static_cast<std::size_t>(n - 1)];
}

LineSplitter::LineSplitter(const ColumnFormat& format) : format_(format) {
  for (char d : format_.ColumnDelimiters) {
    const auto c = static_cast<unsigned char>(d);
    delimiter_[c] = true;
    delimiter_[OtherCase(c)] = true;
  }
  if (format_.TextQualifier == QualifierDoubleQuote || format_.TextQualifier == QualifierSingleQuote) {
    qualified_ = true;
    qualifier_ = format_.TextQualifier[0];
  }
}

void LineSplitter::Split(std::string_view line, ParsedLine& out) const {
  LineCells cells;
  Cut(line, cells);
  const auto count = static_cast<std::size_t>(cells.Count);
  for (std::size_t slot = 0; slot < out.Columns.size(); ++slot) {
    if (slot < count)
      out.Columns[slot].assign(cells.Cells[slot]);
    else
      out.Columns[slot].clear();
  }
  out.Count = cells.Count;
}

namespace {

// SplitAtDelimiters without a character that opens a quoted cell.
constexpr int kNoOpener = -1;

// A cell of LineCells gathered from pieces of the line: while the pieces
// follow each other the cell stays a piece of the line; once a qualifier is
// left out between them, the cell is copied into the line's rebuilt text.
// The rebuilt text holds at most the line's characters, and room for them is
// made at the line's start, so the cells taken from it never move.
class CellViews {
 public:
  CellViews(const LineSplitter& splitter, std::string_view line, LineCells& out) : splitter_(splitter), out_(out) {
    out_.Rebuilt.clear();
    out_.Rebuilt.reserve(line.size());
  }

  int Count() const { return count_; }

  void Piece(std::string_view piece) {
    if (piece.empty()) return;
    if (!copied_) {
      if (cell_.empty()) {
        cell_ = piece;
        return;
      }
      if (piece.data() == cell_.data() + cell_.size()) {
        cell_ = std::string_view(cell_.data(), cell_.size() + piece.size());
        return;
      }
      copied_ = true;
      copyStart_ = out_.Rebuilt.size();
      out_.Rebuilt.append(cell_);
    }
    out_.Rebuilt.append(piece);
  }

  // The text from from up to the next delimiter joins the cell; gives where
  // it stops.
  std::size_t Run(std::string_view line, std::size_t from) {
    std::size_t end = from;
    while (end < line.size() && !splitter_.IsDelimiter(line[end])) ++end;
    Piece(line.substr(from, end - from));
    return end;
  }

  std::size_t SplitAtDelimiters(std::string_view line, std::size_t from, int most, int opener) {
    std::size_t i = from;
    while (i < line.size() && static_cast<unsigned char>(line[i]) != opener) {
      i = Run(line, i);
      if (i == line.size()) break;
      EndCell();
      ++i;
      if (count_ == most) break;
    }
    return i;
  }

  void EndCell() {
    out_.Cells[static_cast<std::size_t>(count_++)] =
        copied_ ? std::string_view(out_.Rebuilt).substr(copyStart_) : cell_;
    cell_ = {};
    copied_ = false;
  }

  // Cells past the line's last are empty.
  void Close() {
    out_.Count = static_cast<int16_t>(count_);
    for (auto slot = static_cast<std::size_t>(count_); slot < out_.Cells.size(); ++slot) out_.Cells[slot] = {};
  }

 private:
  const LineSplitter& splitter_;
  LineCells& out_;
  int count_ = 0;
  std::string_view cell_;
  bool copied_ = false;
  std::size_t copyStart_ = 0;
};

// The cells of CleanedCells, each piece copied once: spaces before a cell's
// first other character are never copied, those after its last are taken
// back when the cell ends, and then it is cut to its first 100 characters.
// The pieces of a line never overlap, so the line's length is room enough;
// the room is checked all the same, as a copy must never run past it. The
// text up to a delimiter, most of a file, is copied as it is scanned.
class CleanedWriter {
 public:
  CleanedWriter(const LineSplitter& splitter, std::string_view line, CleanedCells& out)
      : splitter_(splitter), out_(out) {
    if (out_.Text.size() < line.size()) out_.Text.resize(line.size());
    text_ = out_.Text.data();
  }

  int Count() const { return count_; }

  void Piece(std::string_view piece) {
    if (at_ == cellStart_) {
      std::size_t blanks = 0;
      while (blanks < piece.size() && piece[blanks] == ' ') ++blanks;
      piece.remove_prefix(blanks);
    }
    if (piece.empty()) return;
    MakeRoom(piece.size());
    std::memcpy(text_ + at_, piece.data(), piece.size());
    at_ += piece.size();
  }

  std::size_t Run(std::string_view line, std::size_t from) {
    const char* text = line.data();
    const std::size_t length = line.size();
    std::size_t i = from;
    // A space that cuts is no part of a cell; one that does not is left out
    // only before the cell's first other character.
    if (at_ == cellStart_ && !splitter_.IsDelimiter(' '))
      while (i < length && text[i] == ' ') ++i;
    MakeRoom(length - i);
    char* out = text_ + at_;
    const char* const first = text + i;
    while (i < length && !splitter_.IsDelimiter(text[i])) *out++ = text[i++];
    at_ += static_cast<std::size_t>(text + i - first);
    return i;
  }

  // The cells up to a delimiter, each taken as it is scanned: most of a
  // file goes through here, one test of each character.
  std::size_t SplitAtDelimiters(std::string_view line, std::size_t from, int most, int opener) {
    const char* text = line.data();
    const std::size_t length = line.size();
    MakeRoom(length - from);
    char* const base = text_;
    char* out = base + at_;
    char* start = out;
    int count = count_;
    std::size_t i = from;
    std::size_t first = from;
    for (; i < length; ++i) {
      const char c = text[i];
      if (splitter_.IsDelimiter(c)) {
        // A qualifier that also cuts still opens a cell.
        if (i == first && static_cast<unsigned char>(c) == opener) break;
        out = CleanEnd(start, out);
        out_.Ends[static_cast<std::size_t>(count++)] = static_cast<uint32_t>(out - base);
        start = out;
        first = i + 1;
        if (count == most) {
          ++i;
          break;
        }
      } else if (i == first && static_cast<unsigned char>(c) == opener) {
        break;
      } else if (c != ' ' || out != start) {
        *out++ = c;
      }
    }
    at_ = static_cast<std::size_t>(out - base);
    cellStart_ = static_cast<std::size_t>(start - base);
    count_ = count;
    return i;
  }

  void EndCell() {
    at_ = static_cast<std::size_t>(CleanEnd(text_ + cellStart_, text_ + at_) - text_);
    out_.Ends[static_cast<std::size_t>(count_++)] = static_cast<uint32_t>(at_);
    cellStart_ = at_;
  }

  void MakeRoom(std::size_t n) {
    if (n <= out_.Text.size() - at_) return;
    out_.Text.resize(at_ + n);
    text_ = out_.Text.data();
  }

  // Cells past the line's last are empty: they end where the last one does.
  void Close() {
    out_.Count = static_cast<int16_t>(count_);
    for (auto slot = static_cast<std::size_t>(count_); slot < out_.Ends.size(); ++slot)
      out_.Ends[slot] = static_cast<uint32_t>(at_);
  }

 private:
  // Where the cell copied from start to end ends once cleaned: the spaces
  // after its last other character taken back, then cut to 100 characters.
  static char* CleanEnd(char* start, char* end) {
    while (end > start && end[-1] == ' ') --end;
    if (static_cast<std::size_t>(end - start) > kMaxCellLength) end = start + kMaxCellLength;
    return end;
  }

  const LineSplitter& splitter_;
  CleanedCells& out_;
  char* text_;
  std::size_t at_ = 0;
  std::size_t cellStart_ = 0;
  int count_ = 0;
};

}  // namespace

void LineSplitter::Cut(std::string_view line, LineCells& out) const {
  CellViews cells(*this, line, out);
  CutInto(line, cells);
  cells.Close();
}

void LineSplitter::CutCleaned(std::string_view line, CleanedCells& out) const {
  CleanedWriter cells(*this, line, out);
  CutInto(line, cells);
  cells.Close();
}

template <class Cells>
void LineSplitter::CutInto(std::string_view line, Cells& cells) const {
  if (format_.FixedWidth) {
    FixedSplit(line, cells);
    return;
  }
  // The scan counts positions in 16 bits and steps one past the last
  // character: a line this long cannot be counted.
  if (line.size() > kLongestDelimitedLine) Raise(err::Overflow);
  if (qualified_ && line.find(qualifier_) == std::string_view::npos)
    UnquotedQualifierSplit(line, cells);
  else if (qualified_)
    QualifierSplit(line, cells);
  else
    PlainSplit(line, cells);
}

// Every separator makes a cell, the last cell is always made (even when
// empty), and a run of delimiters counts as one only after the first of them:
// a delimiter in first position always makes an empty first cell.
template <class Cells>
void LineSplitter::PlainSplit(std::string_view line, Cells& cells) const {
  const std::size_t length = line.size();
  std::size_t i = 0;
  if (!format_.ConsecutiveAsOne) {
    i = cells.SplitAtDelimiters(line, 0, kMaxSplits, kNoOpener);
  } else {
    bool inRun = false;
    while (i < length && cells.Count() < kMaxSplits) {
      if (!IsDelimiter(line[i])) {
        inRun = false;
        i = cells.Run(line, i);
        continue;
      }
      if (!inRun) {
        inRun = true;
        cells.EndCell();
      }
      ++i;
    }
  }
  cells.Piece(line.substr(i));
  cells.EndCell();
}

// A qualifier opens a cell only as its first character; inside, a doubled
// qualifier stands for one, and text after the closing one joins the cell. A
// delimiter where a cell would start makes an empty cell, or none with
// consecutive-as-one, and a line that ends there makes no trailing cell.
template <class Cells>
void LineSplitter::QualifierSplit(std::string_view line, Cells& cells) const {
  enum class State { FieldStart, InQuotes, InField };
  const std::size_t length = line.size();
  const char q = qualifier_;
  State state = State::FieldStart;
  std::size_t i = 0;
  while (i < length && cells.Count() < kMaxSplits) {
    switch (state) {
      case State::FieldStart:
        if (line[i] == q) {
          state = State::InQuotes;
          ++i;
        } else if (!format_.ConsecutiveAsOne) {
          // Up to a cell that the qualifier opens, the cells are cut as in
          // a line without it.
          i = cells.SplitAtDelimiters(line, i, kMaxSplits, static_cast<unsigned char>(q));
          if (i == length && !IsDelimiter(line[length - 1])) state = State::InField;
        } else if (IsDelimiter(line[i])) {
          ++i;
        } else {
          state = State::InField;
        }
        break;
      case State::InQuotes: {
        // Up to the next qualifier the text is the cell's as it stands.
        std::size_t end = line.find(q, i);
        if (end == std::string_view::npos) end = length;
        cells.Piece(line.substr(i, end - i));
        i = end;
        if (i == length) break;
        if (i + 1 == length) {
          // A qualifier as the line's last character closes nothing.
          ++i;
        } else if (line[i + 1] == q) {
          cells.Piece(line.substr(i, 1));
          i += 2;
        } else {
          state = State::InField;
          ++i;
        }
        break;
      }
      case State::InField: {
        // A cell runs to the next delimiter, qualifiers and all.
        i = cells.Run(line, i);
        if (i < length) {
          cells.EndCell();
          state = State::FieldStart;
          ++i;
        }
        break;
      }
    }
  }
  if (i < length && cells.Count() == kMaxSplits) {
    // The rest of a long line goes into cell 30 as it stands, qualifiers and all.
    cells.Piece(line.substr(i));
    cells.EndCell();
  } else if (state != State::FieldStart) {
    cells.EndCell();
  }
}

// QualifierSplit of a line in which the qualifier does not occur, as most
// lines of a survey file are: the same cells, each taken in one piece.
template <class Cells>
void LineSplitter::UnquotedQualifierSplit(std::string_view line, Cells& cells) const {
  const char* text = line.data();
  const std::size_t length = line.size();
  std::size_t i = 0;
  bool inField = false;
  if (!format_.ConsecutiveAsOne) {
    i = cells.SplitAtDelimiters(line, 0, kMaxSplits, kNoOpener);
    inField = i == length && length > 0 && !IsDelimiter(text[length - 1]);
  }
  while (i < length && cells.Count() < kMaxSplits) {
    if (IsDelimiter(text[i])) {
      ++i;
      continue;
    }
    // A cell runs to the next delimiter.
    i = cells.Run(line, i);
    if (i < length) {
      cells.EndCell();
      ++i;
    } else {
      inField = true;
    }
  }
  if (i < length && cells.Count() == kMaxSplits) {
    // The rest of a long line goes into cell 30 as it stands.
    cells.Piece(line.substr(i));
    cells.EndCell();
  } else if (inField) {
    cells.EndCell();
  }
}

// Markers are used as they stand: the load sorts them first, the preview
// shows them in the order the user made them. Without any marker the first
// cell is cut at marker 1's position all the same, so the count is never
// below 2.
template <class Cells>
void LineSplitter::FixedSplit(std::string_view line, Cells& cells) const {
  const ColumnMarkerList& markers = format_.Markers;
  const long long first = markers.ColumnMarkers(1);
  if (first < 0) Raise(err::InvalidProcedureCall);
  cells.Piece(line.substr(0, std::min<std::size_t>(static_cast<std::size_t>(first), line.size())));
  cells.EndCell();
  int n = 2;
  for (; n <= markers.NumMarkers; ++n) {
    const long long from = markers.ColumnMarkers(n - 1);
    cells.Piece(Mid(line, from, markers.ColumnMarkers(n) - from));
    cells.EndCell();
  }
  cells.Piece(MidToEnd(line, markers.ColumnMarkers(n - 1)));
  cells.EndCell();
}

bool IsDelimiter(const std::string& delimiters, char ch) {
  const auto c = static_cast<unsigned char>(ch);
  const unsigned char other = OtherCase(c);
  for (char d : delimiters) {
    const auto dc = static_cast<unsigned char>(d);
    if (dc == c || dc == other) return true;
  }
  return false;
}

ParsedLine PullColumns(const ColumnFormat& format, int16_t lineIndex, std::string_view lineText) {
  ParsedLine parsed;
  LineSplitter splitter(format);
  if (lineIndex == -1)
    splitter.Split(lineText, parsed);
  else
    splitter.Split(PreviewLine(lineIndex), parsed);
  return parsed;
}

}  // namespace corvalin
