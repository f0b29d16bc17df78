#include "shell/ShellPath.h"

#include <sys/stat.h>

#include "shell/Error.h"

namespace corvalin {

bool PathExists(const std::string& path) {
  if (path.empty()) return false;
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0;
}

bool IsDirectory(const std::string& path) {
  if (path.empty()) return false;
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string AddBackslash(const std::string& path) {
  if (path.size() > kMaxPath) Raise(err::InvalidProcedureCall, "ShellPath.AddBackslash");
  if (path.empty() || path.back() == PathSeparator) return path;
  // The separator and the closing NUL must both fit in the buffer.
  if (path.size() + 2 > kMaxPath) return path;
  return path + PathSeparator;
}

bool IsAbsolutePath(const std::string& path) { return !path.empty() && path.front() == PathSeparator; }

}  // namespace corvalin
