// The lines of an input file, read in one piece and handed out one at a time.
// A line ends at CR, at CR LF or at LF; the end of the file ends the last
// line, and a file that ends with a line end has no empty line after it.
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

class InputLines {
 public:
  // Reads the whole file; a file that cannot be read raises the run-time
  // error of its cause (53 not found, 70 permission denied, 75 otherwise).
  explicit InputLines(const std::string& path);
  // Splits text that is already in memory.
  static InputLines FromText(std::string text);

  bool AtEnd() const { return position_ >= text_.size(); }
  // The next line, without its line end; valid while this object lives.
  void Next(std::string_view& line);

 private:
  InputLines() = default;
  std::string text_;
  std::size_t position_ = 0;
};

}  // namespace corvalin
