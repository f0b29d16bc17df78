#include "shell/ProfileFile.h"

#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <sstream>
#include <utility>
#include <unordered_map>
#include <vector>

#include "shell/FileReplace.h"
#include "shell/Text.h"

namespace corvalin {

namespace {

// The lines of the file. A line ends at CR LF, at LF or at a lone CR, as a
// line of an input file does: a CR inside a value edited on another system
// ends the value there, and what follows it is a line of its own.
std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = start;
    while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
    lines.push_back(text.substr(start, end - start));
    if (end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n') ++end;
    start = end + 1;
  }
  return lines;
}

std::vector<std::string> ReadLines(const std::string& path, bool* exists) {
  std::ifstream in(path, std::ios::binary);
  *exists = static_cast<bool>(in);
  if (!in) return {};
  std::ostringstream text;
  text << in.rdbuf();
  return SplitLines(text.str());
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) {
    text += line;
    text += "\r\n";
  }
  return text;
}

bool WriteLines(const std::string& path, const std::vector<std::string>& lines) {
  return !TryReplaceFileWhole(path, Joined(lines));
}

bool BreaksLine(const std::string& text) { return text.find_first_of("\r\n") != std::string::npos; }

// "[Name]" gives "Name"; anything else is no section header.
bool SectionName(const std::string& line, std::string* name) {
  const std::string t = TrimBlanks(line);
  if (t.size() < 2 || t.front() != '[') return false;
  const auto close = t.find(']');
  if (close == std::string::npos) return false;
  *name = TrimBlanks(t.substr(1, close - 1));
  return true;
}

// "key=value" gives the trimmed key; comment and other lines give false.
bool KeyOf(const std::string& line, std::string* key) {
  const std::string t = TrimBlanks(line);
  if (t.empty() || t.front() == ';') return false;
  const auto eq = line.find('=');
  if (eq == std::string::npos) return false;
  *key = TrimBlanks(line.substr(0, eq));
  return true;
}

struct Location {
  long sectionLine = -1;  // index of the header, -1 when missing
  long keyLine = -1;      // index of the key's line, -1 when missing
  long lastLine = -1;     // last non-blank line of the section
};

Location Find(const std::vector<std::string>& lines, const std::string& section, const std::string& key) {
  Location loc;
  bool inSection = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string name;
    if (SectionName(lines[i], &name)) {
      if (inSection) break;
      if (EqualsNoCase(name, section)) {
        inSection = true;
        loc.sectionLine = static_cast<long>(i);
        loc.lastLine = static_cast<long>(i);
      }
      continue;
    }
    if (!inSection) continue;
    if (!TrimBlanks(lines[i]).empty()) loc.lastLine = static_cast<long>(i);
    std::string k;
    if (loc.keyLine < 0 && KeyOf(lines[i], &k) && EqualsNoCase(k, key)) loc.keyLine = static_cast<long>(i);
  }
  return loc;
}

// The keys of a file by section, both in lower case, with the value as it
// stands behind the key's "=". As the lookup of one key reads the file: the
// first section of a name counts, and in it the first line of a key.
using ProfileIndex = std::unordered_map<std::string, std::unordered_map<std::string, std::string>>;

ProfileIndex BuildIndex(const std::vector<std::string>& lines) {
  ProfileIndex index;
  std::unordered_map<std::string, std::string>* keys = nullptr;
  for (const std::string& line : lines) {
    std::string name;
    if (SectionName(line, &name)) {
      auto [entry, added] = index.try_emplace(ToLower(name));
      keys = added ? &entry->second : nullptr;
      continue;
    }
    std::string key;
    if (keys != nullptr && KeyOf(line, &key)) keys->try_emplace(ToLower(key), line.substr(line.find('=') + 1));
  }
  return index;
}

// What tells one state of a file from another.
struct FileStamp {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  timespec modified{};
  timespec changed{};

  bool operator==(const FileStamp& o) const {
    return device == o.device && inode == o.inode && size == o.size && modified.tv_sec == o.modified.tv_sec &&
           modified.tv_nsec == o.modified.tv_nsec && changed.tv_sec == o.changed.tv_sec &&
           changed.tv_nsec == o.changed.tv_nsec;
  }
};

// A file read once is not read again while it stays as it was: a run reads
// the keys of its template one by one, and a large template would otherwise
// be read whole for each of them.
struct CachedIndex {
  FileStamp stamp;
  // A file changed in the last moments may change again within the same
  // tick of the file system's clock, size and all, unseen by its stamp: its
  // reading is not used a second time.
  bool settled = false;
  std::shared_ptr<const ProfileIndex> index;
};

// The settings store and a template or two.
constexpr std::size_t kFilesKept = 8;

ProfileClock& Clock() {
  static ProfileClock clock;
  return clock;
}

std::size_t& Reads() {
  static std::size_t reads = 0;
  return reads;
}

std::unordered_map<std::string, CachedIndex>& Cache() {
  static std::unordered_map<std::string, CachedIndex> cache;
  return cache;
}

std::shared_ptr<const ProfileIndex> IndexOf(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) {
    Cache().erase(path);
    static const auto none = std::make_shared<const ProfileIndex>();
    return none;
  }
  const FileStamp stamp{info.st_dev, info.st_ino, info.st_size, info.st_mtim, info.st_ctim};
  if (const auto it = Cache().find(path); it != Cache().end() && it->second.settled && it->second.stamp == stamp)
    return it->second.index;
  bool exists = false;
  ++Reads();
  auto index = std::make_shared<const ProfileIndex>(BuildIndex(ReadLines(path, &exists)));
  // The change time, which no program can set back, tells how long ago the
  // file last changed.
  const auto changed = std::chrono::system_clock::time_point(
      std::chrono::duration_cast<std::chrono::system_clock::duration>(
          std::chrono::seconds(info.st_ctim.tv_sec) + std::chrono::nanoseconds(info.st_ctim.tv_nsec)));
  const auto now = Clock() ? Clock()() : std::chrono::system_clock::now();
  const bool settled = now - changed >= kProfileSettledAfter;
  if (Cache().size() >= kFilesKept) Cache().clear();
  Cache()[path] = CachedIndex{stamp, settled, index};
  return index;
}

// A file written here is read anew.
void Forget(const std::string& path) { Cache().erase(path); }

}  // namespace

void SetProfileClock(ProfileClock clock) { Clock() = std::move(clock); }

std::size_t ProfileFileReads() { return Reads(); }

std::string ReadProfileString(const std::string& path, const std::string& section, const std::string& key,
                              const std::string& def) {
  const std::shared_ptr<const ProfileIndex> index = IndexOf(path);
  std::string value = def;
  if (const auto s = index->find(ToLower(section)); s != index->end()) {
    if (const auto k = s->second.find(ToLower(key)); k != s->second.end()) value = k->second;
  }
  value = TrimAtNull(value);
  if (value.size() > kProfileValueMax) value.resize(kProfileValueMax);
  return TrimBlanks(value);
}

ProfileFileEdit::ProfileFileEdit(std::string path) : path_(std::move(path)) {
  bool exists = false;
  lines_ = ReadLines(path_, &exists);
}

void ProfileFileEdit::WriteString(const std::string& section, const std::string& key, const std::string& value) {
  const Location loc = Find(lines_, section, key);
  const std::string entry = key + "=" + value;
  if (loc.keyLine >= 0) {
    lines_[static_cast<std::size_t>(loc.keyLine)] = entry;
  } else if (loc.sectionLine >= 0) {
    lines_.insert(lines_.begin() + loc.lastLine + 1, entry);
  } else {
    lines_.push_back("[" + section + "]");
    lines_.push_back(entry);
  }
  // A line end inside the value makes lines of its own once the file is
  // read back; the next key is looked for among those.
  if (BreaksLine(entry) || BreaksLine(section)) lines_ = SplitLines(Joined(lines_));
}

bool ProfileFileEdit::Save() {
  Forget(path_);
  return WriteLines(path_, lines_);
}

bool WriteProfileString(const std::string& path, const std::string& section, const std::string& key,
                        const std::string& value) {
  ProfileFileEdit edit(path);
  edit.WriteString(section, key, value);
  return edit.Save();
}

bool DeleteProfileKey(const std::string& path, const std::string& section, const std::string& key) {
  bool exists = false;
  auto lines = ReadLines(path, &exists);
  const Location loc = Find(lines, section, key);
  if (loc.keyLine < 0) return true;
  lines.erase(lines.begin() + loc.keyLine);
  Forget(path);
  return WriteLines(path, lines);
}

}  // namespace corvalin
