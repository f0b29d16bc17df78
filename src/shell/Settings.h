// The per-user settings store: application, section and key, all text.
// It lives in one profile file per application,
// $XDG_CONFIG_HOME/<application>/<application>.ini (~/.config when the
// variable is unset), with one section per settings section.
#pragma once

#include <string>

namespace corvalin {

// The application name of the settings store and the product folder.
inline constexpr const char* SettingsApplication = "Orvanta";

std::string SettingsFilePath(const std::string& application);
std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& def);
void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                 const std::string& value);
void DeleteSetting(const std::string& application, const std::string& section, const std::string& key);

}  // namespace corvalin
