#include "FuzzSupport.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "shell/Error.h"
#include "shell/Process.h"

namespace corvalin::fuzz {

namespace {

std::string& HomeFolder() {
  static std::string home;
  return home;
}

void RemoveScratchHome() {
  std::error_code ec;
  if (!HomeFolder().empty()) std::filesystem::remove_all(HomeFolder(), ec);
}

}  // namespace

const std::string& ScratchHome() {
  std::string& home = HomeFolder();
  if (!home.empty()) return home;
  // In memory where there is such a folder: a target rewrites its files at
  // every input, and a disk file system may flush a truncated file on close.
  const bool inMemory = ::access("/dev/shm", W_OK) == 0;
  std::string name = std::string(inMemory ? "/dev/shm" : "/tmp") + "/corvalin-fuzz-XXXXXX";
  char* pattern = name.data();
  if (::mkdtemp(pattern) == nullptr) {
    std::perror("mkdtemp");
    std::abort();
  }
  home = std::string(pattern) + "/";
  std::filesystem::create_directories(home + "Data");
  std::filesystem::create_directories(home + "Work");
  std::filesystem::create_directories(home + ".config");
  ::setenv("HOME", pattern, 1);
  ::setenv("XDG_CONFIG_HOME", (home + ".config").c_str(), 1);
  ::unsetenv("XDG_DOCUMENTS_DIR");
  std::atexit(RemoveScratchHome);
  return home;
}

Answer QuietToolkit::Message(const MessageRequest& request) {
  boxes.push_back(request.text);
  return DefaultAnswer(request);
}

std::string QuietToolkit::BrowseForFolder(const std::string&, const std::string&) { return ""; }

AppendChoice QuietToolkit::AskAppendOverwriteCancel(const std::string&) { return AppendChoice::Overwrite; }

void QuietToolkit::RunModal(ModalWindow& window) {
  if (answerModal) answerModal(window);
}

void QuietToolkit::EndProcess(int exitCode) { throw ProcessEnded{exitCode}; }

std::string InstalledFilesFolder() { return ProgramFileFolder() + "../share/corvalin/"; }

void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz finding: %s\n", what);
  // abort skips the exit handlers: the scratch HOME goes first.
  RemoveScratchHome();
  std::abort();
}

}  // namespace corvalin::fuzz
