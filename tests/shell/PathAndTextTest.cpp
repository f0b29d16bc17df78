// The path and text routines, with the edges their callers depend on.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "TestSupport.h"
#include "shell/AppUtil.h"
#include "shell/Error.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"

namespace corvalin {
namespace {

using testing::FreshProcess;

class PathAndText : public FreshProcess {};

TEST_F(PathAndText, FileFolderOfKeepsTheTrailingSeparator) { EXPECT_EQ(FileFolderOf("/a/b.txt"), "/a/"); }

TEST_F(PathAndText, FileNameOfGivesTheTextAfterTheLastSeparator) { EXPECT_EQ(FileNameOf("/a/b.txt"), "b.txt"); }

TEST_F(PathAndText, FileFolderOfAFileInTheRootKeepsTheRoot) { EXPECT_EQ(FileFolderOf("/b.txt"), "/"); }

TEST_F(PathAndText, BareFileNameGivesAnEmptyFolderAndAnEmptyName) {
  EXPECT_EQ(FileFolderOf("b.txt"), "");
  EXPECT_EQ(FileNameOf("b.txt"), "");
}

TEST_F(PathAndText, PathRoutinesReadTheWorkingDirectoryCaption) {
  SetWorkingDirectoryCaption("/w/");
  EXPECT_EQ(FileFolderOf("b.txt"), "/w/");
  EXPECT_EQ(FileNameOf("b.txt"), "/w/");
  EXPECT_EQ(ExpandWorkPath("x"), "/w/x");
  EXPECT_EQ(ShortenWorkPath("/w/x"), "x");
  EXPECT_EQ(ShortenWorkPath("/v/x"), "/v/x");
  EXPECT_EQ(ShortenWorkPath("/w"), "/w");
  SetWorkingDirectoryCaption("");
}

TEST_F(PathAndText, TrimFolderEndKeepsTheRootFolder) { EXPECT_EQ(TrimFolderEnd("/"), "/"); }

TEST_F(PathAndText, TrimFolderEndDropsTheTrailingSeparator) { EXPECT_EQ(TrimFolderEnd("/a/"), "/a"); }

TEST_F(PathAndText, TrimFolderEndDropsTheLastCharacterWhateverItIs) { EXPECT_EQ(TrimFolderEnd("/a"), "/"); }

TEST_F(PathAndText, TrimFolderEndLeavesAnEmptyPathEmpty) { EXPECT_EQ(TrimFolderEnd(""), ""); }

TEST_F(PathAndText, TrimFolderEndOfAOneCharacterPathIsAnError) {
  try {
    TrimFolderEnd("a");
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 5);
    EXPECT_EQ(e.description(), "Invalid procedure call or argument");
  }
}

TEST_F(PathAndText, ExpandWorkPathOfADotPathIsEmpty) { EXPECT_EQ(ExpandWorkPath("./x"), ""); }

TEST_F(PathAndText, ExpandWorkPathLeavesAnAbsolutePath) { EXPECT_EQ(ExpandWorkPath("/d/x"), "/d/x"); }

TEST_F(PathAndText, ExpandWorkPathOfARelativePathIsItselfWithTheEmptyWorkingDirectory) {
  EXPECT_EQ(ExpandWorkPath("x"), "x");
}

TEST_F(PathAndText, ShortenWorkPathWithTheEmptyWorkingDirectoryKeepsThePath) {
  EXPECT_EQ(ShortenWorkPath("/a/x"), "/a/x");
}

TEST_F(PathAndText, AddBackslashAddsTheSeparatorOnce) {
  EXPECT_EQ(AddBackslash("/a"), "/a/");
  EXPECT_EQ(AddBackslash("/a/"), "/a/");
}

TEST_F(PathAndText, SameFileKnowsAFileUnderEveryName) {
  const std::string file = (home / "trees.csv").string();
  testing::WriteFile(file, "1\r\n");
  std::filesystem::create_symlink(file, home / "link.csv");
  std::filesystem::create_hard_link(file, home / "hard.csv");
  EXPECT_TRUE(SameFile(file, file));
  EXPECT_TRUE(SameFile(file, (home / "." / "trees.csv").string()));
  EXPECT_TRUE(SameFile(file, (home / "link.csv").string()));
  EXPECT_TRUE(SameFile((home / "hard.csv").string(), file));
  EXPECT_FALSE(SameFile(file, (home / "TREES.csv").string()));
  EXPECT_FALSE(SameFile(file, ""));
}

// A file not made yet is compared by its folders, links resolved.
TEST_F(PathAndText, SameFileComparesAFileNotMadeYetByItsPlace) {
  std::filesystem::create_directory_symlink(home, home / "alias");
  EXPECT_TRUE(SameFile((home / "new.tre").string(), (home / "alias" / "new.tre").string()));
  EXPECT_TRUE(SameFile((home / "new.tre").string(), (home / "Data" / ".." / "new.tre").string()));
  EXPECT_FALSE(SameFile((home / "new.tre").string(), (home / "Data" / "new.tre").string()));
}

TEST_F(PathAndText, AddBackslashLeavesTheRootSingle) { EXPECT_EQ(AddBackslash("/"), "/"); }

TEST_F(PathAndText, AddBackslashLeavesAnEmptyPathEmpty) { EXPECT_EQ(AddBackslash(""), ""); }

TEST_F(PathAndText, AddBackslashOfAPathLongerThanTheBufferIsAnError) {
  EXPECT_THROW(AddBackslash("/" + std::string(260, 'a')), RuntimeError);
  EXPECT_EQ(AddBackslash("/" + std::string(258, 'a')), "/" + std::string(258, 'a'));
  EXPECT_EQ(AddBackslash("/" + std::string(257, 'a')), "/" + std::string(257, 'a') + "/");
}

TEST_F(PathAndText, PathExistsAndIsDirectoryTellFilesFromFolders) {
  testing::WriteFile(home / "f.txt", "x");
  EXPECT_TRUE(PathExists((home / "f.txt").string()));
  EXPECT_FALSE(IsDirectory((home / "f.txt").string()));
  EXPECT_TRUE(PathExists(home.string()));
  EXPECT_TRUE(IsDirectory(home.string() + "/"));
  EXPECT_FALSE(PathExists((home / "gone").string()));
  EXPECT_FALSE(IsDirectory((home / "gone").string()));
  EXPECT_FALSE(PathExists(""));
}

TEST_F(PathAndText, TrimAtNullCutsAtTheFirstNul) {
  EXPECT_EQ(TrimAtNull(std::string("abc\0def", 7)), "abc");
  EXPECT_EQ(TrimAtNull("abc"), "abc");
}

TEST_F(PathAndText, TrimBufferAtNullNeedsTheNul) {
  EXPECT_EQ(TrimBufferAtNull(std::string("ab\0\0", 4)), "ab");
  try {
    TrimBufferAtNull("abc");
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 5);
  }
}

TEST_F(PathAndText, IsYesReadsTheFirstLetterInEitherCase) {
  EXPECT_FALSE(IsYes(""));
  EXPECT_TRUE(IsYes("yes"));
  EXPECT_TRUE(IsYes("YES"));
  EXPECT_TRUE(IsYes("y"));
  EXPECT_TRUE(IsYes("Yonder"));
  EXPECT_FALSE(IsYes("NO"));
  EXPECT_FALSE(IsYes(" yes"));
  EXPECT_EQ(IsYesValue("yes"), 1);
  EXPECT_EQ(IsYesValue("no"), 0);
  EXPECT_EQ(IsYesValue(""), 0);
}

TEST_F(PathAndText, YesNoTextIsYesOnlyForOne) {
  EXPECT_EQ(YesNoText(1), "YES");
  EXPECT_EQ(YesNoText(0), "NO");
  EXPECT_EQ(YesNoText(2), "NO");
  EXPECT_EQ(YesNoText(-1), "NO");
}

TEST_F(PathAndText, IsSingleWordIsTrueForTheEmptyText) { EXPECT_TRUE(IsSingleWord("")); }

TEST_F(PathAndText, IsSingleWordIgnoresOuterBlanks) {
  EXPECT_TRUE(IsSingleWord("  word  "));
  EXPECT_FALSE(IsSingleWord("two words"));
  EXPECT_TRUE(IsSingleWord("   "));
}

TEST_F(PathAndText, SqlQuoteDoublesEachQuote) {
  EXPECT_EQ(SqlQuote("it's"), "it''s");
  EXPECT_EQ(SqlQuote("''"), "''''");
  EXPECT_EQ(SqlQuote("plain"), "plain");
}

TEST_F(PathAndText, MarkTabsShowsEachTabAsTheBrokenBar) {
  EXPECT_EQ(MarkTabs("a\tb\t"), std::string("a\xA6" "b\xA6"));
  EXPECT_EQ(MarkTabs("none"), "none");
}

}  // namespace
}  // namespace corvalin
