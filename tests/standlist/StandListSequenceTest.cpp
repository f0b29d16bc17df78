// The order of records in a stand list: every message, which ones stop the
// walk and which carry on, and where the selection goes.
#include <string>
#include <vector>

#include "TestSupport.h"
#include "standlist/StandListRules.h"

namespace corvalin {
namespace {

class StandListSequence : public testing::FreshProcess {
 protected:
  // Checks the lines with the selection starting at `start`; gives the result.
  bool Check(const std::vector<std::string>& lines, int start = -1) {
    selection = start;
    return CheckStandListSequence(lines, selection);
  }
  int selection = -1;
};

const std::string A1 = "A st1 t1.tre WithPointData ni @";
const std::string B1 = "B st1 1995 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
const std::string C1 = "C st1 g1 @";
const std::string D1 = "D st1 k.key @";
const std::string A2 = "A st2 t2.tre WithPointData ni @";
const std::string B2 = "B st2 @";

TEST_F(StandListSequence, AnEmptyListIsValidWithoutAnyMessage) {
  EXPECT_TRUE(Check({}));
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(selection, -1);
}

TEST_F(StandListSequence, CompleteStandGroupsAreValid) {
  EXPECT_TRUE(Check({A1, B1, A2, B2}));
  EXPECT_TRUE(Check({A1, B1, D1, D1}));
  EXPECT_TRUE(Check({A1, B1, C1, C1, D1, D1, A2, B2}));
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(StandListSequence, TheSameCodeMayBeginALaterStandGroup) {
  EXPECT_TRUE(Check({A1, B1, A1, B1}));
}

TEST_F(StandListSequence, AListEndingBehindAnASelectsThatAAndBlamesRecordB) {
  EXPECT_FALSE(Check({A1, B1, A2}, 0));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record of type B must follow a record of type A."});
  EXPECT_EQ(selection, 2);
}

TEST_F(StandListSequence, ABAsTheFirstLineIsRefusedOnLineOne) {
  EXPECT_FALSE(Check({B1, A1}, 1));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"First record must be of type A."});
  EXPECT_EQ(selection, 0);
}

TEST_F(StandListSequence, ACBehindADIsRefusedWithoutMovingTheSelection) {
  EXPECT_FALSE(Check({A1, B1, D1, C1}, 1));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record of type C must follow a record of type B or C."});
  EXPECT_EQ(selection, 1);
}

TEST_F(StandListSequence, ABBehindADBlamesRecordBWithoutMovingTheSelection) {
  EXPECT_FALSE(Check({A1, B1, D1, B1}, 0));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record of type B must follow a record of type A."});
  EXPECT_EQ(selection, 0);
}

TEST_F(StandListSequence, ASecondBIsRefusedOnItsLine) {
  EXPECT_FALSE(Check({A1, B1, B1}));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record of type B must follow a record of type A."});
  EXPECT_EQ(selection, 2);
}

TEST_F(StandListSequence, AnABehindAnAIsRefusedAsAMissingB) {
  EXPECT_FALSE(Check({A1, A2, B2}));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record of type A must be followed by record of type B."});
  EXPECT_EQ(selection, 1);
}

TEST_F(StandListSequence, WrongCodesCarryOnAndGiveOneMessageEach) {
  EXPECT_FALSE(Check({"A x t WithPointData @", "B y @", "C z @"}));
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Record B should have same Stand Id as record A above.",
                                                   "Record C should have same Stand Id as record A above."}));
  EXPECT_EQ(selection, 2);
}

TEST_F(StandListSequence, AWrongCodeOnADIsReportedAndAStructuralFaultBehindItStillStops) {
  EXPECT_FALSE(Check({A1, B1, "D other @", "D other2 @", C1}));
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Record D should have same Stand Id as record A above.",
                                                   "Record D should have same Stand Id as record A above.",
                                                   "Record of type C must follow a record of type B or C."}));
  EXPECT_EQ(selection, 3);
}

TEST_F(StandListSequence, ALowerCaseRecordLetterIsOfNoKnownType) {
  EXPECT_FALSE(Check({"a st1 t WithPointData @", B1}));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"First record must be of type A."});
  EXPECT_FALSE(Check({A1, B1, "c st1 g @"}));
  EXPECT_EQ(ui.Texts().back(), "Record of type B must follow a record of type A.");
}

TEST_F(StandListSequence, ABlankLineFailsAsAnUnknownType) {
  EXPECT_FALSE(Check({A1, B1, ""}));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record of type B must follow a record of type A."});
  EXPECT_EQ(selection, 2);
}

TEST_F(StandListSequence, CodesDifferingOnlyInCaseDiffer) {
  EXPECT_FALSE(Check({A1, "B ST1 @"}));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Record B should have same Stand Id as record A above."});
}

TEST_F(StandListSequence, OnlyTheFirstCharacterAndTokenTwoAreRead) {
  EXPECT_TRUE(Check({"Anything st1", "Bogus st1", "Cx st1", "Dy st1"}));
}

}  // namespace
}  // namespace corvalin
