#include "Supervisor.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "Inputs.h"

namespace corvalin::exerciser {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

// The first line of the child's standard error that a sanitizer wrote.
std::string SanitizerLine(const std::string& errFile) {
  std::ifstream in(errFile);
  std::string line;
  while (std::getline(in, line))
    if (line.find("ERROR: AddressSanitizer") != std::string::npos || line.find("runtime error:") != std::string::npos ||
        line.find("ERROR: LeakSanitizer") != std::string::npos)
      return line;
  return {};
}

struct Life {
  long actionsTold = 0;
  bool budgetSpent = false;
  bool orderlyEnd = false;
  bool timeUp = false;
  std::string finding;
};

void SetUpEnvironment(const std::string& folder, const std::string& home) {
  setenv("HOME", home.c_str(), 1);
  // Scratch files, caches and sockets go where a life may write.
  const std::string scratch = folder + "/scratch";
  fs::create_directories(scratch);
  fs::permissions(scratch, fs::perms::owner_all, fs::perm_options::replace);
  for (const char* name : {"TMPDIR", "SQLITE_TMPDIR", "XDG_RUNTIME_DIR"}) setenv(name, scratch.c_str(), 1);
  setenv("XDG_CACHE_HOME", (home + "/.cache").c_str(), 1);
  setenv("XDG_CONFIG_HOME", (home + "/.config").c_str(), 1);
  unsetenv("XDG_DOCUMENTS_DIR");
  const std::string platform = "offscreen:configfile=" CORVALIN_SOURCE_DIR "/tests/desktop/screen-1366x768.json";
  setenv("QT_QPA_PLATFORM", platform.c_str(), 1);
  // Freed blocks are filled with 0x55: Qt is not built with the sanitizer,
  // so a widget it reads after its deletion would go unseen until its memory
  // is used again; filled, the first read of a pointer in it faults.
  setenv("ASAN_OPTIONS", "abort_on_error=1:halt_on_error=1:detect_leaks=0:max_free_fill_size=1048576:free_fill_byte=85",
         0);
  setenv("UBSAN_OPTIONS", "halt_on_error=1:print_stacktrace=1", 0);
}

Life RunOneLife(const RunOptions& options, RunResult& result, const std::string& inputPath, const std::string& work,
                long budget, const std::string& replayFile, long replayStart, Clock::time_point runStart) {
  Life life;
  int fds[2];
  if (::pipe(fds) != 0) {
    life.finding = "harness: no pipe";
    return life;
  }
  const int number = ++result.lives;
  const std::string errFile = result.folder + "/life-" + std::to_string(number) + ".err";
  std::vector<std::string> args{options.self,    "--life",
                                "--pipe-fd",     std::to_string(fds[1]),
                                "--input",       options.input,
                                "--input-path",  inputPath,
                                "--run-folder",  result.folder,
                                "--work",        work,
                                "--seed",        std::to_string(options.seed),
                                "--life-number", std::to_string(number),
                                "--actions",     std::to_string(budget)};
  if (!replayFile.empty()) {
    args.insert(args.end(), {"--replay", replayFile, "--replay-start", std::to_string(replayStart)});
  }
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(fds[0]);
    const int err = ::open(errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const int null = ::open("/dev/null", O_WRONLY);
    ::dup2(null, 1);
    ::dup2(err, 2);
    std::vector<char*> argv;
    for (std::string& arg : args) argv.push_back(arg.data());
    argv.push_back(nullptr);
    ::execv(options.self.c_str(), argv.data());
    std::_Exit(127);
  }
  ::close(fds[1]);
  std::string pending;
  auto lastLine = Clock::now();
  bool started = false;
  bool busy = false;
  int status = 0;
  bool reaped = false;
  auto handle = [&](const std::string& line) {
    lastLine = Clock::now();
    if (line.rfind("H ", 0) == 0) {
      started = true;
      busy = line == "H 1";
    } else if (line.rfind("A ", 0) == 0) {
      Action action;
      if (Parse(line.substr(2), action)) {
        result.log.push_back(action);
        result.windows.insert(action.window + " (" + action.caption + ")");
        if (action.control != "-") result.controls.insert(action.window + "/" + action.control);
      }
      ++life.actionsTold;
      ++result.actions;
    } else if (line.rfind("F ", 0) == 0) {
      life.finding = line.substr(2);
    } else if (line.rfind("C ", 0) == 0) {
      if (result.confined.empty() || line != "C 1") result.confined = line == "C 1" ? "yes" : line.substr(4);
    } else if (line == "S") {
      ++result.skipped;
    } else if (line.rfind("P ", 0) == 0) {
      ++result.runtimeEnds[line.substr(2)];
    } else if (line.rfind("E ", 0) == 0) {
      life.orderlyEnd = true;
    } else if (line == "D") {
      life.budgetSpent = true;
    }
  };
  auto drain = [&](int timeoutMs) {
    pollfd poller{fds[0], POLLIN, 0};
    if (::poll(&poller, 1, timeoutMs) <= 0) return false;
    char buffer[65536];
    const ssize_t n = ::read(fds[0], buffer, sizeof buffer);
    if (n <= 0) return false;
    pending.append(buffer, static_cast<std::size_t>(n));
    for (std::size_t end; (end = pending.find('\n')) != std::string::npos;) {
      handle(pending.substr(0, end));
      pending.erase(0, end + 1);
    }
    return true;
  };
  while (!reaped) {
    drain(50);
    const pid_t done = ::waitpid(child, &status, WNOHANG);
    if (done == child) {
      reaped = true;
      while (drain(0)) {
      }
      break;
    }
    const double gapMs = std::chrono::duration<double, std::milli>(Clock::now() - lastLine).count();
    const int limit = !started || busy ? options.busyStallMs : options.stallMs;
    if (gapMs > limit) {
      // Where the event loop is stuck, for the finding's report.
      const std::string stacks = result.folder + "/life-" + std::to_string(number) + ".stall";
      const std::string gdb =
          "gdb -p " + std::to_string(child) + " -batch -ex 'thread apply all bt 40' >" + stacks + " 2>&1 </dev/null";
      if (std::system(gdb.c_str()) != 0) std::fprintf(stderr, "exerciser: no stacks of the stalled life\n");
      ::kill(child, SIGKILL);
      ::waitpid(child, &status, 0);
      char text[160];
      std::snprintf(text, sizeof text, "stall: no heartbeat for %.0f ms (the busy window %s)", gapMs,
                    busy ? "up" : "not up");
      life.finding = std::string(text) + " [stacks: " + stacks + "]";
      reaped = true;
      break;
    }
    if (options.seconds > 0 && Since(runStart) > options.seconds) {
      ::kill(child, SIGKILL);
      ::waitpid(child, &status, 0);
      life.timeUp = true;
      reaped = true;
    }
  }
  ::close(fds[0]);
  if (life.timeUp || !life.finding.empty()) return life;
  const std::string sanitizer = SanitizerLine(errFile);
  if (!sanitizer.empty())
    life.finding = "sanitizer report: " + sanitizer;
  else if (WIFSIGNALED(status))
    life.finding = "crash: signal " + std::to_string(WTERMSIG(status)) + " (" + strsignal(WTERMSIG(status)) + ")";
  else if (WIFEXITED(status) && !life.orderlyEnd && !life.budgetSpent)
    life.finding = "crash: exit " + std::to_string(WEXITSTATUS(status)) + " without an orderly end";
  if (!life.finding.empty()) life.finding += " [stderr: " + errFile + "]";
  return life;
}

}  // namespace

std::string FindingKind(const std::string& finding) { return finding.substr(0, finding.find(':')); }

RunResult Supervise(const RunOptions& options, const std::vector<Action>* replay) {
  RunResult result;
  char folder[] = "/tmp/corvalin-exerciser-XXXXXX";
  result.folder = ::mkdtemp(folder);
  const std::string home = result.folder + "/home";
  const std::string work = home + "/Documents/Orvanta/Work";
  SeedWorkFolder(work, CORVALIN_BINARY_DIR "/share/corvalin/Work");
  const std::string inputPath = MakeInput(options.input, result.folder, options.survey);
  SetUpEnvironment(result.folder, home);
  std::string replayFile;
  long total = options.actions;
  if (replay != nullptr) {
    replayFile = result.folder + "/replay.actions";
    WriteActions(replayFile, *replay, "");
    total = static_cast<long>(replay->size());
  }
  const auto start = Clock::now();
  int idleLives = 0;
  while (result.actions < total && result.finding.empty()) {
    const Life life =
        RunOneLife(options, result, inputPath, work, total - result.actions, replayFile, result.actions, start);
    if (!life.finding.empty()) result.finding = life.finding;
    if (life.timeUp) break;
    idleLives = life.actionsTold == 0 ? idleLives + 1 : 0;
    if (idleLives >= 3 && result.finding.empty()) {
      result.finding = "harness: three lives in a row ended before their first action";
      break;
    }
    if (!options.quiet && replay == nullptr)
      std::fprintf(stderr, "exerciser: %s life %d ended after %ld actions in all\n", options.input.c_str(),
                   result.lives, result.actions);
  }
  result.seconds = Since(start);
  return result;
}

}  // namespace corvalin::exerciser
