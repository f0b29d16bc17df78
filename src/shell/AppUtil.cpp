#include "shell/AppUtil.h"

#include "shell/Error.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"

namespace corvalin {

namespace {
std::string gWorkingDirectoryCaption;
}

const std::string& WorkingDirectoryCaption() { return gWorkingDirectoryCaption; }
void SetWorkingDirectoryCaption(const std::string& caption) { gWorkingDirectoryCaption = caption; }

std::string FileFolderOf(const std::string& path) {
  const auto last = path.rfind(PathSeparator);
  if (last == std::string::npos) return gWorkingDirectoryCaption;
  return path.substr(0, last + 1);
}

std::string FileNameOf(const std::string& path) {
  const auto last = path.rfind(PathSeparator);
  if (last == std::string::npos) return gWorkingDirectoryCaption;
  return path.substr(last + 1);
}

std::string ExpandWorkPath(const std::string& path) {
  if (!path.empty() && path.front() == '.') return "";
  if (IsAbsolutePath(path)) return path;
  return gWorkingDirectoryCaption + path;
}

std::string ShortenWorkPath(const std::string& path) {
  const std::string& work = gWorkingDirectoryCaption;
  if (path.size() < work.size()) return path;
  if (StartsWith(path, work)) return path.substr(work.size());
  return path;
}

std::string TrimFolderEnd(const std::string& path) {
  if (path.empty()) return path;
  if (path == RootFolder) return path;
  // The routine looks at the next-to-last character, which a one-character
  // path does not have.
  if (path.size() == 1) Raise(err::InvalidProcedureCall, "AppUtil.TrimFolderEnd");
  return path.substr(0, path.size() - 1);
}

}  // namespace corvalin
