#include "input/PullColumns.h"

#include <algorithm>

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

void LineSplitter::Cut(std::string_view line, LineCells& out) const {
  out.Rebuilt.clear();
  if (format_.FixedWidth) {
    FixedSplit(line, out);
  } else {
    // The scan counts positions in 16 bits and steps one past the last
    // character: a line this long cannot be counted.
    if (line.size() > kLongestDelimitedLine) Raise(err::Overflow);
    if (qualified_ && line.find(qualifier_) == std::string_view::npos)
      UnquotedQualifierSplit(line, out);
    else if (qualified_)
      QualifierSplit(line, out);
    else
      PlainSplit(line, out);
  }
  for (auto slot = static_cast<std::size_t>(out.Count); slot < out.Cells.size(); ++slot) out.Cells[slot] = {};
}

// Every separator makes a cell, the last cell is always made (even when
// empty), and a run of delimiters counts as one only after the first of them:
// a delimiter in first position always makes an empty first cell.
void LineSplitter::PlainSplit(std::string_view line, LineCells& out) const {
  const std::size_t length = line.size();
  std::size_t cellStart = 0;
  bool inRun = false;
  int count = 0;
  for (std::size_t i = 0; i < length && count < kMaxSplits; ++i) {
    if (IsDelimiter(line[i])) {
      if (format_.ConsecutiveAsOne && inRun) {
        cellStart = i + 1;
      } else {
        inRun = true;
        out.Cells[static_cast<std::size_t>(count++)] = line.substr(cellStart, i - cellStart);
        cellStart = i + 1;
      }
    } else {
      inRun = false;
    }
  }
  out.Cells[static_cast<std::size_t>(count++)] = line.substr(cellStart);
  out.Count = static_cast<int16_t>(count);
}

namespace {

// One cell of a qualified line gathered from runs of the line: while the runs
// follow each other the cell stays a piece of the line; once a qualifier is
// left out between them, the cell is copied into the line's rebuilt text.
// The rebuilt text holds at most the line's characters, and room for them is
// made at the line's start, so the cells taken from it never move.
class CellRuns {
 public:
  CellRuns(std::string_view line, std::string& rebuilt) : line_(line), rebuilt_(rebuilt) {
    rebuilt_.reserve(line.size());
  }

  void Add(std::size_t from, std::size_t to) {
    if (from == to) return;
    if (!copied_) {
      if (begin_ == end_) {
        begin_ = from;
        end_ = to;
        return;
      }
      if (from == end_) {
        end_ = to;
        return;
      }
      copied_ = true;
      copyStart_ = rebuilt_.size();
      rebuilt_.append(line_.substr(begin_, end_ - begin_));
    }
    rebuilt_.append(line_.substr(from, to - from));
  }

  std::string_view Take() {
    const std::string_view cell = copied_ ? std::string_view(rebuilt_).substr(copyStart_)
                                          : line_.substr(begin_, end_ - begin_);
    begin_ = end_ = 0;
    copied_ = false;
    return cell;
  }

 private:
  std::string_view line_;
  std::string& rebuilt_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool copied_ = false;
  std::size_t copyStart_ = 0;
};

}  // namespace

// A qualifier opens a cell only as its first character; inside, a doubled
// qualifier stands for one, and text after the closing one joins the cell. A
// delimiter where a cell would start makes an empty cell, or none with
// consecutive-as-one, and a line that ends there makes no trailing cell.
void LineSplitter::QualifierSplit(std::string_view line, LineCells& out) const {
  enum class State { FieldStart, InQuotes, InField };
  const std::size_t length = line.size();
  const char q = qualifier_;
  State state = State::FieldStart;
  int count = 0;
  CellRuns cell(line, out.Rebuilt);
  const auto makeCell = [&] {
    out.Cells[static_cast<std::size_t>(count)] = cell.Take();
    ++count;
  };
  std::size_t i = 0;
  while (i < length && count < kMaxSplits) {
    switch (state) {
      case State::FieldStart:
        if (line[i] == q) {
          state = State::InQuotes;
          ++i;
        } else if (IsDelimiter(line[i])) {
          if (!format_.ConsecutiveAsOne) makeCell();
          ++i;
        } else {
          state = State::InField;
        }
        break;
      case State::InQuotes: {
        // Up to the next qualifier the text is the cell's as it stands.
        std::size_t end = line.find(q, i);
        if (end == std::string_view::npos) end = length;
        cell.Add(i, end);
        i = end;
        if (i == length) break;
        if (i + 1 == length) {
          // A qualifier as the line's last character closes nothing.
          ++i;
        } else if (line[i + 1] == q) {
          cell.Add(i, i + 1);
          i += 2;
        } else {
          state = State::InField;
          ++i;
        }
        break;
      }
      case State::InField: {
        // A cell runs to the next delimiter, qualifiers and all.
        std::size_t end = i;
        while (end < length && !IsDelimiter(line[end])) ++end;
        cell.Add(i, end);
        i = end;
        if (i < length) {
          makeCell();
          state = State::FieldStart;
          ++i;
        }
        break;
      }
    }
  }
  if (i < length && count == kMaxSplits) {
    // The rest of a long line goes into cell 30 as it stands, qualifiers and all.
    cell.Add(i, length);
    out.Cells[static_cast<std::size_t>(count)] = cell.Take();
    count = kMaxColumns;
  } else if (state != State::FieldStart) {
    makeCell();
  }
  out.Count = static_cast<int16_t>(count);
}

// QualifierSplit of a line in which the qualifier does not occur, as most
// lines of a survey file are: the same cells, each taken in one piece.
void LineSplitter::UnquotedQualifierSplit(std::string_view line, LineCells& out) const {
  const char* text = line.data();
  const std::size_t length = line.size();
  int count = 0;
  std::size_t i = 0;
  std::string_view cell;
  const auto makeCell = [&] {
    out.Cells[static_cast<std::size_t>(count)] = cell;
    cell = {};
    ++count;
  };
  bool inField = false;
  while (i < length && count < kMaxSplits) {
    if (IsDelimiter(text[i])) {
      if (!format_.ConsecutiveAsOne) makeCell();
      ++i;
      continue;
    }
    // A cell runs to the next delimiter.
    std::size_t end = i + 1;
    while (end < length && !IsDelimiter(text[end])) ++end;
    cell = line.substr(i, end - i);
    i = end;
    if (i < length) {
      makeCell();
      ++i;
    } else {
      inField = true;
    }
  }
  if (i < length && count == kMaxSplits) {
    // The rest of a long line goes into cell 30 as it stands.
    out.Cells[static_cast<std::size_t>(count)] = line.substr(i);
    count = kMaxColumns;
  } else if (inField) {
    makeCell();
  }
  out.Count = static_cast<int16_t>(count);
}

// Markers are used as they stand: the load sorts them first, the preview
// shows them in the order the user made them. Without any marker the first
// cell is cut at marker 1's position all the same, so the count is never
// below 2.
void LineSplitter::FixedSplit(std::string_view line, LineCells& out) const {
  const ColumnMarkerList& markers = format_.Markers;
  const long long first = markers.ColumnMarkers(1);
  if (first < 0) Raise(err::InvalidProcedureCall);
  out.Cells[0] = line.substr(0, std::min<std::size_t>(static_cast<std::size_t>(first), line.size()));
  int n = 2;
  for (; n <= markers.NumMarkers; ++n) {
    const long long from = markers.ColumnMarkers(n - 1);
    out.Cells[static_cast<std::size_t>(n - 1)] = Mid(line, from, markers.ColumnMarkers(n) - from);
  }
  out.Cells[static_cast<std::size_t>(n - 1)] = MidToEnd(line, markers.ColumnMarkers(n - 1));
  out.Count = static_cast<int16_t>(n);
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
