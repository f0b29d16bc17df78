#include "ProgramRun.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "TestSupport.h"

extern char** environ;

namespace corvalin::testing {

namespace fs = std::filesystem;

ProgramRun RunCorvalin(const fs::path& home, const std::vector<std::string>& args, const fs::path& from) {
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
  const std::string program = (BinaryDir() / "bin/corvalin").string();
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  std::vector<char*> envp;
  for (auto& e : env) envp.push_back(e.data());
  envp.push_back(nullptr);
  const fs::path errorsPath = home / "stderr.txt";
  const pid_t pid = ::fork();
  if (pid == 0) {
    if (!from.empty() && ::chdir(from.c_str()) != 0) ::_exit(126);
    const int in = ::open("/dev/null", O_RDONLY);
    const int err = ::open(errorsPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ::dup2(in, 0);
    ::dup2(err, 2);
    ::execve(program.c_str(), argv.data(), envp.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(pid, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(errorsPath)};
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
