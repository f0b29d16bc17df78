// How a record line is cut into tokens: runs of blanks, "@" markers, quoted
// tokens, and a leading blank that shifts every token.
#include <gtest/gtest.h>

#include <string>

#include "shell/Error.h"
#include "standlist/StandLevelFile.h"

namespace corvalin {
namespace {

TEST(RecordToken, TokensAreSeparatedByRunsOfBlanks) {
  const std::string line = "B  st001   1995 50.5";
  EXPECT_EQ(GetRecordToken(line, 1), "B");
  EXPECT_EQ(GetRecordToken(line, 2), "st001");
  EXPECT_EQ(GetRecordToken(line, 3), "1995");
  EXPECT_EQ(GetRecordToken(line, 4), "50.5");
}

TEST(RecordToken, ATokenPastTheEndOfTheLineIsEmpty) {
  EXPECT_EQ(GetRecordToken("A st001", 3), "");
  EXPECT_EQ(GetRecordToken("A st001   ", 3), "");
  EXPECT_EQ(GetRecordToken("", 1), "");
}

TEST(RecordToken, IndexesBelowOneAreEmpty) {
  EXPECT_EQ(GetRecordToken("A st001", 0), "");
  EXPECT_EQ(GetRecordToken("A st001", -1), "");
}

TEST(RecordToken, ATokenBeginningWithTheBlankMarkReadsAsEmptyWhateverFollows) {
  const std::string line = "B st001 @abc 1995 @";
  EXPECT_EQ(GetRecordToken(line, 3), "");
  EXPECT_EQ(GetRecordToken(line, 4), "1995");
  EXPECT_EQ(GetRecordToken(line, 5), "");
}

TEST(RecordToken, AnEmptyTokenABlankMarkAndAMissingTokenCannotBeToldApart) {
  EXPECT_EQ(GetRecordToken("A x @", 3), GetRecordToken("A x", 3));
  EXPECT_EQ(GetRecordToken("A x @", 3), "");
}

TEST(RecordToken, AQuotedTokenKeepsItsBlanksAndLosesItsQuotes) {
  const std::string line = "A \"North  Block\" @ stands/north.slf @ @";
  EXPECT_EQ(GetRecordToken(line, 2), "North  Block");
  EXPECT_EQ(GetRecordToken(line, 3), "");
  EXPECT_EQ(GetRecordToken(line, 4), "stands/north.slf");
}

TEST(RecordToken, AQuotedNameKeepsLeadingAndTrailingBlanks) {
  EXPECT_EQ(GetRecordToken("A \" Two sides \" @ x @ @", 2), " Two sides ");
}

TEST(RecordToken, AfterTheClosingQuoteTheTokenGoesOnToTheNextBlank) {
  EXPECT_EQ(GetRecordToken("A \"ab cd\"ef gh", 2), "ab cdef");
  EXPECT_EQ(GetRecordToken("A \"ab cd\"ef gh", 3), "gh");
}

TEST(RecordToken, ADoubleQuoteInsideAnUnquotedTokenIsAnOrdinaryCharacter) {
  EXPECT_EQ(GetRecordToken("C st1 ab\"cd ef", 3), "ab\"cd");
  EXPECT_EQ(GetRecordToken("C st1 ab\"cd ef", 4), "ef");
}

TEST(RecordToken, AnUnclosedQuoteRunsToTheEndOfTheLine) {
  EXPECT_EQ(GetRecordToken("A \"open name @ x", 2), "open name @ x");
  EXPECT_EQ(GetRecordToken("A \"open name @ x", 3), "");
}

TEST(RecordToken, TheFirstTokenCannotBeQuoted) {
  EXPECT_EQ(GetRecordToken("\"A b\" c", 1), "\"A");
  EXPECT_EQ(GetRecordToken("\"A b\" c", 2), "b\"");
}

TEST(RecordToken, ALeadingBlankEndsTokenOneAtOnceAndShiftsEveryToken) {
  const std::string line = " A st001 trees.tre";
  EXPECT_EQ(GetRecordToken(line, 1), "");
  EXPECT_EQ(GetRecordToken(line, 2), "A");
  EXPECT_EQ(GetRecordToken(line, 3), "st001");
  EXPECT_EQ(GetRecordToken(line, 4), "trees.tre");
}

TEST(RecordToken, TheBlankMarkAsTheFirstCharacterIsAnOrdinaryTokenOne) {
  EXPECT_EQ(GetRecordToken("@ x", 1), "@");
}

TEST(RecordToken, ATabIsNotASeparator) {
  EXPECT_EQ(GetRecordToken("A\tst1 x", 1), "A\tst1");
}

TEST(RecordToken, BytesOutsideTextAreKeptAsTheyAre) {
  const std::string line = std::string("D st1 a") + '\0' + "b \xff\xfe @";
  EXPECT_EQ(GetRecordToken(line, 3), std::string("a") + '\0' + "b");
  EXPECT_EQ(GetRecordToken(line, 4), "\xff\xfe");
}

TEST(RecordToken, TokenNumbersAreSixteenBitSoALineOfMoreTokensOverflowsWhenReadToItsEnd) {
  std::string line = "C st1";
  for (int i = 0; i < 32766; ++i) line += " g";
  // 32,767 tokens: the last is still within reach.
  EXPECT_EQ(GetRecordToken(line, 32767), "g");
  line += " g";
  // Asking for a token early in the line stops before the count runs over.
  EXPECT_EQ(GetRecordToken(line, 2), "st1");
  try {
    (void)ReadRecordC(line);
    FAIL() << "reading all 32,768 tokens should overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), err::Overflow);
  }
}

TEST(FieldOrBlankText, EmptyTextIsTheBlankMarkAndAnyOtherIsLowerCased) {
  EXPECT_EQ(FieldOrBlank(""), "@");
  EXPECT_EQ(FieldOrBlank("FD"), "fd");
  EXPECT_EQ(FieldOrBlank("  "), "  ");
}

TEST(NumberValue, TheLeadingNumericPartCountsAndNoneIsZero) {
  EXPECT_EQ(LeadingNumberValue("106 "), 106.0);
  EXPECT_EQ(LeadingNumberValue("106x"), 106.0);
  EXPECT_EQ(LeadingNumberValue(" 1002"), 1002.0);
  EXPECT_EQ(LeadingNumberValue("701 "), 701.0);
  EXPECT_EQ(LeadingNumberValue("12.5e1z"), 125.0);
  EXPECT_EQ(LeadingNumberValue("-3"), -3.0);
  EXPECT_EQ(LeadingNumberValue(""), 0.0);
  EXPECT_EQ(LeadingNumberValue("abcd"), 0.0);
  EXPECT_EQ(LeadingNumberValue("."), 0.0);
}

}  // namespace
}  // namespace corvalin
