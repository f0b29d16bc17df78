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

// The longest line a reader takes whole; a longer one comes cut to one
// character past the limit, and nothing after it is read.
TEST(InputLines, LineOfTheLimitIsWhole) {
  InputLines input = InputLines::FromText("abcde\nx", 5);
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, "abcde");
  EXPECT_FALSE(input.LineTooLong());
  input.Next(line);
  EXPECT_EQ(line, "x");
  EXPECT_TRUE(input.AtEnd());
}

TEST(InputLines, LinePastTheLimitComesCutAndEndsTheInput) {
  InputLines input = InputLines::FromText("ab\nabcdefgh\nx", 5);
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, "ab");
  input.Next(line);
  EXPECT_EQ(line, "abcdef");
  EXPECT_TRUE(input.LineTooLong());
  EXPECT_TRUE(input.AtEnd());
}

class InputFile : public testing::FreshProcess {};

// A file is read in pieces: a line end split between two of them, and a
// line longer than one, come out as in a file read whole.
TEST_F(InputFile, LinesAcrossThePiecesOfTheReadAreWhole) {
  const std::string first(65535, 'a');
  const std::string second(200000, 'b');
  const auto path = home / "trees.csv";
  testing::WriteFile(path, first + "\r\n" + second + "\r" + "c");
  InputLines input(path.string());
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, first);
  input.Next(line);
  EXPECT_EQ(line, second);
  input.Next(line);
  EXPECT_EQ(line, "c");
  EXPECT_TRUE(input.AtEnd());
  EXPECT_TRUE(input.FromRegularFile());
}

// An endless line costs no more than the limit: /dev/zero has no line end.
TEST_F(InputFile, EndlessLineStopsAtTheLimit) {
  InputLines input("/dev/zero", 32766);
  std::string_view line;
  input.Next(line);
  EXPECT_EQ(line, std::string(32767, '\0'));
  EXPECT_TRUE(input.LineTooLong());
  EXPECT_TRUE(input.AtEnd());
  EXPECT_FALSE(input.FromRegularFile());
}

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
