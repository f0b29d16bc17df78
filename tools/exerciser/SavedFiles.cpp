#include "SavedFiles.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "shell/Error.h"
#include "templates/TemplateFile.h"

namespace corvalin::exerciser {

namespace {

std::optional<std::string> Read(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string NameOf(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

bool AmongFiles(const std::vector<std::string>& files, const std::string& path) {
  for (const std::string& file : files) {
    std::error_code ec;
    if (!file.empty() && std::filesystem::equivalent(file, path, ec)) return true;
  }
  return false;
}

}  // namespace

std::string LinesFault(const std::string& bytes) {
  if (bytes.empty()) return {};
  if (!EndsWith(bytes, "\r\n")) return "its last line has no line end";
  std::size_t start = 0;
  while (start < bytes.size()) {
    const std::size_t end = bytes.find("\r\n", start);
    const std::string line = bytes.substr(start, end - start);
    if (line.find('\n') != std::string::npos || line.find('\r') != std::string::npos)
      return "a line holds a lone line break";
    if (line.find('\0') != std::string::npos) return "a line holds a NUL byte";
    start = end + 2;
  }
  return {};
}

std::string TemplateFault(const std::string& path, const std::string& bytes, const std::string& before) {
  if (bytes.empty()) return "it is empty";
  if (!EndsWith(bytes, "\n")) return "its last line has no line end";
  std::istringstream in(bytes);
  std::string line;
  std::string section;
  std::string commands;
  bool delimiters = false;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    if (line.front() == '[') {
      if (line.back() != ']') return "a section heading is cut: " + line;
      section = line.substr(1, line.size() - 2);
      delimiters = delimiters || section == SectionColumnDelimiters;
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) {
      if (before.find(line + "\r\n") != std::string::npos || before.find(line + "\n") != std::string::npos) continue;
      return "a line is neither a section nor a key: " + line;
    }
    if (section == SectionTemplateCommands && line.substr(0, equals) == "NumberOfCommands")
      commands = line.substr(equals + 1);
  }
  if (!delimiters) return "it has no COLUMN_DELIMITERS section";
  try {
    ReadColumnDelimiters(path);
    if (!commands.empty()) StoredInteger(commands);
  } catch (const std::exception& error) {
    return std::string("the template reader refuses it: ") + error.what();
  }
  return {};
}

SavedFiles::SavedFiles(std::vector<std::string> paths, const std::string& installedWork) : paths_(std::move(paths)) {
  for (const std::string& path : paths_) {
    kept_[path] = Read(path);
    installed_[path] = Read(installedWork + "/" + NameOf(path));
  }
}

std::string SavedFiles::Check(bool saving, Removal removal, const std::vector<std::string>& linesFiles) {
  for (const std::string& path : paths_) {
    const std::optional<std::string> now = Read(path);
    std::optional<std::string>& kept = kept_[path];
    if (now == kept) continue;
    if (now && now == installed_[path]) {
      kept = now;
      continue;
    }
    const std::string name = NameOf(path);
    if (!now && removal == Removal::Template && EndsWith(path, TemplateExtension)) {
      kept = now;
      continue;
    }
    if (!saving) {
      if (!now) return name + " went missing outside a save";
      return name + " changed outside a save (" + std::to_string(kept ? kept->size() : 0) + " bytes before, " +
             std::to_string(now->size()) + " now)";
    }
    if (!now) return name + " went missing during a save";
    const bool lines = !EndsWith(path, TemplateExtension) || AmongFiles(linesFiles, path);
    const std::string fault = lines ? LinesFault(*now) : TemplateFault(path, *now, kept.value_or(""));
    if (!fault.empty()) return name + " is not a whole file after a save: " + fault;
    kept = now;
  }
  return {};
}

}  // namespace corvalin::exerciser
