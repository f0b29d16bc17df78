// Files that nobody may write, the program's user root included.
#pragma once

#include <filesystem>
#include <vector>

namespace corvalin::testing {

// Makes the file at path unwritable for every process and undoes that when it
// goes. The file loses its write permission. A process of root writes through
// permissions, so where that is still possible the file is also made
// immutable, the file system's own lock that binds root too. Where the file
// system or the machine's rights refuse that attribute (a container without
// the right to set it), a folder of that name takes the file's place: no
// process can open a folder for writing, and a program that opens the path
// for output meets a refusal all the same.
class Unwritable {
 public:
  explicit Unwritable(const std::filesystem::path& path);
  ~Unwritable();
  Unwritable(const Unwritable&) = delete;
  Unwritable& operator=(const Unwritable&) = delete;

  // False when a folder had to take the file's place.
  bool StillAFile() const { return !replacedByFolder_; }

 private:
  std::filesystem::path path_;
  bool immutable_ = false;
  bool replacedByFolder_ = false;
};

}  // namespace corvalin::testing
