#include "shell/DesktopModule.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace corvalin {
namespace {

constexpr const char* kModuleFile = "lib/corvalin/corvalin-desktop.so";
constexpr const char* kEntryName = "corvalin_desktop_run";

}  // namespace

DesktopEntry LoadDesktopModule(std::string& why) {
  namespace fs = std::filesystem;
  std::error_code ec;
  const fs::path program = fs::read_symlink("/proc/self/exe", ec);
  if (ec) {
    why = "the program's own folder is unknown: " + ec.message();
    return nullptr;
  }
  const fs::path module = program.parent_path().parent_path() / kModuleFile;
  // Loaded for the whole process: the windows stay until it ends.
  void* handle = ::dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    const char* error = ::dlerror();
    why = error != nullptr ? error : module.string() + ": cannot be loaded";
    return nullptr;
  }
  void* entry = ::dlsym(handle, kEntryName);
  if (entry == nullptr) {
    why = module.string() + ": no " + kEntryName;
    return nullptr;
  }
  return reinterpret_cast<DesktopEntry>(entry);
}

}  // namespace corvalin
