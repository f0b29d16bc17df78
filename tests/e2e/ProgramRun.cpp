#include "ProgramRun.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <random>
#include <thread>

#include "TestSupport.h"

extern char** environ;

namespace corvalin::testing {

namespace fs = std::filesystem;

namespace {

fs::path ErrorsPath(const fs::path& home, const Launch& launch) {
  return launch.errorsPath.empty() ? home / "stderr.txt" : launch.errorsPath;
}

// Writes all the bytes; false when the reader went away first.
bool WriteAll(int fd, const std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

pid_t StartCorvalin(const fs::path& home, const Launch& launch) {
  std::vector<std::string> env;
  for (char** e = environ; *e != nullptr; ++e) {
    const std::string entry = *e;
    if (entry.rfind("DISPLAY=", 0) == 0 || entry.rfind("WAYLAND_DISPLAY=", 0) == 0 ||
        entry.rfind("QT_QPA_PLATFORM=", 0) == 0 || entry.rfind("HOME=", 0) == 0 ||
        entry.rfind("XDG_CONFIG_HOME=", 0) == 0)
      continue;
    env.push_back(entry);
  }
  env.push_back("HOME=" + home.string());
  env.push_back("XDG_CONFIG_HOME=" + (home / ".config").string());
  env.insert(env.end(), launch.environment.begin(), launch.environment.end());
  const std::string program = (BinaryDir() / "bin/corvalin").string();
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const auto& a : launch.args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  std::vector<char*> envp;
  for (auto& e : env) envp.push_back(e.data());
  envp.push_back(nullptr);
  const fs::path errorsPath = ErrorsPath(home, launch);
  const fs::path outputPath = home / "stdout.txt";
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (!launch.from.empty() && ::chdir(launch.from.c_str()) != 0) ::_exit(126);
    const int in = launch.standardInput >= 0 ? launch.standardInput : ::open("/dev/null", O_RDONLY);
    const int err = ::open(errorsPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const int out = ::open(outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ::dup2(in, 0);
    ::dup2(out, 1);
    ::dup2(err, 2);
    ::execve(program.c_str(), argv.data(), envp.data());
    ::_exit(127);
  }
  return pid;
}

namespace {

// What the process has read so far, from /proc/<pid>/io; -1 when the system
// does not say.
long long BytesReadBy(pid_t pid) {
  std::ifstream io("/proc/" + std::to_string(pid) + "/io");
  std::string name;
  long long value = 0;
  while (io >> name >> value)
    if (name == "rchar:") return value;
  return -1;
}

ProgramRun Finished(const fs::path& home, const Launch& launch, int status, const struct rusage& usage,
                    ProgramRun run) {
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  run.peakKilobytes = usage.ru_maxrss;
  run.errors = ReadFile(ErrorsPath(home, launch));
  run.output = ReadFile(home / "stdout.txt");
  return run;
}

}  // namespace

ProgramRun WaitForCorvalin(pid_t pid, const fs::path& home, const Launch& launch) {
  int status = 0;
  struct rusage usage {};
  while (::wait4(pid, &status, 0, &usage) < 0 && errno == EINTR) {
  }
  return Finished(home, launch, status, usage, ProgramRun{});
}

ProgramRun WaitForCorvalinReading(pid_t pid, const fs::path& home, const Launch& launch, long long bytesAllowed) {
  ProgramRun run;
  int status = 0;
  struct rusage usage {};
  for (;;) {
    // Read before the wait: a process that has ended but is not yet waited
    // for still tells what it read.
    const long long read = BytesReadBy(pid);
    if (read > run.bytesRead) run.bytesRead = read;
    const pid_t done = ::wait4(pid, &status, WNOHANG, &usage);
    if (done == pid) break;
    if (read < 0) {
      // Nothing to measure by: the test cannot hold the run to its bound.
      ADD_FAILURE() << "/proc/" << pid << "/io cannot be read";
      ::kill(pid, SIGKILL);
    } else if (read > bytesAllowed) {
      ::kill(pid, SIGKILL);
      run.killed = true;
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      continue;
    }
    ::wait4(pid, &status, 0, &usage);
    break;
  }
  return Finished(home, launch, status, usage, run);
}

ProgramRun RunCorvalin(const fs::path& home, const std::vector<std::string>& args, const fs::path& from) {
  const Launch launch{args, from, {}, -1, {}};
  return WaitForCorvalin(StartCorvalin(home, launch), home, launch);
}

Feeder::Feeder(std::string bytes, bool repeat) : bytes_(std::move(bytes)) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
  readEnd_ = ends[0];
  Start(ends[1], {}, repeat);
}

Feeder::Feeder(const fs::path& fifo, std::string bytes) : bytes_(std::move(bytes)) { Start(-1, fifo, false); }

void Feeder::Start(int writeEnd, const fs::path& fifo, bool repeat) {
  pid_ = ::fork();
  if (pid_ == 0) {
    // A reader that goes away ends the writer with a failed write, not a signal.
    std::signal(SIGPIPE, SIG_IGN);
    if (readEnd_ >= 0) ::close(readEnd_);
    const int fd = writeEnd >= 0 ? writeEnd : ::open(fifo.c_str(), O_WRONLY);
    if (fd < 0) ::_exit(3);
    do {
      if (!WriteAll(fd, bytes_)) ::_exit(repeat ? 0 : 2);
    } while (repeat);
    ::_exit(0);
  }
  if (writeEnd >= 0) ::close(writeEnd);
}

bool Feeder::Finished() {
  if (pid_ > 0) {
    ::waitpid(pid_, &status_, 0);
    pid_ = -1;
  }
  return WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
}

Feeder::~Feeder() {
  if (readEnd_ >= 0) ::close(readEnd_);
  if (pid_ > 0) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, &status_, 0);
  }
}

void UnattendedRun::SetUp() {
  static std::mt19937_64 rng{std::random_device{}()};
  home = fs::temp_directory_path() / ("corvalin-e2e-" + std::to_string(::getpid()) + "-" + std::to_string(rng()));
  fs::create_directories(home / "Data");
  fs::create_directories(home / "Work");
  fs::create_directories(home / ".config/Orvanta");
  WriteFile(home / ".config/Orvanta/Orvanta.ini", "[Common]\r\nDataDir=" + (home / "Data").string() +
                                                      "/\r\nWorkDir=" + (home / "Work").string() + "/\r\n");
}

void UnattendedRun::TearDown() {
  std::error_code ec;
  fs::remove_all(home, ec);
}

std::string UnattendedRun::Result() const { return ReadFile(home / "Work/result.txt"); }
bool UnattendedRun::ResultWritten() const { return fs::exists(home / "Work/result.txt"); }

}  // namespace corvalin::testing
