// The settings store, a profile file, on any file: reading never fails, a
// value saved under a section and key reads back as saved (trimmed of blanks)
// under any case of the names, and another key of the file reads the same
// before and after. The last bytes choose the section, the keys and the
// value; the rest is the settings file as found.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "FuzzSupport.h"
#include "shell/ProfileFile.h"
#include "shell/Settings.h"
#include "shell/Text.h"

using namespace corvalin;
using fuzz::Require;

namespace {

bool HoldsLineEndOrNull(const std::string& text) {
  return text.find_first_of(std::string("\r\n\0", 3)) != std::string::npos;
}

// A name the file can hold: a section name without "]", a key without "=",
// neither blank at its ends nor read as a comment or a section header.
bool StorableName(const std::string& name, bool isKey) {
  if (name.empty() || HoldsLineEndOrNull(name) || TrimBlanks(name) != name) return false;
  if (isKey) return name.find('=') == std::string::npos && name[0] != ';' && name[0] != '[';
  return name.find(']') == std::string::npos;
}

std::string OtherCase(std::string text) {
  for (char& ch : text) {
    if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 32);
    else if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch + 32);
  }
  return text;
}

std::string ChooseName(FuzzedDataProvider& in) {
  static const char* const kNames[] = {"Common", "DataDir", "WorkDir", "Brenwick", "HelpDir", "Corvalin",
                                       "Configured", "COLUMN_DELIMITERS", "FindString1", "a"};
  if (in.ConsumeBool()) return kNames[in.ConsumeIntegralInRange<std::size_t>(0, 9)];
  return in.ConsumeRandomLengthString(12);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string section = ChooseName(in);
  const std::string key = ChooseName(in);
  const std::string otherSection = ChooseName(in);
  const std::string otherKey = ChooseName(in);
  const std::string value = in.ConsumeRandomLengthString(80);

  (void)fuzz::ScratchHome();
  const std::string app = SettingsApplication;
  const std::string path = SettingsFilePath(app);
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  fuzz::WriteBytes(path, in.ConsumeRemainingBytesAsString());

  const std::string before = GetSetting(app, otherSection, otherKey, "?");
  Require(before.size() <= kProfileValueMax, "a value read is longer than the read buffer");
  if (!StorableName(section, false) || !StorableName(key, true) || HoldsLineEndOrNull(value)) return 0;

  SaveSetting(app, section, key, value);
  Require(GetSetting(app, section, key, "?") == TrimBlanks(value), "a saved value did not read back");
  Require(GetSetting(app, OtherCase(section), OtherCase(key), "?") == TrimBlanks(value),
          "a saved value did not read back under the other case of its names");
  const bool sameKey = EqualsNoCase(section, otherSection) && EqualsNoCase(key, otherKey);
  if (!sameKey) Require(GetSetting(app, otherSection, otherKey, "?") == before, "saving changed another key");

  DeleteSetting(app, section, key);
  if (!sameKey) Require(GetSetting(app, otherSection, otherKey, "?") == before, "deleting changed another key");
  return 0;
}
