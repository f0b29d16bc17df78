// Running the built program the way an unattended caller does: in a
// temporary HOME whose settings name its Data and Work folders, without a
// display, with nothing on standard input unless a test gives it a stream.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace corvalin::testing {

struct ProgramRun {
  int status = -1;
  std::string errors;  // what the program wrote to standard error
  std::string output;  // what it wrote to standard output (home/stdout.txt)
  long peakKilobytes = 0;  // the largest resident set the process had
  long long bytesRead = 0;  // what it read through read calls, files and streams alike
  bool killed = false;      // it read past its limit and was killed
};

// How one run of the program is started: its arguments, the folder it is
// started from (this process's folder when empty), where its standard error
// goes (home/stderr.txt when empty) and what it reads on standard input (an
// open descriptor, or -1 for /dev/null), and what its environment holds
// beyond the test's own ("NAME=value").
struct Launch {
  std::vector<std::string> args;
  std::filesystem::path from;
  std::filesystem::path errorsPath;
  int standardInput = -1;
  std::vector<std::string> environment;
};

// Starts the built program with its settings under home and gives its
// process id; it runs beside the caller, and is killed if the caller dies
// first (a test that ctest stopped leaves no run behind).
pid_t StartCorvalin(const std::filesystem::path& home, const Launch& launch);
// Waits for a run started so to end, however long it takes.
ProgramRun WaitForCorvalin(pid_t pid, const std::filesystem::path& home, const Launch& launch);
// Waits for a run started so to end while it reads at most bytesAllowed
// bytes (as the system counts what it read); one that reads more is killed
// and comes back with killed set. Its work is bounded by what it reads, not
// by the clock, so a slow machine gives the same answer as a fast one.
ProgramRun WaitForCorvalinReading(pid_t pid, const std::filesystem::path& home, const Launch& launch,
                                  long long bytesAllowed);

// Runs the built program with exactly these arguments, its settings under
// home, from the given folder (or this process's folder when empty), and
// waits for it. Standard error goes to home/stderr.txt and comes back in
// errors.
ProgramRun RunCorvalin(const std::filesystem::path& home, const std::vector<std::string>& args,
                       const std::filesystem::path& from = {});

// A process that writes bytes into a pipe or a FIFO, the way a calling
// program feeds the unattended run, and ends when it has written them (or,
// when told to repeat, when the reader goes away). Waited for, or killed,
// when this object goes.
class Feeder {
 public:
  // Writes into a new pipe; readEnd() is the end to give the program.
  Feeder(std::string bytes, bool repeat);
  // Opens the FIFO at path for writing (which waits for its reader) and
  // writes into it.
  Feeder(const std::filesystem::path& fifo, std::string bytes);
  ~Feeder();
  Feeder(const Feeder&) = delete;
  Feeder& operator=(const Feeder&) = delete;

  int readEnd() const { return readEnd_; }
  // Waits for the writer to end; true when it wrote everything it had.
  bool Finished();

 private:
  void Start(int writeEnd, const std::filesystem::path& fifo, bool repeat);

  std::string bytes_;
  int readEnd_ = -1;
  pid_t pid_ = -1;
  int status_ = -1;
};

// A temporary HOME whose settings name existing Data and Work folders.
class UnattendedRun : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // What the run left in Work/result.txt, and whether it left one.
  std::string Result() const;
  bool ResultWritten() const;

  std::filesystem::path home;
};

}  // namespace corvalin::testing
