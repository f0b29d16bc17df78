// The input of a run handed from the file check to the preview and the load.
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "TestSupport.h"
#include "worktable/RunInput.h"

namespace corvalin {
namespace {

class RunInputHandOver : public testing::FreshProcess {
 protected:
  void TearDown() override {
    ForgetRunInput();
    FreshProcess::TearDown();
  }
};

// A pipe holding text, its writing end closed, opened by the file check
// and kept; its path.
std::string CheckedPipe(const std::string& text) {
  int ends[2];
  if (::pipe(ends) != 0) return "";
  if (::write(ends[1], text.data(), text.size()) != static_cast<ssize_t>(text.size())) return "";
  ::close(ends[1]);
  const std::string path = "/proc/self/fd/" + std::to_string(ends[0]);
  KeepRunInput(path, OpenRunInputAtStart(path));
  ::close(ends[0]);  // the kept input holds an open of its own
  return path;
}

std::string NextLine(RunInput& input) {
  std::string_view line;
  input.lines.Next(line);
  return std::string(line);
}

// The preview takes line 1 and keeps the input; then the load opens it.
RunInput LoadAfterAPreviewOfOneLine(const std::string& path) {
  RunInput preview = OpenRunInputAtStart(path);
  EXPECT_EQ(NextLine(preview), "1");
  preview.linesTaken = 1;
  KeepRunInput(path, std::move(preview));
  return OpenRunInput(path);
}

// A pipe is opened once: the step after the check reads from the open the
// check made, and the load goes on where the preview stopped.
TEST_F(RunInputHandOver, PipeIsHandedOnWhereTheStepBeforeStopped) {
  RunInput load = LoadAfterAPreviewOfOneLine(CheckedPipe("1\n2\n3\n"));
  EXPECT_EQ(load.linesTaken, 1);
  EXPECT_EQ(NextLine(load), "2");
  EXPECT_EQ(NextLine(load), "3");
  EXPECT_TRUE(load.lines.AtEnd());
}

// A regular file is opened anew by each step, at its first line.
TEST_F(RunInputHandOver, RegularFileIsOpenedAnewByEachStep) {
  const auto path = (home / "trees.csv").string();
  testing::WriteFile(path, "1\n2\n");
  RunInput load = LoadAfterAPreviewOfOneLine(path);
  EXPECT_EQ(load.linesTaken, 0);
  EXPECT_EQ(NextLine(load), "1");
}

// A stream kept for another path is no stream of this one.
TEST_F(RunInputHandOver, StreamOfAnotherPathIsLetGo) {
  ASSERT_FALSE(CheckedPipe("p\n").empty());
  const auto path = (home / "trees.csv").string();
  testing::WriteFile(path, "f\n");
  RunInput input = OpenRunInput(path);
  EXPECT_EQ(NextLine(input), "f");
}

}  // namespace
}  // namespace corvalin
