#include "Unwritable.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace corvalin::testing {

namespace fs = std::filesystem;

namespace {

bool Writable(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

// Sets or clears the immutable attribute; false when it cannot be changed.
bool SetImmutable(const fs::path& path, bool on) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
  if (fd < 0) return false;
  int flags = 0;
  bool done = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
  if (done) {
    flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
    done = ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
  }
  ::close(fd);
  return done;
}

}  // namespace

Unwritable::Unwritable(const fs::path& path) : path_(path) {
  fs::permissions(path_, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read,
                  fs::perm_options::replace);
  if (!Writable(path_)) return;
  immutable_ = SetImmutable(path_, true) && !Writable(path_);
  if (immutable_) return;
  SetImmutable(path_, false);
  fs::remove(path_);
  fs::create_directory(path_);
  replacedByFolder_ = true;
}

Unwritable::~Unwritable() {
  if (immutable_) SetImmutable(path_, false);
  std::error_code ec;
  fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
}

}  // namespace corvalin::testing
