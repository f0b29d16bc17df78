#include "shell/ProfileFile.h"

#include <fstream>
#include <sstream>
#include <vector>

#include "shell/Text.h"

namespace corvalin {

namespace {

std::vector<std::string> ReadLines(const std::string& path, bool* exists) {
  std::vector<std::string> lines;
  std::ifstream in(path, std::ios::binary);
  *exists = static_cast<bool>(in);
  if (!in) return lines;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

bool WriteLines(const std::string& path, const std::vector<std::string>& lines) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  for (const auto& line : lines) out << line << "\r\n";
  out.flush();
  return static_cast<bool>(out);
}

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

}  // namespace

std::string ReadProfileString(const std::string& path, const std::string& section, const std::string& key,
                              const std::string& def) {
  bool exists = false;
  const auto lines = ReadLines(path, &exists);
  const Location loc = Find(lines, section, key);
  std::string value = def;
  if (loc.keyLine >= 0) {
    const std::string& line = lines[static_cast<std::size_t>(loc.keyLine)];
    value = line.substr(line.find('=') + 1);
  }
  value = TrimAtNull(value);
  if (value.size() > kProfileValueMax) value.resize(kProfileValueMax);
  return TrimBlanks(value);
}

bool WriteProfileString(const std::string& path, const std::string& section, const std::string& key,
                        const std::string& value) {
  bool exists = false;
  auto lines = ReadLines(path, &exists);
  const Location loc = Find(lines, section, key);
  const std::string entry = key + "=" + value;
  if (loc.keyLine >= 0) {
    lines[static_cast<std::size_t>(loc.keyLine)] = entry;
  } else if (loc.sectionLine >= 0) {
    lines.insert(lines.begin() + loc.lastLine + 1, entry);
  } else {
    lines.push_back("[" + section + "]");
    lines.push_back(entry);
  }
  return WriteLines(path, lines);
}

bool DeleteProfileKey(const std::string& path, const std::string& section, const std::string& key) {
  bool exists = false;
  auto lines = ReadLines(path, &exists);
  const Location loc = Find(lines, section, key);
  if (loc.keyLine < 0) return true;
  lines.erase(lines.begin() + loc.keyLine);
  return WriteLines(path, lines);
}

}  // namespace corvalin
