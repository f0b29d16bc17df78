#include "worktable/InputLines.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "shell/Error.h"

namespace corvalin {

namespace {

[[noreturn]] void RaiseOpenError(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR: Raise(err::FileNotFound, "InputLines");
    case EACCES:
    case EPERM: Raise(err::PermissionDenied, "InputLines");
    default: Raise(err::PathFileAccess, "InputLines");
  }
}

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

InputLines::InputLines(const std::string& path) {
  std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) RaiseOpenError(errno);
  char buffer[1 << 16];
  for (;;) {
    const std::size_t got = std::fread(buffer, 1, sizeof buffer, file.get());
    text_.append(buffer, got);
    if (got < sizeof buffer) break;
  }
  // A folder opens but cannot be read.
  if (std::ferror(file.get())) RaiseOpenError(errno);
}

void InputLines::SkipByteOrderMark() {
  if (position_ == 0 && std::string_view(text_).substr(0, kUtf8ByteOrderMark.size()) == kUtf8ByteOrderMark)
    position_ = kUtf8ByteOrderMark.size();
}

void SkipByteOrderMark(std::FILE* file) {
  char start[3] = {};
  const std::size_t got = std::fread(start, 1, sizeof start, file);
  if (std::string_view(start, got) != kUtf8ByteOrderMark) std::rewind(file);
}

InputLines InputLines::FromText(std::string text) {
  InputLines lines;
  lines.text_ = std::move(text);
  return lines;
}

void InputLines::Next(std::string_view& line) {
  const std::string_view rest = std::string_view(text_).substr(position_);
  std::size_t end = 0;
  while (end < rest.size() && rest[end] != '\r' && rest[end] != '\n') ++end;
  line = rest.substr(0, end);
  position_ += end;
  if (position_ < text_.size()) {
    if (text_[position_] == '\r' && position_ + 1 < text_.size() && text_[position_ + 1] == '\n')
      position_ += 2;
    else
      ++position_;
  }
}

}  // namespace corvalin
