// Keys gathered in memory and written once give the file that writing them
// one by one gives, and the file is replaced whole.
#include <string>

#include "TestSupport.h"
#include "shell/FileReplace.h"
#include "shell/ProfileFile.h"

namespace corvalin {
namespace {

class ProfileFileEditing : public testing::FreshProcess {
 protected:
  void TearDown() override {
    SetFileReplaceHook({});
    FreshProcess::TearDown();
  }
};

TEST_F(ProfileFileEditing, GatheredKeysGiveTheBytesOfKeysWrittenOneByOne) {
  const std::string start =
      "; kept\r\n[FORMAT_INFO]\r\nOrvanVariant=BC\r\n\r\n[format_info]\r\nColumnHeader1=old\r\n"
      "[COLUMN_DELIMITERS]\r\ncomma = NO\r\nlone\rcr\n";
  const auto byKey = home / "by-key.cnv";
  const auto atOnce = home / "at-once.cnv";
  testing::WriteFile(byKey, start);
  testing::WriteFile(atOnce, start);
  // Among them a value with line ends in it: what follows a line end is a
  // line of its own, also a section header, where the next key is looked
  // for (and found: its 7 becomes 2). A key found keeps no spelling of its
  // old line; a key added is spelled as written.
  const std::string keys[][3] = {
      {"FORMAT_INFO", "OrvanVariant", "NI"},
      {"COLUMN_DELIMITERS", "Comma", "YES"},
      {"COLUMN_DELIMITERS", "OtherChars", "a\r\n[TEMPLATE_COMMANDS]\rNumberOfCommands=7"},
      {"TEMPLATE_COMMANDS", "NumberOfCommands", "2"},
      {"NEW_SECTION", "Key", " spaced "},
      {"format_info", "columnheader1", "Plot ID"},
  };
  ProfileFileEdit edit(atOnce.string());
  for (const auto& [section, key, value] : keys) {
    ASSERT_TRUE(WriteProfileString(byKey.string(), section, key, value));
    edit.WriteString(section, key, value);
  }
  int replaced = 0;
  SetFileReplaceHook([&](const std::string&, ReplaceMoment moment, std::size_t) {
    if (moment == ReplaceMoment::Replaced) ++replaced;
  });
  ASSERT_TRUE(edit.Save());
  EXPECT_EQ(replaced, 1);
  EXPECT_EQ(testing::ReadFile(atOnce), testing::ReadFile(byKey));
  EXPECT_EQ(testing::ReadFile(atOnce),
            "; kept\r\n[FORMAT_INFO]\r\nOrvanVariant=NI\r\ncolumnheader1=Plot ID\r\n\r\n[format_info]\r\n"
            "ColumnHeader1=old\r\n[COLUMN_DELIMITERS]\r\nComma=YES\r\nlone\r\ncr\r\nOtherChars=a\r\n"
            "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=2\r\n[NEW_SECTION]\r\nKey= spaced \r\n");
}

TEST_F(ProfileFileEditing, NothingIsWrittenBeforeTheSave) {
  const auto path = home / "plots.cnv";
  ProfileFileEdit edit(path.string());
  edit.WriteString("FORMAT_INFO", "OrvanVariant", "NI");
  EXPECT_FALSE(std::filesystem::exists(path));
  ASSERT_TRUE(edit.Save());
  EXPECT_EQ(testing::ReadFile(path), "[FORMAT_INFO]\r\nOrvanVariant=NI\r\n");
}

TEST_F(ProfileFileEditing, AFileThatCannotBeWrittenIsAFailedSave) {
  std::filesystem::create_directory(home / "taken.cnv");
  ProfileFileEdit edit((home / "taken.cnv").string());
  edit.WriteString("FORMAT_INFO", "OrvanVariant", "NI");
  EXPECT_FALSE(edit.Save());
  EXPECT_TRUE(std::filesystem::is_directory(home / "taken.cnv"));
}

}  // namespace
}  // namespace corvalin
