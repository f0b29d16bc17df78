// Running the built program the way an unattended caller does: in a
// temporary HOME whose settings name its Data and Work folders, without a
// display, with nothing on standard input.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace corvalin::testing {

struct ProgramRun {
  int status = -1;
  std::string errors;  // what the program wrote to standard error
};

// Runs the built program with exactly these arguments, its settings under
// home, from the given folder (or this process's folder when empty), and
// waits for it. Standard error goes to home/stderr.txt and comes back in
// errors.
ProgramRun RunCorvalin(const std::filesystem::path& home, const std::vector<std::string>& args,
                       const std::filesystem::path& from = {});

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
