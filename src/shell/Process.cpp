#include "shell/Process.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "shell/ShellPath.h"

namespace corvalin {

namespace {

std::string gCommandLine;
std::string gStartFolder;
std::string gProgramFileFolder;

std::string WithSeparator(std::string folder) {
  if (!folder.empty() && folder.back() != PathSeparator) folder += PathSeparator;
  return folder;
}

}  // namespace

std::string JoinArguments(int argc, const char* const* argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) line += ' ';
    line += argv[i];
  }
  return line;
}

const std::string& CommandLine() { return gCommandLine; }
void SetCommandLine(const std::string& commandLine) { gCommandLine = commandLine; }

const std::string& StartFolder() {
  if (gStartFolder.empty()) {
    std::error_code ec;
    gStartFolder = WithSeparator(std::filesystem::current_path(ec).string());
  }
  return gStartFolder;
}

void SetStartFolder(const std::string& folder) { gStartFolder = WithSeparator(folder); }

std::string FromStartFolder(const std::string& path) {
  if (path.empty() || IsAbsolutePath(path)) return path;
  return StartFolder() + path;
}

const std::string& ProgramFileFolder() {
  if (gProgramFileFolder.empty()) {
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    gProgramFileFolder = WithSeparator(ec ? std::string(".") : exe.parent_path().string());
  }
  return gProgramFileFolder;
}

void SetProgramFileFolder(const std::string& folder) { gProgramFileFolder = WithSeparator(folder); }

std::string HostName() {
  char name[256] = {};
  if (::gethostname(name, sizeof name - 1) != 0 || name[0] == '\0') return "host";
  std::string host = name;
  for (char& c : host)
    if (c == '/' || c == '-') c = '_';
  return host;
}

}  // namespace corvalin
