// Profile files: "[Section]" headers and "key=value" lines. The settings
// store and the templates (.cnv) are both profile files. Sections and keys are
// found without regard to case, values are trimmed of blanks on reading, and a
// write replaces or adds one key, keeping the rest of the file as it was; the
// file is replaced whole (shell/FileReplace), never left half written.
// Files are written with CR LF line ends and read with CR LF, LF or a lone
// CR as line ends. A file is read whole once and kept while it stays as it
// was, so reading many keys costs one reading of the file.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace corvalin {

// The shared read buffer holds this many characters; a longer value is cut.
// It is far above any value the program writes (cells are at most 100
// characters, paths at most 260).
inline constexpr std::size_t kProfileValueMax = 4095;

// The value of key in section, or def when the file, section or key is missing.
// The value is cut at its first NUL and trimmed of blanks.
std::string ReadProfileString(const std::string& path, const std::string& section,
                              const std::string& key, const std::string& def);

// Replaces the key's value, or adds the key (and the section) when missing.
// Returns false when the file could not be written; callers that follow the
// platform's habit ignore the result.
bool WriteProfileString(const std::string& path, const std::string& section,
                        const std::string& key, const std::string& value);

// Changes to one profile file gathered in memory and written once, whole:
// a template is saved key by key, and a file written at each key would, for
// a process killed between two of them, hold only some. Each change gives
// the lines that writing the key to the file and reading it back would give.
class ProfileFileEdit {
 public:
  // Reads the file as it stands (none: no lines).
  explicit ProfileFileEdit(std::string path);

  // As WriteProfileString, on the lines in memory.
  void WriteString(const std::string& section, const std::string& key, const std::string& value);
  // Replaces the file with the lines, each followed by CR LF. False when the
  // file could not be written; it is then as it was.
  bool Save();

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::vector<std::string> lines_;
};

// Removes the key from the section; nothing when it is not there.
bool DeleteProfileKey(const std::string& path, const std::string& section, const std::string& key);

// A file whose last change is this long past is settled: its reading is kept
// while it stays as it was. One changed more recently is read at every lookup.
inline constexpr auto kProfileSettledAfter = std::chrono::seconds(2);

// The clock against which a file's change time is read; tests set their own
// (empty: the system clock).
using ProfileClock = std::function<std::chrono::system_clock::time_point()>;
void SetProfileClock(ProfileClock clock);

// How many times a profile file has been read from the disk so far.
std::size_t ProfileFileReads();

}  // namespace corvalin
