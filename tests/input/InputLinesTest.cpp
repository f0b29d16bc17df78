// The cutting of an input file into lines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestSupport.h"
#include "shell/Error.h"
#include "worktable/InputLines.h"

namespace corvalin {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  InputLines input = InputLines::FromText(text);
  std::vector<std::string> lines;
  std::string_view line;
  while (!input.AtEnd()) {
    input.Next(line);
    lines.emplace_back(line);
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST(InputLines, LineEndsAtCrCrLfOrLf) {
  EXPECT_EQ(LinesOf("a\rb\r\nc\nd"), (Lines{"a", "b", "c", "d"}));
}

TEST(InputLines, FinalLineEndMakesNoExtraEmptyLine) {
  EXPECT_EQ(LinesOf("a\r\nb\r\n"), (Lines{"a", "b"}));
  EXPECT_EQ(LinesOf("a\n"), (Lines{"a"}));
  EXPECT_EQ(LinesOf("a\r"), (Lines{"a"}));
}

TEST(InputLines, ByteOrderMarkIsSteppedOverOnlyAtTheStart) {
  InputLines input = InputLines::FromText("\xEF\xBB\xBF" "a\r\n\xEF\xBB\xBF" "b");
  input.SkipByteOrderMark();
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, "a");
  input.SkipByteOrderMark();
  input.Next(line);
  EXPECT_EQ(line, "\xEF\xBB\xBF" "b");
  EXPECT_TRUE(input.AtEnd());
}

TEST(InputLines, FileOfNothingButAByteOrderMarkHasNoLine) {
  InputLines input = InputLines::FromText("\xEF\xBB\xBF");
  input.SkipByteOrderMark();
  EXPECT_TRUE(input.AtEnd());
}

TEST(InputLines, OtherStartIsLeftAlone) {
  InputLines input = InputLines::FromText("\xEF\xBBx");
  input.SkipByteOrderMark();
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, "\xEF\xBBx");
}

TEST(InputLines, EmptyLinesAreLines) {
  EXPECT_EQ(LinesOf("a\r\n\r\nb"), (Lines{"a", "", "b"}));
  EXPECT_EQ(LinesOf("\n\n"), (Lines{"", ""}));
  EXPECT_EQ(LinesOf("a\n\rb"), (Lines{"a", "", "b"}));
}

TEST(InputLines, EmptyFileHasNoLine) { EXPECT_EQ(LinesOf(""), Lines{}); }

TEST(InputLines, TabsAndOtherBytesStayInTheLine) {
  EXPECT_EQ(LinesOf(std::string("a\tb\0c\xE9", 6) + "\n"), (Lines{std::string("a\tb\0c\xE9", 6)}));
}

class InputFile : public testing::FreshProcess {};

TEST_F(InputFile, ReadsTheFileFromTheDisk) {
  const auto path = home / "trees.csv";
  testing::WriteFile(path, "1,2\r\n3,4\r\n");
  InputLines input(path.string());
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, "1,2");
  input.Next(line);
  EXPECT_EQ(line, "3,4");
  EXPECT_TRUE(input.AtEnd());
}

TEST_F(InputFile, MissingFileIsFileNotFound) {
  try {
    InputLines input((home / "nothing.csv").string());
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.description(), "File not found");
  }
}

}  // namespace
}  // namespace corvalin
