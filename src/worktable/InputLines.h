// The lines of an input file, read in one piece and handed out one at a time.
// A line ends at CR, at CR LF or at LF; the end of the file ends the last
// line, and a file that ends with a line end has no empty line after it.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace corvalin {

// Spreadsheets save "CSV UTF-8" with the byte order mark EF BB BF in front
// of the first line. It is no character of the line: left in, it would stand
// in front of the first cell and reach the tree list with it.
inline constexpr std::string_view kUtf8ByteOrderMark = "\xEF\xBB\xBF";

// Steps over a byte order mark at the start of a file just opened; any other
// start is left where it was.
void SkipByteOrderMark(std::FILE* file);

class InputLines {
 public:
  // Reads the whole file; a file that cannot be read raises the run-time
  // error of its cause (53 not found, 70 permission denied, 75 otherwise).
  explicit InputLines(const std::string& path);
  // Splits text that is already in memory.
  static InputLines FromText(std::string text);

  bool AtEnd() const { return position_ >= text_.size(); }
  // Before the first line: steps over a byte order mark at the start.
  void SkipByteOrderMark();
  // The next line, without its line end; valid while this object lives.
  void Next(std::string_view& line);

 private:
  InputLines() = default;
  std::string text_;
  std::size_t position_ = 0;
};

}  // namespace corvalin
