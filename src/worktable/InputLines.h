// The lines of an input file, read as they are asked for and handed out one
// at a time. A line ends at CR, at CR LF or at LF; the end of the file ends
// the last line, and a file that ends with a line end has no empty line
// after it. The file is read once, front to back, so that a pipe, a FIFO or
// a device gives its lines as a file does, and a reader may be given a limit
// of line length, past which it stops reading: an endless stream without a
// line end then costs no more than one line of that length.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvalin {

// Spreadsheets save "CSV UTF-8" with the byte order mark EF BB BF in front
// of the first line. It is no character of the line: left in, it would stand
// in front of the first cell and reach the tree list with it.
inline constexpr std::string_view kUtf8ByteOrderMark = "\xEF\xBB\xBF";

class InputLines {
 public:
  static constexpr std::size_t kNoLimit = std::string::npos;

  // Opens the file; one that cannot be opened or read raises the run-time
  // error of its cause (53 not found, 70 permission denied, 75 otherwise).
  explicit InputLines(const std::string& path, std::size_t longestLine = kNoLimit);
  // Splits text that is already in memory.
  static InputLines FromText(std::string text, std::size_t longestLine = kNoLimit);
  InputLines(InputLines&& other) noexcept;
  InputLines& operator=(InputLines&& other) noexcept;
  InputLines(const InputLines&) = delete;
  InputLines& operator=(const InputLines&) = delete;
  ~InputLines();

  // True when no line is left; may wait for a pipe's writer.
  bool AtEnd();
  // Before the first line: steps over a byte order mark at the start.
  void SkipByteOrderMark();
  // The next line, without its line end; valid until the next call.
  void Next(std::string_view& line);
  // The last line was longer than the limit: it came cut to the limit and
  // one character more, and it ended the input, unread past that point.
  bool LineTooLong() const { return tooLong_; }
  // A regular file can be opened and read again; a pipe or a device cannot.
  bool FromRegularFile() const { return regular_; }
  // The bytes the input holds, when known before reading it (a file, a
  // text); 0 for a stream.
  std::size_t KnownSize() const { return knownSize_; }

 private:
  InputLines() = default;
  // Reads more of the file behind what is held; false at its end.
  bool Fill();

  int fd_ = -1;
  bool regular_ = true;
  bool endOfFile_ = true;
  bool tooLong_ = false;
  bool started_ = false;
  std::size_t longestLine_ = kNoLimit;
  std::size_t knownSize_ = 0;
  // What is read and not yet handed out: the first held_ bytes of buffer_.
  std::string_view Held() const { return {buffer_.data(), held_}; }

  std::string buffer_;
  std::size_t held_ = 0;
  std::size_t position_ = 0;
};

}  // namespace corvalin
