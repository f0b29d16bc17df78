// Streams that never end, or that are huge: the load answers as soon as the
// input breaks one of its limits (a null character, a line too long to
// count, a line past the 32,767th), having read a bounded part of it and in
// bounded memory.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ProgramRun.h"
#include "TreeListRun.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::Feeder;
using testing::Launch;
using testing::ProgramRun;

// What a run may read and the memory it may take to answer an endless
// input. The longest input the program takes, 32,767 lines of 32,766
// characters, is about 1 GB; the limits come at its first line (an endless
// line is too long within 32 KB, a null character is refused in the first
// block read) or at line 32,768 of short lines (under 1 MB here), and the
// run reads its template, settings and empty database besides. A run that
// went on reading the stream would pass this bound at once.
constexpr long long kBytesAllowed = 64ll << 20;
constexpr long kKilobytesAllowed = 300 * 1024;

std::string LoadFailure(const std::string& numberAndDescription) {
  return "Error preparing database\r\n" + numberAndDescription + "\r\nLine: CreateColumnsTable\n";
}

class EndlessInput : public testing::TreeListRun {
 protected:
  ProgramRun RunOn(const std::string& input, int standardInput = -1) {
    const Launch launch{{input, "out.tre", "trees"}, home / "run", {}, standardInput, {}};
    return testing::WaitForCorvalinReading(testing::StartCorvalin(home, launch), home, launch, kBytesAllowed);
  }

  void ExpectBounded(const ProgramRun& run) {
    EXPECT_FALSE(run.killed) << "went on reading past " << kBytesAllowed << " bytes";
    EXPECT_GT(run.bytesRead, 0);
    EXPECT_LT(run.peakKilobytes, kKilobytesAllowed);
    EXPECT_FALSE(fs::exists(Output()));
  }
};

// Line 1 is endless and all null characters: too long for the preview's
// split, and refused by the load for its null character.
TEST_F(EndlessInput, DevZeroAnswersAtOnce) {
  const ProgramRun run = RunOn("/dev/zero");
  ExpectBounded(run);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(run.errors,
            "[6] Overflow\n" + LoadFailure("3709 - 'Input line 1 holds a null character: the file is not plain text'"));
  EXPECT_EQ(run.status, 1);
}

TEST_F(EndlessInput, DevUrandomAnswersAtOnce) {
  const ProgramRun run = RunOn("/dev/urandom");
  ExpectBounded(run);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(run.status, 1);
}

// A file of 3 GB with no line end, whose blocks were never written.
TEST_F(EndlessInput, HugeSparseFileAnswersAtOnce) {
  const fs::path sparse = home / "run" / "sparse.csv";
  { std::ofstream(sparse).put('\0'); }
  fs::resize_file(sparse, 3ull << 30);
  const ProgramRun run = RunOn("sparse.csv");
  ExpectBounded(run);
  EXPECT_EQ(run.errors,
            "[6] Overflow\n" + LoadFailure("3709 - 'Input line 1 holds a null character: the file is not plain text'"));
  EXPECT_EQ(run.status, 1);
}

// An endless first line of text: too long to count, in the preview and in
// the load, as a line of 40,000 characters is.
TEST_F(EndlessInput, EndlessLineEndsInOverflow) {
  Feeder feeder(std::string(65536, 'x'), true);
  const ProgramRun run = RunOn("/dev/stdin", feeder.readEnd());
  ExpectBounded(run);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(run.errors, "[6] Overflow\n" + LoadFailure("6 - 'Overflow'"));
  EXPECT_EQ(run.status, 1);
}

// Endless good lines: line 32,768 overflows the line count, as in a file.
TEST_F(EndlessInput, EndlessTreesEndInOverflowAtLine32768) {
  std::string trees;
  for (int n = 1; n <= 1000; ++n) trees += "1," + std::to_string(n) + ",1,DF,25.4\r\n";
  Feeder feeder(trees, true);
  const ProgramRun run = RunOn("/dev/stdin", feeder.readEnd());
  ExpectBounded(run);
  EXPECT_EQ(Result(), "Untrapped error.\r\n");
  EXPECT_EQ(run.errors, LoadFailure("6 - 'Overflow'"));
  EXPECT_EQ(run.status, 1);
}

}  // namespace
}  // namespace corvalin
