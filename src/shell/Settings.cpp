#include "shell/Settings.h"

#include <cstdlib>
#include <filesystem>

#include "shell/Error.h"
#include "shell/ProfileFile.h"

namespace corvalin {

namespace {

std::string ConfigHome() {
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  if (xdg != nullptr && *xdg != '\0') return xdg;
  const char* home = std::getenv("HOME");
  return std::string(home != nullptr ? home : "") + "/.config";
}

}  // namespace

std::string SettingsFilePath(const std::string& application) {
  return ConfigHome() + "/" + application + "/" + application + ".ini";
}

std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& def) {
  return ReadProfileString(SettingsFilePath(application), section, key, def);
}

void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                 const std::string& value) {
  const std::filesystem::path path = SettingsFilePath(application);
  std::error_code ec;
  std::filesystem::create_directories(path.parent_path(), ec);
  if (!WriteProfileString(path.string(), section, key, value)) Raise(err::PathFileAccess, "SaveSetting");
}

void DeleteSetting(const std::string& application, const std::string& section, const std::string& key) {
  DeleteProfileKey(SettingsFilePath(application), section, key);
}

}  // namespace corvalin
