#include "shell/ShellPath.h"

#include <sys/stat.h>

#include <filesystem>

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

bool SameFile(const std::string& a, const std::string& b) {
  if (a == b) return true;
  if (a.empty() || b.empty()) return false;
  struct stat infoA {};
  struct stat infoB {};
  if (::stat(a.c_str(), &infoA) == 0 && ::stat(b.c_str(), &infoB) == 0)
    return infoA.st_dev == infoB.st_dev && infoA.st_ino == infoB.st_ino;
  std::error_code ecA;
  std::error_code ecB;
  const auto resolvedA = std::filesystem::weakly_canonical(a, ecA);
  const auto resolvedB = std::filesystem::weakly_canonical(b, ecB);
  return !ecA && !ecB && resolvedA == resolvedB;
}

}  // namespace corvalin
