// The location record: its name tests, its line, and its reading.
#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "location/LocationFile.h"
#include "shell/AppUtil.h"
#include "standlist/StandLevelFile.h"

namespace corvalin {
namespace {

class LocationRecordText : public testing::FreshProcess {};

TEST_F(LocationRecordText, TheLineQuotesTheNameAndLowerCasesThePath) {
  EXPECT_EQ(BuildLocationRecord({"North Block", "/DATA/Stands/North.slf"}),
            "A \"North Block\" @ /data/stands/north.slf @ @");
}

TEST_F(LocationRecordText, ARecordWithNoStandListHasTwoBlanksBeforeTheLastMarks) {
  const std::string line = BuildLocationRecord({"Empty", ""});
  EXPECT_EQ(line, "A \"Empty\" @  @ @");
  EXPECT_EQ(GetRecordToken(line, 4), "");
}

TEST_F(LocationRecordText, ARecordWithNoStandListReadsBackAsTheWorkingDirectoryUpperCased) {
  SetWorkingDirectoryCaption("/home/u/work/");
  EXPECT_EQ(ReadLocationRecord("A \"Empty\" @  @ @").standListFile, "/HOME/U/WORK/");
}

TEST_F(LocationRecordText, APathWithABlankIsWrittenUnquotedAndReadsOnlyItsFront) {
  const std::string line = BuildLocationRecord({"L", "/data/my stands.slf"});
  EXPECT_EQ(line, "A \"L\" @ /data/my stands.slf @ @");
  EXPECT_EQ(ReadLocationRecord(line).standListFile, "/DATA/MY");
}

TEST_F(LocationRecordText, StoredPathsExpandByTheirFirstCharacters) {
  SetWorkingDirectoryCaption("/w/");
  EXPECT_EQ(ReadLocationRecord("A \"L\" @ ./x.slf @ @").standListFile, "");
  EXPECT_EQ(ReadLocationRecord("A \"L\" @ /abs/x.slf @ @").standListFile, "/ABS/X.SLF");
  EXPECT_EQ(ReadLocationRecord("A \"L\" @ rel/x.slf @ @").standListFile, "/W/REL/X.SLF");
}

TEST_F(LocationRecordText, TheNameKeepsItsCaseAndBlanksAndThePathComesBackUpperThenLower) {
  const LocationRecord read = ReadLocationRecord("A \"  Upper Creek \" @ /data/Up.slf @ @");
  EXPECT_EQ(read.name, "  Upper Creek ");
  EXPECT_EQ(read.standListFile, "/DATA/UP.SLF");
  EXPECT_EQ(BuildLocationRecord(read), "A \"  Upper Creek \" @ /data/up.slf @ @");
}

TEST_F(LocationRecordText, ALineWithoutQuotesGivesItsSecondWordAsTheName) {
  const LocationRecord read = ReadLocationRecord("A North Block x.slf");
  EXPECT_EQ(read.name, "North");
  EXPECT_EQ(read.standListFile, "X.SLF");
}

TEST_F(LocationRecordText, AShortLineGivesEmptyFields) {
  const LocationRecord read = ReadLocationRecord("A");
  EXPECT_EQ(read.name, "");
  EXPECT_EQ(read.standListFile, "");
}

TEST_F(LocationRecordText, ALineBeginningWithALowerCaseAOpensForEditing) {
  EXPECT_TRUE(IsLocationRecord("a \"x\" @ y @ @"));
  EXPECT_TRUE(IsLocationRecord("A"));
  EXPECT_FALSE(IsLocationRecord("B \"x\""));
  EXPECT_FALSE(IsLocationRecord(" A"));
  EXPECT_FALSE(IsLocationRecord(""));
}

TEST_F(LocationRecordText, TheNameMustNotBeEmptyNorHoldADoubleQuote) {
  EXPECT_EQ(LocationNameFault(""), "Must specify location name.");
  EXPECT_EQ(LocationNameFault("Say \"hi\""), "Can't use double quotes in location name.");
  EXPECT_EQ(LocationNameFault(" "), "");
  EXPECT_EQ(LocationNameFault("North Block"), "");
}

}  // namespace
}  // namespace corvalin
