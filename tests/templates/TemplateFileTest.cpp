// The template file: key order and defaults of the three sections, the
// asymmetries of reading and writing, and what the profile access does to
// values.
#include "TestSupport.h"
#include "input/ColumnFormat.h"
#include "shell/Error.h"
#include "shell/ProfileFile.h"
#include "shell/RunState.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"

namespace corvalin {
namespace {

class TemplateFileTest : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    ResetCommands();
    path = TemplatePathOf("plots");
  }
  void TearDown() override {
    ResetCommands();
    FreshProcess::TearDown();
  }
  std::string path;
};

TEST_F(TemplateFileTest, TemplateLivesInTheWorkFolderWithCnvExtension) {
  EXPECT_EQ(TemplatePathOf("abc"), Run().WorkFolder + "abc.cnv");
  EXPECT_EQ(TemplatePathOf(""), Run().WorkFolder + ".cnv");
}

TEST_F(TemplateFileTest, MissingFileGivesTheReadDefaults) {
  const ColumnDelimiterKeys keys = ReadColumnDelimiters(path);
  EXPECT_FALSE(keys.FixedWidth);
  EXPECT_TRUE(keys.Comma);
  EXPECT_FALSE(keys.Tab || keys.Semicolon || keys.Space || keys.Other || keys.TreatConsecutiveAsOne);
  EXPECT_EQ(keys.OtherChars, "");
  EXPECT_EQ(keys.TextQualifier, "NO");
  ReadTemplateCommands(path);
  EXPECT_EQ(Commands().CommandCount, 0);
}

TEST_F(TemplateFileTest, DelimiterKeysAreWrittenInOrderWithMarkersOnlyInFixedWidth) {
  ColumnDelimiterKeys keys;
  keys.FixedWidth = true;
  keys.Tab = true;
  keys.OtherChars = "#";
  keys.TextQualifier = "\"";
  ColumnMarkerList markers;
  markers.NumMarkers = 2;
  markers.ColumnMarkers(1) = 5;
  markers.ColumnMarkers(2) = 12;
  WriteColumnDelimiters(path, keys, markers);
  EXPECT_EQ(testing::ReadFile(path),
            "[COLUMN_DELIMITERS]\r\nFixedWidth=YES\r\nComma=YES\r\nTab=YES\r\nSemicolon=NO\r\nSpace=NO\r\n"
            "Other=NO\r\nOtherChars=#\r\nTreatConsecutiveAsOne=NO\r\nTextQualifier=\"\r\nNumMarkers=2\r\n"
            "FixedMarker1=5\r\nFixedMarker2=12\r\n");
}

TEST_F(TemplateFileTest, DelimitedModeWritesNoMarkerKeys) {
  ColumnDelimiterKeys keys;
  keys.TextQualifier = "None";
  ColumnMarkerList markers;
  markers.NumMarkers = 1;
  markers.ColumnMarkers(1) = 7;
  WriteColumnDelimiters(path, keys, markers);
  EXPECT_EQ(ReadProfileString(path, "COLUMN_DELIMITERS", "NumMarkers", "absent"), "absent");
  EXPECT_EQ(ReadProfileString(path, "COLUMN_DELIMITERS", "TextQualifier", ""), "None");
}

TEST_F(TemplateFileTest, AnyOtherQualifierTextSelectsNone) {
  EXPECT_EQ(TextQualifierEntry("\""), 1);
  EXPECT_EQ(TextQualifierEntry("'"), 2);
  EXPECT_EQ(TextQualifierEntry("None"), 3);
  EXPECT_EQ(TextQualifierEntry("NO"), 3);
  EXPECT_EQ(TextQualifierEntry("`"), 3);
}

TEST_F(TemplateFileTest, FlagsAreReadByTheirFirstLetter) {
  testing::WriteFile(path, "[column_delimiters]\r\nfixedwidth=yes\r\nCOMMA=No\r\nTab=Yikes\r\n");
  const ColumnDelimiterKeys keys = ReadColumnDelimiters(path);
  EXPECT_TRUE(keys.FixedWidth);
  EXPECT_FALSE(keys.Comma);
  EXPECT_TRUE(keys.Tab);
}

TEST_F(TemplateFileTest, OtherCharsKeepInnerSpacesButLoseOuterOnes) {
  ColumnDelimiterKeys keys;
  keys.OtherChars = " a b ";
  WriteColumnDelimiters(path, keys, ColumnMarkerList{});
  EXPECT_EQ(ReadColumnDelimiters(path).OtherChars, "a b");
  keys.OtherChars = " ";
  WriteColumnDelimiters(path, keys, ColumnMarkerList{});
  EXPECT_EQ(ReadColumnDelimiters(path).OtherChars, "");
}

TEST_F(TemplateFileTest, FindStringLosesItsTrailingSpaceOnReading) {
  Commands().CommandCount = 1;
  TemplateCommandAt(1) = {"REPLACE_ALL", "PINE ", "PW", 2, 0, 0, ""};
  WriteTemplateCommands(path);
  ResetCommands();
  ReadTemplateCommands(path);
  EXPECT_EQ(TemplateCommandAt(1).FindString, "PINE");
}

TEST_F(TemplateFileTest, ValueIsCutAtTheFirstNul) {
  const std::string nul(1, '\0');
  testing::WriteFile(path, "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=1\r\nCommandType1=REPLACE_ALL\r\nFindString1=AB" +
                               nul + "CD\r\nColumnNumber1=1\r\nStartLine1=0\r\nEndLine1=0\r\n");
  ReadTemplateCommands(path);
  EXPECT_EQ(TemplateCommandAt(1).FindString, "AB");
}

TEST_F(TemplateFileTest, CommandsAreWrittenWithAllSevenKeysInOrder) {
  Commands().CommandCount = 2;
  TemplateCommandAt(1) = {"EXCLUDE_RANGE", "", "", 3, 5, 20, ""};
  TemplateCommandAt(2) = {"EXCLUDE_CONTAINING", "", "", 4, 0, 0, "X"};
  WriteTemplateCommands(path);
  EXPECT_EQ(testing::ReadFile(path),
            "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=2\r\nCommandType1=EXCLUDE_RANGE\r\nFindString1=\r\n"
            "ReplacementString1=\r\nColumnNumber1=3\r\nStartLine1=5\r\nEndLine1=20\r\nDeleteString1=\r\n"
            "CommandType2=EXCLUDE_CONTAINING\r\nFindString2=\r\nReplacementString2=\r\nColumnNumber2=4\r\n"
            "StartLine2=0\r\nEndLine2=0\r\nDeleteString2=X\r\n");
}

TEST_F(TemplateFileTest, ReadingOverwritesTheListUpToTheCountAndForgetsTheRest) {
  Commands().CommandCount = 3;
  TemplateCommandAt(3).CommandType = "EXCLUDE_RANGE";
  testing::WriteFile(path, "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=1\r\nCommandType1=EXCLUDE_CONTAINING\r\n"
                           "ColumnNumber1=2\r\nStartLine1=0\r\nEndLine1=0\r\nDeleteString1=Y\r\n"
                           "CommandType2=REPLACE_ALL\r\nColumnNumber2=2\r\nStartLine2=0\r\nEndLine2=0\r\n");
  ReadTemplateCommands(path);
  EXPECT_EQ(Commands().CommandCount, 1);
  EXPECT_EQ(TemplateCommandAt(1).CommandType, "EXCLUDE_CONTAINING");
  EXPECT_EQ(TemplateCommandAt(1).ColumnNumber, 2);
  EXPECT_EQ(TemplateCommandAt(1).DeleteString, "Y");
}

TEST_F(TemplateFileTest, MissingCommandNumberIsATypeMismatch) {
  testing::WriteFile(path, "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=1\r\nCommandType1=REPLACE_ALL\r\n");
  try {
    ReadTemplateCommands(path);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 13);
  }
  EXPECT_EQ(TemplateCommandAt(1).CommandType, "REPLACE_ALL");
}

TEST_F(TemplateFileTest, MoreThanHundredCommandsFailOnTheHundredFirst) {
  std::string text = "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=101\r\n";
  for (int k = 1; k <= 101; ++k) {
    const std::string n = std::to_string(k);
    text += "CommandType" + n + "=EXCLUDE_RANGE\r\nColumnNumber" + n + "=1\r\nStartLine" + n + "=" + n +
            "\r\nEndLine" + n + "=" + n + "\r\n";
  }
  testing::WriteFile(path, text);
  try {
    ReadTemplateCommands(path);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 9);
  }
  EXPECT_EQ(TemplateCommandAt(100).StartLine, 100);
}

TEST_F(TemplateFileTest, StoredIntegersAcceptBlanksAndRefuseText) {
  EXPECT_EQ(StoredInteger(" 12 "), 12);
  EXPECT_EQ(StoredInteger("-3"), -3);
  EXPECT_EQ(StoredInteger("2.5"), 2);
  EXPECT_THROW(StoredInteger("abc"), RuntimeError);
  EXPECT_THROW(StoredInteger(""), RuntimeError);
  try {
    StoredInteger("40000");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 6);
  }
}

TEST_F(TemplateFileTest, FormatInfoWritesViewKeysThenColumnsInOrder) {
  std::array<std::string, 32> headings{};
  headings[1] = "Plot ID\r\n";
  headings[2] = "DBH\r\ncm";
  WriteFormatInfo(path, {"IMPERIAL", "NO", "YES", "NO", "NI"}, 2, headings);
  EXPECT_EQ(testing::ReadFile(path),
            "[FORMAT_INFO]\r\nMeasurementSystem=IMPERIAL\r\nShowUnassignedColumns=NO\r\nShowExcludedRows=YES\r\n"
            "AutoValidateGridData=NO\r\nOrvanVariant=NI\r\nNumberOfColumns=2\r\nColumnHeader1=Plot ID\r\n"
            "ColumnUnits1=\r\nColumnHeader2=DBH\r\nColumnUnits2=cm\r\n");
}

TEST_F(TemplateFileTest, NoColumnsMeansNoNumberOfColumnsKey) {
  WriteFormatInfo(path, {"METRIC", "YES", "YES", "YES", "BC"}, 0, {});
  EXPECT_EQ(ReadProfileString(path, "FORMAT_INFO", "NumberOfColumns", "absent"), "absent");
}

TEST_F(TemplateFileTest, HeadingWithoutLineBreakCannotBeSaved) {
  std::array<std::string, 32> headings{};
  headings[1] = "c1";
  try {
    WriteFormatInfo(path, {"METRIC", "YES", "YES", "YES", "BC"}, 1, headings);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 5);
  }
}

TEST_F(TemplateFileTest, TheKeysBeforeAHeadingThatCannotBeSavedAreWritten) {
  std::array<std::string, 32> headings{};
  headings[1] = "Plot ID\r\n";
  headings[2] = "c2";
  EXPECT_EQ(testing::ErrorNumberRaisedBy(
                [&] { WriteFormatInfo(path, {"METRIC", "YES", "NO", "YES", "BC"}, 2, headings); }),
            5);
  EXPECT_EQ(testing::ReadFile(path),
            "[FORMAT_INFO]\r\nMeasurementSystem=METRIC\r\nShowUnassignedColumns=YES\r\nShowExcludedRows=NO\r\n"
            "AutoValidateGridData=YES\r\nOrvanVariant=BC\r\nNumberOfColumns=2\r\nColumnHeader1=Plot ID\r\n"
            "ColumnUnits1=\r\n");
}

TEST_F(TemplateFileTest, SavingFewerColumnsOverAWiderTemplateLeavesOldHeaderKeys) {
  std::array<std::string, 32> headings{};
  for (int i = 1; i <= 9; ++i) headings[static_cast<std::size_t>(i)] = "Tree ID\r\n";
  WriteFormatInfo(path, {"METRIC", "YES", "YES", "YES", "BC"}, 9, headings);
  headings[1] = "Plot ID\r\n";
  WriteFormatInfo(path, {"METRIC", "YES", "YES", "YES", "BC"}, 2, headings);
  EXPECT_EQ(ReadProfileString(path, "FORMAT_INFO", "NumberOfColumns", ""), "2");
  EXPECT_EQ(ReadProfileString(path, "FORMAT_INFO", "ColumnHeader1", ""), "Plot ID");
  EXPECT_EQ(ReadProfileString(path, "FORMAT_INFO", "ColumnHeader9", ""), "Tree ID");
}

}  // namespace
}  // namespace corvalin
