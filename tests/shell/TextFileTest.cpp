// Files written in place: CR LF line ends, created or emptied at the open,
// and a file a failed writing left open refuses the next writing.
#include <filesystem>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/TextFile.h"

namespace corvalin {
namespace {

class TextFileWriting : public testing::FreshProcess {};

TEST_F(TextFileWriting, EachLineIsWrittenAsItStandsWithCrLf) {
  const auto path = home / "list.slf";
  WriteLinesInPlace(path.string(), {"A st1 x @", "", "B\tst1"});
  EXPECT_EQ(testing::ReadFile(path), "A st1 x @\r\n\r\nB\tst1\r\n");
}

TEST_F(TextFileWriting, AnExistingFileIsEmptiedAndAnEmptyListWritesAnEmptyFile) {
  const auto path = home / "list.slf";
  testing::WriteFile(path, "old content that is longer\r\n");
  WriteLinesInPlace(path.string(), {});
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(testing::ReadFile(path), "");
}

TEST_F(TextFileWriting, AFolderThatDoesNotExistIsPathNotFound) {
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace((home / "nowhere" / "x.slf").string(), {"A"}); }),
            err::PathNotFound);
}

TEST_F(TextFileWriting, AFolderInPlaceOfTheFileIsAPathFileAccessError) {
  std::filesystem::create_directory(home / "taken.slf");
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace((home / "taken.slf").string(), {"A"}); }),
            err::PathFileAccess);
}

TEST_F(TextFileWriting, AnEmptyPathIsAPathFileAccessError) {
  EXPECT_EQ(testing::ErrorNumberRaisedBy([] { WriteLinesInPlace("", {"A"}); }), err::PathFileAccess);
}

TEST_F(TextFileWriting, AFullDiskLeavesTheFileOpenSoTheSecondWritingMeetsFileAlreadyOpen) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this system";
  const std::vector<std::string> lines = {"A st1 x @"};
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace("/dev/full", lines); }), err::DiskFull);
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace("/dev/full", lines); }), err::FileAlreadyOpen);
  // Another file is not affected.
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace((home / "ok.slf").string(), lines); }), 0);
}

}  // namespace
}  // namespace corvalin
