#include "shell/FileReplace.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

#include "shell/Process.h"
#include "shell/ScratchFiles.h"
#include "shell/Text.h"
#include "shell/TextFile.h"

namespace corvalin {

namespace {

// Links followed before the path counts as a loop, as the system's own limit.
constexpr int kMostLinksFollowed = 40;
// Tries at a free name for the new file before giving up.
constexpr int kNameTries = 100;
// The part of the file's name the new file's name repeats: a name near the
// system's limit still leaves room for the rest.
constexpr std::size_t kNameKept = 64;

FileReplaceHook& Hook() {
  static FileReplaceHook hook;
  return hook;
}

void Tell(const std::string& target, ReplaceMoment moment, std::size_t written) {
  if (Hook()) Hook()(target, moment, written);
}

std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string NameOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// ".<name>.<host>-": the start of the names of this machine's new files for
// the file of this name. The process id follows, then a dash and six random
// characters.
std::string MachinePrefixOf(const std::string& name) {
  return "." + name.substr(0, kNameKept) + "." + HostName() + "-";
}

// Where the path leads: the path itself, or the end of its chain of symbolic
// links. A missing end is where a new file is made. Gives 0 or the system
// error code that stopped the way.
int Resolve(const std::string& path, std::string* target, struct stat* info, bool* exists) {
  std::string at = path;
  for (int followed = 0; followed <= kMostLinksFollowed; ++followed) {
    if (::lstat(at.c_str(), info) != 0) {
      if (errno != ENOENT) return errno;
      *target = at;
      *exists = false;
      return 0;
    }
    if (!S_ISLNK(info->st_mode)) {
      *target = at;
      *exists = true;
      return 0;
    }
    std::string link(static_cast<std::size_t>(info->st_size > 0 ? info->st_size : 255) + 1, '\0');
    const ssize_t length = ::readlink(at.c_str(), link.data(), link.size());
    if (length < 0) return errno;
    if (static_cast<std::size_t>(length) >= link.size()) return ENAMETOOLONG;
    link.resize(static_cast<std::size_t>(length));
    // A relative link is read from the folder that holds it.
    at = (!link.empty() && link[0] == '/') ? link : FolderOf(at) + link;
  }
  return ELOOP;
}

// Tells the moments of the target when there is one.
int WriteAll(int fd, std::string_view bytes, const std::string* target) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::size_t piece = std::min(kReplacePieceBytes, bytes.size() - done);
    std::size_t sent = 0;
    while (sent < piece) {
      const ssize_t n = ::write(fd, bytes.data() + done + sent, piece - sent);
      if (n < 0) {
        if (errno == EINTR) continue;
        return errno;
      }
      sent += static_cast<std::size_t>(n);
    }
    done += piece;
    if (target != nullptr) Tell(*target, ReplaceMoment::Written, done);
  }
  return 0;
}

// The writing of old, for what cannot be replaced by a name: created or
// emptied at the open, then written.
std::optional<ReplaceFailure> WriteInPlace(const std::string& path, std::string_view bytes) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY, 0666);
  if (fd < 0) return ReplaceFailure{errno, false};
  if (const int code = WriteAll(fd, bytes, nullptr); code != 0) {
    ::close(fd);
    return ReplaceFailure{code, true};
  }
  if (::close(fd) != 0) return ReplaceFailure{errno, true};
  return std::nullopt;
}

// Removes the new files that processes of this machine, now gone, left of
// this file when they were killed outright.
void ClearAbandonedNewFiles(const std::string& folder, const std::string& name) {
  const std::string prefix = MachinePrefixOf(name);
  DIR* dir = ::opendir(folder.empty() ? "." : folder.c_str());
  if (dir == nullptr) return;
  std::vector<std::string> abandoned;
  while (const dirent* entry = ::readdir(dir)) {
    const std::string entryName = entry->d_name;
    if (!StartsWith(entryName, prefix)) continue;
    const std::string rest = entryName.substr(prefix.size());
    const std::size_t dash = rest.find('-');
    if (dash == 0 || dash == std::string::npos || rest.size() != dash + 7) continue;
    char* after = nullptr;
    const long pid = std::strtol(rest.c_str(), &after, 10);
    if (after != rest.c_str() + dash || pid <= 0 || pid == ::getpid()) continue;
    if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) abandoned.push_back(folder + entryName);
  }
  ::closedir(dir);
  for (const std::string& path : abandoned) ::unlink(path.c_str());
}

std::string RandomEnd() {
  static const char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  static std::mt19937_64 random{std::random_device{}() ^ static_cast<std::uint64_t>(::getpid())};
  std::string end(6, 'X');
  for (char& c : end) c = kLetters[random() % (sizeof kLetters - 1)];
  return end;
}

// Makes the new file beside the target. A file that replaces another is
// made for the owner alone and is given the old file's permissions once
// made; a file that is new gets what a plain create gives under the umask.
int MakeNewFile(const std::string& folder, const std::string& name, bool replacing, std::string* newPath) {
  const std::string start = folder + MachinePrefixOf(name) + std::to_string(::getpid()) + "-";
  for (int tries = 0; tries < kNameTries; ++tries) {
    *newPath = start + RandomEnd();
    const int fd =
        ::open(newPath->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, replacing ? 0600 : 0666);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  errno = EEXIST;
  return -1;
}

// Goes away with a process ended by a signal; not being able to say so
// costs only a file left behind.
void RemoveIfProcessEnds(const std::string& path) {
  try {
    RemoveWhenProcessEnds(path);
  } catch (...) {
  }
}

std::optional<ReplaceFailure> Abandon(const std::string& newPath, int fd, int code) {
  if (fd >= 0) ::close(fd);
  ::unlink(newPath.c_str());
  KeepWhenProcessEnds(newPath);
  return ReplaceFailure{code, true};
}

}  // namespace

void SetFileReplaceHook(FileReplaceHook hook) { Hook() = std::move(hook); }

std::optional<ReplaceFailure> TryReplaceFileWhole(const std::string& path, std::string_view bytes) {
  if (path.empty()) return ReplaceFailure{ENOENT, false};
  std::string target;
  struct stat old {};
  bool exists = false;
  if (const int code = Resolve(path, &target, &old, &exists); code != 0) return ReplaceFailure{code, false};
  if (exists && S_ISDIR(old.st_mode)) return ReplaceFailure{EISDIR, false};
  if (exists && !S_ISREG(old.st_mode)) return WriteInPlace(target, bytes);
  if (exists) {
    // The file must be one the user may write, as the writing in place
    // needed; the folder alone would let a protected file be replaced.
    const int probe = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (probe < 0) return ReplaceFailure{errno, false};
    ::close(probe);
  }

  const std::string folder = FolderOf(target);
  const std::string name = NameOf(target);
  ClearAbandonedNewFiles(folder, name);
  std::string newPath;
  const int fd = MakeNewFile(folder, name, exists, &newPath);
  if (fd < 0) {
    const int code = errno;
    // A file the user may write in a folder where nothing may be made is
    // written as before, in place.
    if (exists && (code == EACCES || code == EPERM)) return WriteInPlace(target, bytes);
    return ReplaceFailure{code, false};
  }
  RemoveIfProcessEnds(newPath);
  if (exists) {
    // Owner and group only where the process may give them; the permission
    // bits after them, as a change of owner may clear some.
    if (::fchown(fd, old.st_uid, old.st_gid) != 0) {
      // Kept as the process's own: the permission bits still follow.
    }
    if (::fchmod(fd, old.st_mode & 07777) != 0) return Abandon(newPath, fd, errno);
  }
  Tell(target, ReplaceMoment::Written, 0);
  if (const int code = WriteAll(fd, bytes, &target); code != 0) return Abandon(newPath, fd, code);
  if (::fsync(fd) != 0) return Abandon(newPath, fd, errno);
  if (::close(fd) != 0) return Abandon(newPath, -1, errno);
  if (::rename(newPath.c_str(), target.c_str()) != 0) return Abandon(newPath, -1, errno);
  KeepWhenProcessEnds(newPath);
  Tell(target, ReplaceMoment::Replaced, bytes.size());
  // The new name itself reaches the disk; the file is in place whatever this
  // gives.
  const int dir = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    if (::fsync(dir) != 0) {
      // Nothing to undo: the rename has been done.
    }
    ::close(dir);
  }
  return std::nullopt;
}

void ReplaceFileWhole(const std::string& path, std::string_view bytes) {
  if (const auto failure = TryReplaceFileWhole(path, bytes)) RaiseFileError(failure->code);
}

}  // namespace corvalin
