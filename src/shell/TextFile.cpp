#include "shell/TextFile.h"

#include <cerrno>
#include <cstdio>
#include <map>

#include "shell/Error.h"

namespace corvalin {

namespace {

// Files whose writing failed after the open, by path: they stay open.
std::map<std::string, std::FILE*>& FilesLeftOpen() {
  static std::map<std::string, std::FILE*> files;
  return files;
}

[[noreturn]] void LeaveOpenAndRaise(const std::string& path, std::FILE* file, int code) {
  FilesLeftOpen()[path] = file;
  RaiseFileError(code);
}

}  // namespace

void RaiseFileError(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      Raise(err::PathNotFound);
    case ENOSPC:
    case EDQUOT:
      Raise(err::DiskFull);
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    default:
      Raise(err::PathFileAccess);
  }
}

void WriteLinesInPlace(const std::string& path, const std::vector<std::string>& lines) {
  if (FilesLeftOpen().count(path) != 0) Raise(err::FileAlreadyOpen);
  if (path.empty()) Raise(err::PathFileAccess);
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) RaiseFileError(errno);
  for (const std::string& line : lines) {
    if (std::fwrite(line.data(), 1, line.size(), file) != line.size() || std::fwrite("\r\n", 1, 2, file) != 2)
      LeaveOpenAndRaise(path, file, errno);
  }
  // What is still buffered is written here, so that a full disk is met while
  // the file is open, as a write that fails.
  if (std::fflush(file) != 0) LeaveOpenAndRaise(path, file, errno);
  if (std::fclose(file) != 0) RaiseFileError(errno);
}

void ForgetFilesLeftOpen() {
  for (auto& [path, file] : FilesLeftOpen()) std::fclose(file);
  FilesLeftOpen().clear();
}

}  // namespace corvalin
