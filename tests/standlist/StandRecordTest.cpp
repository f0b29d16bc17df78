// Building the four record types from the dialog's field texts, and reading
// them back into those texts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestSupport.h"
#include "shell/AppUtil.h"
#include "standlist/StandLevelFile.h"

namespace corvalin {
namespace {

class StandRecord : public testing::FreshProcess {};

// The record B of the example stand: the texts of the controls, combos with
// their whole row text.
StandRecordB ExampleB() {
  StandRecordB record;
  record.code = "ST001";
  record.values = {"1995", "50.5", "119.5", "106 : Southern Interior", "", "1950", "180", "20", "45", "", "10",
                   "", "5", "0", "1", "100", "0 : Measured directly/end of period", "10",
                   "0 : Measured directly/end of period", "10", "10", "", "", "FD", "22"};
  return record;
}

TEST_F(StandRecord, RecordAWritesTheLowerCasedCodePathPointDataWordAndTagsInWriterOrder) {
  StandRecordA record;
  record.code = "ST001";
  record.treeDataSet = "TREES/ST001.TRE";
  record.withPointData = true;
  record.variants[13] = true;  // WS
  record.variants[1] = true;   // BC
  EXPECT_EQ(BuildRecordA(record), "A st001 trees/st001.tre WithPointData bc ws @");
}

TEST_F(StandRecord, ABareGroundStandLeavesTwoBlanksBeforeThePointDataWord) {
  StandRecordA record;
  record.code = "st002";
  record.treeDataSet = BareGroundCaption;
  record.withPointData = false;
  record.variants[1] = true;
  EXPECT_EQ(BuildRecordA(record), "A st002 &  NoPointData bc @");
}

TEST_F(StandRecord, AStandWithNoTickedVariantHasTheBlankMarkAsTokenFive) {
  StandRecordA record;
  record.code = "s";
  record.treeDataSet = "/data/s.tre";
  const std::string line = BuildRecordA(record);
  EXPECT_EQ(line, "A s /data/s.tre WithPointData @");
  EXPECT_EQ(GetRecordToken(line, 5), "");
}

TEST_F(StandRecord, RecordBWritesAll27TokensWithListFieldsCutToTheirCodes) {
  EXPECT_EQ(BuildRecordB(ExampleB()),
            "B st001 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22");
}

TEST_F(StandRecord, ALocationCodeOfThreeDigitsKeepsTheBlankBehindIt) {
  const std::string line = BuildRecordB(ExampleB());
  EXPECT_NE(line.find(" 106  @ "), std::string::npos);
  // The tokeniser hides the difference.
  EXPECT_EQ(GetRecordToken(line, 6), "106");
  EXPECT_EQ(GetRecordToken(line, 7), "");
}

TEST_F(StandRecord, TypedTextInAListFieldStoresOnlyItsFirstCharacters) {
  StandRecordB record = ExampleB();
  record.values[6 - 3] = "ABCDEF";     // location: 4
  record.values[7 - 3] = "9876";       // habitat: 3
  record.values[19 - 3] = "2 : typed";  // diameter growth: 1
  record.values[26 - 3] = "OTH";       // site species: 2
  const std::string line = BuildRecordB(record);
  EXPECT_EQ(GetRecordToken(line, 6), "abcd");
  EXPECT_EQ(GetRecordToken(line, 7), "987");
  EXPECT_EQ(GetRecordToken(line, 19), "2");
  EXPECT_EQ(GetRecordToken(line, 26), "ot");
}

TEST_F(StandRecord, ABlankFieldOfRecordBIsWrittenAsTheBlankMarkAndBlanksStayBlanks) {
  StandRecordB record;
  record.code = "x";
  record.values[0] = "  ";
  const std::string line = BuildRecordB(record);
  EXPECT_EQ(line, "B x    @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(StandRecord, ValuesKeepTheirTextWithNoReformatting) {
  StandRecordB record = ExampleB();
  record.values[0] = "1995.0";
  record.values[1] = "050.50";
  EXPECT_EQ(GetRecordToken(BuildRecordB(record), 3), "1995.0");
  EXPECT_EQ(GetRecordToken(BuildRecordB(record), 4), "050.50");
}

TEST_F(StandRecord, RecordCKeepsTheGroupCodesAsTyped) {
  EXPECT_EQ(BuildRecordC({"ST001", "Thin1 THIN2"}), "C st001 Thin1 THIN2 @");
}

TEST_F(StandRecord, RecordDWritesEachAddFileLowerCasedUnquoted) {
  EXPECT_EQ(BuildRecordD({"ST001", {"KEYS/THIN.KEY", "Keys/Two Words.key"}}),
            "D st001 keys/thin.key keys/two words.key @");
  EXPECT_EQ(BuildRecordD({"st001", {}}), "D st001 @");
}

TEST_F(StandRecord, ReadingRecordAShowsThePathUpperCasedAndTicksExactTags) {
  const StandRecordA record = ReadRecordA("A st001 trees\\st001.tre WithPointData bc @");
  EXPECT_EQ(record.code, "st001");
  EXPECT_EQ(record.treeDataSet, "TREES\\ST001.TRE");
  EXPECT_TRUE(record.withPointData);
  for (int v = 0; v < kVariantCount; ++v) EXPECT_EQ(record.variants[static_cast<std::size_t>(v)], v == 1) << v;
}

TEST_F(StandRecord, ReadingABareGroundRecordShowsTheBareGroundCaption) {
  const StandRecordA record = ReadRecordA("A st002 &  NoPointData bc @");
  EXPECT_EQ(record.treeDataSet, "*** Bare ground ***");
  EXPECT_FALSE(record.withPointData);
  EXPECT_TRUE(record.variants[1]);
}

TEST_F(StandRecord, ThePointDataWordIsComparedCaseSensitively) {
  EXPECT_FALSE(ReadRecordA("A s p withpointdata @").withPointData);
  EXPECT_TRUE(ReadRecordA("A s p WithPointData @").withPointData);
}

TEST_F(StandRecord, AnUpperCaseTagIsNotRecognisedAndIsDroppedAtTheNextWriting) {
  const StandRecordA record = ReadRecordA("A s p WithPointData BC ni @");
  EXPECT_FALSE(record.variants[1]);
  EXPECT_TRUE(record.variants[8]);
  EXPECT_EQ(BuildRecordA(record), "A s p WithPointData ni @");
}

TEST_F(StandRecord, TheBlankMarkAsTokenFiveEndsTheTagLoop) {
  const StandRecordA record = ReadRecordA("A s p WithPointData @ bc ni");
  for (bool ticked : record.variants) EXPECT_FALSE(ticked);
}

TEST_F(StandRecord, APathWithABlankShiftsTheTokensAndTheTagsStillTick) {
  StandRecordA written;
  written.code = "s1";
  written.treeDataSet = "/data/my trees.tre";
  written.variants[8] = true;  // NI
  const std::string line = BuildRecordA(written);
  EXPECT_EQ(line, "A s1 /data/my trees.tre WithPointData ni @");
  const StandRecordA read = ReadRecordA(line);
  EXPECT_EQ(read.treeDataSet, "/DATA/MY");
  // The path's tail is token 4, so the stand reads as no point data.
  EXPECT_FALSE(read.withPointData);
  EXPECT_TRUE(read.variants[8]);
}

TEST_F(StandRecord, AQuotedPathWithABlankReadsCorrectlyUntilTheRecordIsNextSaved) {
  const StandRecordA read = ReadRecordA("A s1 \"/data/my trees.tre\" WithPointData ni @");
  EXPECT_EQ(read.treeDataSet, "/DATA/MY TREES.TRE");
  EXPECT_TRUE(read.withPointData);
  EXPECT_EQ(BuildRecordA(read), "A s1 /data/my trees.tre WithPointData ni @");
}

TEST_F(StandRecord, ATreeDataTokenBeginningWithAPointReadsAsAnEmptyPath) {
  EXPECT_EQ(ReadRecordA("A s ./trees.tre WithPointData @").treeDataSet, "");
}

TEST_F(StandRecord, TheBlankMarkAsTreeDataShowsTheWorkingDirectoryUpperCased) {
  SetWorkingDirectoryCaption("/home/user/stands/");
  EXPECT_EQ(ReadRecordA("A s @ WithPointData @").treeDataSet, "/HOME/USER/STANDS/");
}

TEST_F(StandRecord, ARelativePathIsTakenAsLyingInTheWorkingDirectory) {
  SetWorkingDirectoryCaption("/home/user/stands/");
  EXPECT_EQ(ReadRecordA("A s trees/a.tre WithPointData @").treeDataSet, "/HOME/USER/STANDS/TREES/A.TRE");
  EXPECT_EQ(ReadRecordA("A s /abs/a.tre WithPointData @").treeDataSet, "/ABS/A.TRE");
}

TEST_F(StandRecord, APathInsideALowerCaseWorkingDirectoryIsRewrittenAsAFullPathLowerCased) {
  SetWorkingDirectoryCaption("/home/user/stands/");
  const StandRecordA read = ReadRecordA("A s trees/a.tre WithPointData @");
  EXPECT_EQ(BuildRecordA(read), "A s /home/user/stands/trees/a.tre WithPointData @");
}

TEST_F(StandRecord, APathInsideAnUpperCaseWorkingDirectoryKeepsItsRelativeForm) {
  SetWorkingDirectoryCaption("/STANDS/");
  const StandRecordA read = ReadRecordA("A s trees/a.tre WithPointData @");
  EXPECT_EQ(read.treeDataSet, "/STANDS/TREES/A.TRE");
  EXPECT_EQ(BuildRecordA(read), "A s trees/a.tre WithPointData @");
}

TEST_F(StandRecord, ReadingRecordBGivesEachTokenAsItStands) {
  const StandRecordB record =
      ReadRecordB("B st001 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22");
  EXPECT_EQ(record.code, "st001");
  EXPECT_EQ(record.values[0], "1995");
  EXPECT_EQ(record.values[6 - 3], "106");
  EXPECT_EQ(record.values[7 - 3], "");
  EXPECT_EQ(record.values[26 - 3], "fd");
  EXPECT_EQ(record.values[27 - 3], "22");
}

TEST_F(StandRecord, ABlankMarkFollowedByLettersInRecordBReadsEmptyAndIsWrittenAsTheMark) {
  StandRecordB record = ReadRecordB("B x @abc 2");
  EXPECT_EQ(record.values[0], "");
  EXPECT_EQ(record.values[1], "2");
  EXPECT_EQ(GetRecordToken(BuildRecordB(record), 3), "");
  EXPECT_EQ(BuildRecordB(record).substr(0, 9), "B x @ 2 @");
}

TEST_F(StandRecord, AShortRecordReadsItsMissingTokensAsEmpty) {
  const StandRecordB record = ReadRecordB("B");
  EXPECT_EQ(record.code, "");
  for (const std::string& value : record.values) EXPECT_EQ(value, "");
}

TEST_F(StandRecord, ReadingRecordCEndsEachCodeWithABlankSoTheNextWritingHasTwoBeforeTheMark) {
  const StandRecordC record = ReadRecordC("C st001 thin1 thin2 @");
  EXPECT_EQ(record.code, "st001");
  EXPECT_EQ(record.groupCodes, "thin1 thin2 ");
  EXPECT_EQ(BuildRecordC(record), "C st001 thin1 thin2  @");
}

TEST_F(StandRecord, AGroupCodeBeginningWithTheBlankMarkEndsTheListAndTheRestIsLost) {
  const StandRecordC record = ReadRecordC("C s a @b c\"d @");
  EXPECT_EQ(record.groupCodes, "a ");
  EXPECT_EQ(BuildRecordC(record), "C s a  @");
}

TEST_F(StandRecord, GroupCodesWithDoubleQuotesReadAsQuotedTokens) {
  EXPECT_EQ(ReadRecordC("C s \"x y\" z @").groupCodes, "x y z ");
}

TEST_F(StandRecord, ReadingRecordDUpperCasesEachAddFileWithoutExpandingIt) {
  SetWorkingDirectoryCaption("/w/");
  const StandRecordD record = ReadRecordD("D st001 keys\\thin.key other.key @");
  EXPECT_EQ(record.code, "st001");
  EXPECT_EQ(record.addFiles, (std::vector<std::string>{"KEYS\\THIN.KEY", "OTHER.KEY"}));
  EXPECT_EQ(BuildRecordD(record), "D st001 keys\\thin.key other.key @");
}

TEST_F(StandRecord, TheFourLineExampleStandIsWrittenBackFromItsFieldsByteForByte) {
  const std::string a = "A st001 trees\\st001.tre WithPointData bc @";
  const std::string b = "B st001 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22";
  const std::string d = "D st001 keys\\thin.key @";
  EXPECT_EQ(BuildRecordA(ReadRecordA(a)), a);
  // Reading loses the row text, so the location comes back as the typed code
  // only; the dialog's list look-up restores the row.
  StandRecordB readB = ReadRecordB(b);
  readB.values[6 - 3] = "106 : Southern Interior";
  EXPECT_EQ(BuildRecordB(readB), b);
  EXPECT_EQ(BuildRecordD(ReadRecordD(d)), d);
  EXPECT_EQ(BuildRecordA(ReadRecordA("A st002 &  NoPointData bc @")), "A st002 &  NoPointData bc @");
}

TEST_F(StandRecord, ListLookUpsTakeTheLastMatchingRow) {
  const std::vector<std::string> rows = {"505 : Klamath NF", "701 : Non Forest Service", "505 : Again"};
  EXPECT_EQ(LastRowWithNumber(rows, "505", 4), 2);
  EXPECT_EQ(LastRowWithNumber(rows, "701", 4), 1);
  EXPECT_EQ(LastRowWithNumber(rows, "999", 4), -1);
}

TEST_F(StandRecord, AnEmptyTokenSelectsARowWhoseCodeReadsAsZero) {
  const std::vector<std::string> rows = {"0 : Measured directly/end of period", "1 : By subtraction/end of period"};
  EXPECT_EQ(LastRowWithNumber(rows, "", 1), 0);
  EXPECT_EQ(LastRowWithNumber({"130 : Yellow Pine/Bluebunch Wheatgrass"}, "", 3), -1);
}

TEST_F(StandRecord, AFourCharacterLocationCodeMatchesByNumberValue) {
  const std::vector<std::string> rows = {"1002 : Tongass--Chatham Area", "701  : Non Forest Service"};
  EXPECT_EQ(LastRowWithNumber(rows, "701", 4), 1);
  EXPECT_EQ(LastRowWithNumber(rows, "1002", 4), 0);
  EXPECT_EQ(LastRowWithNumber(rows, "0701", 4), 1);
}

TEST_F(StandRecord, GrowthCodesMatchOnTheFirstCharacterExactly) {
  const std::vector<std::string> rows = {"0 : a", "1 : b", "2 : c", "3 : d"};
  EXPECT_EQ(LastRowWithFirstCharacter(rows, "2"), 2);
  EXPECT_EQ(LastRowWithFirstCharacter(rows, "2x"), -1);
  EXPECT_EQ(LastRowWithFirstCharacter(rows, ""), -1);
}

TEST_F(StandRecord, SiteSpeciesMatchOnTwoCharactersIgnoringCase) {
  const std::vector<std::string> rows = {"WP", "L", "DF", "OTH", "TO", "TO"};
  EXPECT_EQ(LastRowWithSpeciesCode(rows, "df"), 2);
  EXPECT_EQ(LastRowWithSpeciesCode(rows, "l"), 1);
  EXPECT_EQ(LastRowWithSpeciesCode(rows, "ot"), 3);
  EXPECT_EQ(LastRowWithSpeciesCode(rows, "to"), 5);
  EXPECT_EQ(LastRowWithSpeciesCode(rows, "xx"), -1);
}

}  // namespace
}  // namespace corvalin
