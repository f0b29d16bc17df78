#include "Confine.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

#ifndef LANDLOCK_ACCESS_FS_TRUNCATE
#define LANDLOCK_ACCESS_FS_TRUNCATE (1ULL << 14)
#endif

namespace corvalin::exerciser {

namespace {

// The closing file descriptor of a ruleset or a path, whatever way out.
struct Descriptor {
  int fd = -1;
  ~Descriptor() {
    if (fd >= 0) ::close(fd);
  }
};

std::string Failed(const char* step) { return std::string(step) + ": " + std::strerror(errno); }

}  // namespace

bool ConfineWrites(const std::vector<std::string>& writableFolders, std::string& why) {
  const long abi = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (abi < 1) {
    why = "the kernel has no Landlock (" + Failed("landlock_create_ruleset") + ")";
    return false;
  }
  // Every way of changing the file system; reading and running stay free.
  std::uint64_t writes = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                         LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR |
                         LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                         LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
  if (abi >= 2) writes |= LANDLOCK_ACCESS_FS_REFER;
  if (abi >= 3) writes |= LANDLOCK_ACCESS_FS_TRUNCATE;
  landlock_ruleset_attr attributes{};
  attributes.handled_access_fs = writes;
  Descriptor ruleset{static_cast<int>(::syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0))};
  if (ruleset.fd < 0) {
    why = Failed("landlock_create_ruleset");
    return false;
  }
  std::vector<std::pair<std::string, std::uint64_t>> rules{
      {"/dev", writes & (LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_TRUNCATE)}};
  for (const std::string& folder : writableFolders) rules.emplace_back(folder, writes);
  for (const auto& [folder, allowed] : rules) {
    Descriptor path{::open(folder.c_str(), O_PATH | O_CLOEXEC | O_DIRECTORY)};
    if (path.fd < 0) {
      why = Failed(("open " + folder).c_str());
      return false;
    }
    landlock_path_beneath_attr beneath{};
    beneath.allowed_access = allowed;
    beneath.parent_fd = path.fd;
    if (::syscall(SYS_landlock_add_rule, ruleset.fd, LANDLOCK_RULE_PATH_BENEATH, &beneath, 0) != 0) {
      why = Failed("landlock_add_rule");
      return false;
    }
  }
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
    why = Failed("prctl no_new_privs");
    return false;
  }
  if (::syscall(SYS_landlock_restrict_self, ruleset.fd, 0) != 0) {
    why = Failed("landlock_restrict_self");
    return false;
  }
  return true;
}

}  // namespace corvalin::exerciser
