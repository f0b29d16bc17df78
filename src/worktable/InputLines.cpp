#include "worktable/InputLines.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "shell/Error.h"

namespace corvalin {

namespace {

// Read in pieces of this size: a line of any length the program counts
// needs one or two of them.
constexpr std::size_t kReadSize = 1 << 16;

[[noreturn]] void RaiseFileError(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR: Raise(err::FileNotFound, "InputLines");
    case EACCES:
    case EPERM: Raise(err::PermissionDenied, "InputLines");
    default: Raise(err::PathFileAccess, "InputLines");
  }
}

}  // namespace

InputLines::InputLines(const std::string& path, std::size_t longestLine) : longestLine_(longestLine) {
  fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd_ < 0) RaiseFileError(errno);
  struct stat info {};
  regular_ = ::fstat(fd_, &info) == 0 && S_ISREG(info.st_mode);
  if (regular_) knownSize_ = static_cast<std::size_t>(info.st_size);
  endOfFile_ = false;
}

InputLines InputLines::FromText(std::string text, std::size_t longestLine) {
  InputLines lines;
  lines.knownSize_ = text.size();
  lines.held_ = text.size();
  lines.buffer_ = std::move(text);
  lines.longestLine_ = longestLine;
  return lines;
}

InputLines::InputLines(InputLines&& other) noexcept { *this = std::move(other); }

InputLines& InputLines::operator=(InputLines&& other) noexcept {
  if (this != &other) {
    if (fd_ >= 0) ::close(fd_);
    fd_ = std::exchange(other.fd_, -1);
    regular_ = other.regular_;
    endOfFile_ = other.endOfFile_;
    tooLong_ = other.tooLong_;
    started_ = other.started_;
    longestLine_ = other.longestLine_;
    knownSize_ = other.knownSize_;
    buffer_ = std::move(other.buffer_);
    held_ = other.held_;
    position_ = other.position_;
  }
  return *this;
}

InputLines::~InputLines() {
  if (fd_ >= 0) ::close(fd_);
}

bool InputLines::Fill() {
  if (endOfFile_) return false;
  // What was handed out goes, so the buffer holds at most the line in hand.
  const std::size_t kept = held_ - position_;
  if (position_ > 0 && kept > 0) std::memmove(buffer_.data(), buffer_.data() + position_, kept);
  held_ = kept;
  position_ = 0;
  // The room read into is made once and kept: clearing it before each read
  // would cost as much as the read.
  if (buffer_.size() < held_ + kReadSize) buffer_.resize(held_ + kReadSize);
  ssize_t got;
  do {
    got = ::read(fd_, buffer_.data() + held_, kReadSize);
  } while (got < 0 && errno == EINTR);
  // A folder opens but cannot be read.
  if (got < 0) RaiseFileError(errno);
  held_ += static_cast<std::size_t>(got);
  if (got == 0) endOfFile_ = true;
  return got > 0;
}

bool InputLines::AtEnd() {
  if (tooLong_) return true;
  while (position_ >= held_) {
    if (!Fill()) return true;
  }
  return false;
}

void InputLines::SkipByteOrderMark() {
  if (started_) return;
  while (held_ < kUtf8ByteOrderMark.size() && Fill()) {
  }
  if (Held().substr(0, kUtf8ByteOrderMark.size()) == kUtf8ByteOrderMark)
    position_ = kUtf8ByteOrderMark.size();
  started_ = true;
}

namespace {

// Where the line that goes on at `from` ends: its first CR or LF, or the end
// of what is held. The library's byte search does it a word at a time.
std::size_t LineEnd(std::string_view text, std::size_t from) {
  const char* begin = text.data() + from;
  const std::size_t rest = text.size() - from;
  const void* lineFeed = std::memchr(begin, '\n', rest);
  const std::size_t untilLineFeed = lineFeed != nullptr ? static_cast<std::size_t>(static_cast<const char*>(lineFeed) - begin) : rest;
  const void* carriageReturn = std::memchr(begin, '\r', untilLineFeed);
  const std::size_t length =
      carriageReturn != nullptr ? static_cast<std::size_t>(static_cast<const char*>(carriageReturn) - begin) : untilLineFeed;
  return from + length;
}

}  // namespace

void InputLines::Next(std::string_view& line) {
  started_ = true;
  std::size_t end = position_;
  for (;;) {
    end = LineEnd(Held(), end);
    if (end - position_ > longestLine_) {
      // The line cannot be counted: what is in hand is enough to say so.
      tooLong_ = true;
      line = Held().substr(position_, longestLine_ + 1);
      return;
    }
    if (end < held_) break;
    // Filling moves the text in hand to the front of the buffer.
    const std::size_t scanned = end - position_;
    if (!Fill()) break;
    end = position_ + scanned;
  }
  // A CR at the end of what is held may be the first half of CR LF.
  if (end < held_ && buffer_[end] == '\r' && end + 1 == held_) {
    const std::size_t lineLength = end - position_;
    Fill();
    end = position_ + lineLength;
  }
  line = Held().substr(position_, end - position_);
  position_ = end;
  if (position_ < held_) {
    if (buffer_[position_] == '\r' && position_ + 1 < held_ && buffer_[position_ + 1] == '\n')
      position_ += 2;
    else
      ++position_;
  }
}

}  // namespace corvalin
