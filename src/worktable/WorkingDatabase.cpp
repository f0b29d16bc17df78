#include "worktable/WorkingDatabase.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <vector>

#include "shell/Error.h"
#include "shell/RunState.h"
#include "shell/Process.h"
#include "shell/ScratchFiles.h"
#include "shell/Text.h"

namespace corvalin {

namespace {

namespace fs = std::filesystem;

std::string& PrivatePath() {
  static std::string path;
  return path;
}

// "TFT-<host>-": the start of the names of this machine's unattended runs.
// The process id follows, so that what a killed run left can be told from
// the database of a run that is still going.
std::string OwnPrefix() { return "TFT-" + HostName() + "-"; }

// Removes the databases that unattended runs of this machine left when they
// were killed outright: those whose process is gone.
void ClearAbandonedDatabases(const std::string& folder) {
  const std::string prefix = OwnPrefix();
  std::error_code ec;
  std::vector<fs::path> abandoned;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string name = it->path().filename().string();
    if (!StartsWith(name, prefix) || name.size() < prefix.size() + 4 ||
        name.compare(name.size() - 4, 4, ".mdb") != 0)
      continue;
    const std::string rest = name.substr(prefix.size());
    const std::size_t dash = rest.find('-');
    if (dash == 0 || dash == std::string::npos) continue;
    char* after = nullptr;
    const long pid = std::strtol(rest.c_str(), &after, 10);
    if (after != rest.c_str() + dash || pid <= 0) continue;
    if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) abandoned.push_back(it->path());
  }
  for (const fs::path& path : abandoned) fs::remove(path, ec);
}

// A new, empty file of this run's own in the Data folder.
std::string MakePrivateDatabase() {
  const std::string folder = Run().DataFolder;
  ClearAbandonedDatabases(folder);
  std::string name = folder + OwnPrefix() + std::to_string(::getpid()) + "-XXXXXX.mdb";
  const int fd = ::mkstemps(name.data(), 4);
  if (fd < 0) {
    if (errno == EACCES || errno == EPERM || errno == EROFS) Raise(err::PermissionDenied, "PrepareDatabase");
    if (errno == ENOENT || errno == ENOTDIR) Raise(err::PathNotFound, "PrepareDatabase");
    Raise(err::PathFileAccess, "PrepareDatabase");
  }
  ::close(fd);
  RemoveWhenProcessEnds(name);
  return name;
}

}  // namespace

bool WorkingDatabaseIsPrivate() { return !PrivatePath().empty(); }

void MakePrivateWorkingDatabase() {
  if (PrivatePath().empty()) PrivatePath() = MakePrivateDatabase();
}

std::string WorkingDatabasePath(const std::string& name) {
  return WorkingDatabaseIsPrivate() ? PrivatePath() : Run().DataFolder + name;
}

void ForgetPrivateWorkingDatabase() {
  std::string& path = PrivatePath();
  if (path.empty()) return;
  ::unlink(path.c_str());
  KeepWhenProcessEnds(path);
  path.clear();
}

}  // namespace corvalin
