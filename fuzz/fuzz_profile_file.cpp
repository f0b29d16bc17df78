// Profile files (templates and the settings store) on any bytes: reading any
// file never fails, and a value written under a key reads back as written
// (trimmed of blanks), with every other key of the file kept.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "shell/ProfileFile.h"
#include "shell/Text.h"

using namespace corvalin;

namespace {

std::string ScratchPath() {
  static const std::string path = "/tmp/corvalin-fuzz-profile-" + std::to_string(::getpid()) + ".cnv";
  return path;
}

bool Storable(const std::string& text) {
  return text.find_first_of(std::string("\r\n\0", 3)) == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::string path = ScratchPath();
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return 0;
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);

  (void)ReadProfileString(path, "FORMAT_INFO", "OrvanVariant", "BC");
  const std::string before = ReadProfileString(path, "COLUMN_DELIMITERS", "Comma", "YES");

  // A value from the input's first line, written under a key of a section.
  const std::string value = TrimBlanks(bytes.substr(0, bytes.find('\n')).substr(0, 60));
  if (Storable(value) && value.find('[') == std::string::npos) {
    WriteProfileString(path, "TEMPLATE_COMMANDS", "FindString1", value);
    if (ReadProfileString(path, "TEMPLATE_COMMANDS", "FindString1", "?") != value) std::abort();
    if (ReadProfileString(path, "COLUMN_DELIMITERS", "Comma", "YES") != before) std::abort();
  }
  std::remove(path.c_str());
  return 0;
}
