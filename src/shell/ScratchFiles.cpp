#include "shell/ScratchFiles.h"

#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "shell/Error.h"

namespace corvalin {

namespace {

// A run has its working database and, for a moment, its result line.
constexpr std::size_t kSlots = 4;
constexpr std::size_t kLongestPath = 4096;

// Plain arrays: the signal handler may only read memory and unlink.
struct Slot {
  char path[kLongestPath];
  volatile std::sig_atomic_t used;
};
std::array<Slot, kSlots> slots{};

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

void RemoveAll() {
  for (Slot& slot : slots) {
    if (slot.used == 0) continue;
    ::unlink(slot.path);
    slot.used = 0;
  }
}

extern "C" void EndOnSignal(int signal) {
  RemoveAll();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void InstallOnce() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  std::atexit(RemoveScratchFiles);
  for (int signal : kEndingSignals) {
    struct sigaction old {};
    ::sigaction(signal, nullptr, &old);
    // A signal the caller chose to ignore (nohup's hang-up) stays ignored.
    if (old.sa_handler != SIG_DFL) continue;
    struct sigaction action {};
    action.sa_handler = EndOnSignal;
    sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
  }
}

}  // namespace

void RemoveWhenProcessEnds(const std::string& path) {
  if (path.size() >= kLongestPath) Raise(err::PathFileAccess, "RemoveWhenProcessEnds");
  InstallOnce();
  for (Slot& slot : slots) {
    if (slot.used != 0) continue;
    std::memcpy(slot.path, path.c_str(), path.size() + 1);
    slot.used = 1;
    return;
  }
  Raise(err::PathFileAccess, "RemoveWhenProcessEnds");
}

void KeepWhenProcessEnds(const std::string& path) {
  for (Slot& slot : slots) {
    if (slot.used != 0 && path == slot.path) slot.used = 0;
  }
}

void RemoveScratchFiles() { RemoveAll(); }

}  // namespace corvalin
