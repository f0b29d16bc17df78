// Each control of a window gets an access key of its own.
#include <gtest/gtest.h>

#include "screens/Mnemonics.h"

namespace corvalin {
namespace {

TEST(Mnemonics, EachCaptionTakesTheFirstFreeLetterThatStartsAWord) {
  EXPECT_EQ(ChooseMnemonics({"Validate", "Translate", "Help", "Quit", "<< Back", "Done"}),
            (std::vector<int>{0, 0, 0, 0, 3, 0}));
}

TEST(Mnemonics, ATakenFirstLetterGivesWayToTheNextWord) {
  EXPECT_EQ(ChooseMnemonics({"Show excluded rows", "Show unassigned columns", "Auto-validate grid data"}),
            (std::vector<int>{0, 5, 0}));
}

TEST(Mnemonics, ACaptionWhoseWordStartsAreTakenWaitsForTheOthers) {
  // Comma finds its C taken and gives its O to Other; Help keeps its H.
  EXPECT_EQ(ChooseMnemonics({"Character Delimited", "Comma", "Other:", "Help"}), (std::vector<int>{0, 2, 0, 0}));
}

TEST(Mnemonics, WithEveryWordStartTakenALetterInsideAWordIsUsed) {
  EXPECT_EQ(ChooseMnemonics({"Next >>", "Next >>"}), (std::vector<int>{0, 1}));
  EXPECT_EQ(ChooseMnemonics({"Ok", "Cancel"}, "oc"), (std::vector<int>{1, 1}));
}

TEST(Mnemonics, ACaptionWithEveryLetterTakenMovesAnotherToAFreeLetter) {
  // The grid's Save: its S, A, V and E are the first letters of others; Show
  // excluded rows moves to the R of "rows".
  EXPECT_EQ(ChooseMnemonics({"Show excluded rows", "Auto-validate grid data", "Validate", "Edit", "Save"}),
            (std::vector<int>{14, 0, 0, 0, 0}));
}

TEST(Mnemonics, CaseDoesNotTellKeysApart) {
  EXPECT_EQ(ChooseMnemonics({"metric", "Meters"}), (std::vector<int>{0, 1}));
}

TEST(Mnemonics, ACaptionWithNoFreeLetterGetsNone) {
  EXPECT_EQ(ChooseMnemonics({"ab", "ab", "ab", "", ">>"}), (std::vector<int>{0, 1, -1, -1, -1}));
  EXPECT_EQ(ChooseMnemonics({"Next >>", "Next >>", "Next >>", "Next >>", "Next >>"}),
            (std::vector<int>{0, 1, 2, 3, -1}));
}

TEST(Mnemonics, BlanksAndSignsAreNeverKeys) {
  EXPECT_EQ(ChooseMnemonics({" Metric", " Imperial"}), (std::vector<int>{1, 1}));
}

}  // namespace
}  // namespace corvalin
