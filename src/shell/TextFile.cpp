#include "shell/TextFile.h"

#include <cerrno>
#include <set>

#include "shell/Error.h"
#include "shell/FileReplace.h"

namespace corvalin {

namespace {

// The paths whose writing failed after the open: they count as open.
std::set<std::string>& FilesLeftOpen() {
  static std::set<std::string> files;
  return files;
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
  std::size_t size = 0;
  for (const std::string& line : lines) size += line.size() + 2;
  std::string bytes;
  bytes.reserve(size);
  for (const std::string& line : lines) {
    bytes += line;
    bytes += "\r\n";
  }
  const auto failure = TryReplaceFileWhole(path, bytes);
  if (!failure) return;
  if (failure->afterOpen) FilesLeftOpen().insert(path);
  RaiseFileError(failure->code);
}

void ForgetFilesLeftOpen() { FilesLeftOpen().clear(); }

}  // namespace corvalin
