// The list logic that the stand list and location editors share: which
// buttons a selection enables, the placeholder row of a new record, deleting
// and moving the selected line, and reading a file into the list.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "StandFilesFixture.h"
#include "TestSupport.h"
#include "screens/Controls.h"
#include "screens/RecordLines.h"
#include "screens/Screen.h"
#include "shell/AppUtil.h"
#include "shell/Error.h"

namespace corvalin {
namespace {

using testing::ButtonStates;
using testing::ErrorNumberRaisedBy;
using testing::FreshProcess;
using testing::StatesOf;
using testing::WriteFile;

using testing::kAllOff;
using testing::kFirstOfMore;
using testing::kLast;
using testing::kOnlyLine;
// Every button on: a line between two others.
constexpr ButtonStates kAllOn = testing::kMiddle;

const char* const kPlaceholder = " *** new record A *** ";

class RecordLinesTest : public FreshProcess {
 protected:
  void SetList(std::vector<std::string> items, int selected) {
    list.Items = std::move(items);
    list.Select(selected);
  }
  RecordLineButtons Buttons() { return {up, down, edit, del}; }
  ButtonStates States() { return StatesOf(Buttons()); }
  // Puts every button in the state opposite to the one expected, so that a
  // routine that leaves one alone is caught.
  void SetAll(bool enabled) { up.Enabled = down.Enabled = edit.Enabled = del.Enabled = enabled; }

  ListControl list;
  Button up, down, edit, del;
};

TEST_F(RecordLinesTest, NothingSelectedTurnsAllFourButtonsOff) {
  SetList({"a", "b"}, -1);
  SetAll(true);
  EnableRecordLineButtons(list, Buttons());
  EXPECT_EQ(States(), kAllOff);
}

TEST_F(RecordLinesTest, TheOnlyLineEnablesEditAndDelete) {
  SetList({"a"}, 0);
  SetAll(true);
  EnableRecordLineButtons(list, Buttons());
  EXPECT_EQ(States(), kOnlyLine);
}

TEST_F(RecordLinesTest, TheFirstOfMoreLinesEnablesDownEditAndDelete) {
  SetList({"a", "b"}, 0);
  SetAll(false);
  EnableRecordLineButtons(list, Buttons());
  EXPECT_EQ(States(), kFirstOfMore);
}

TEST_F(RecordLinesTest, TheLastLineEnablesUpEditAndDelete) {
  SetList({"a", "b", "c"}, 2);
  SetAll(false);
  EnableRecordLineButtons(list, Buttons());
  EXPECT_EQ(States(), kLast);
}

TEST_F(RecordLinesTest, AnyOtherLineEnablesAllFour) {
  SetList({"a", "b", "c"}, 1);
  SetAll(false);
  EnableRecordLineButtons(list, Buttons());
  EXPECT_EQ(States(), kAllOn);
}

TEST_F(RecordLinesTest, PlaceholderGoesBehindTheSelectionAndIsSelected) {
  SetList({"a", "b", "c"}, 0);
  InsertPlaceholder(list, kPlaceholder, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", kPlaceholder, "b", "c"}));
  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_EQ(list.Text, kPlaceholder);
  EXPECT_EQ(States(), kAllOn);
}

TEST_F(RecordLinesTest, PlaceholderGoesToTheEndWhenNothingIsSelected) {
  SetList({"a", "b"}, -1);
  InsertPlaceholder(list, kPlaceholder, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "b", kPlaceholder}));
  EXPECT_EQ(list.ListIndex, 2);
  EXPECT_EQ(States(), kLast);
}

TEST_F(RecordLinesTest, ConfirmedRecordStaysWithItsSelection) {
  SetList({"a", "new line", "b"}, 1);
  SetAll(false);
  RemovePlaceholderIfCancelled(list, kPlaceholder, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "new line", "b"}));
  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_EQ(States(), kAllOff);
}

TEST_F(RecordLinesTest, CancelledPlaceholderGoesAndTheLineBeforeItIsSelected) {
  SetList({"a", "b", kPlaceholder, "c"}, 2);
  RemovePlaceholderIfCancelled(list, kPlaceholder, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_EQ(list.Text, "b");
  EXPECT_EQ(States(), kAllOn);
}

TEST_F(RecordLinesTest, CancelledFirstPlaceholderSelectsTheNewFirstRow) {
  SetList({kPlaceholder, "a", "b"}, 0);
  RemovePlaceholderIfCancelled(list, kPlaceholder, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(list.ListIndex, 0);
  EXPECT_EQ(States(), kFirstOfMore);
}

TEST_F(RecordLinesTest, CancelledOnlyPlaceholderLeavesNothingSelectedAndTheButtonsAlone) {
  SetList({kPlaceholder}, 0);
  SetAll(true);
  RemovePlaceholderIfCancelled(list, kPlaceholder, Buttons());
  EXPECT_TRUE(list.Items.empty());
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_EQ(list.Text, "");
  EXPECT_EQ(States(), kAllOn);
}

TEST_F(RecordLinesTest, ALineThatOnlyLooksLikeThePlaceholderStays) {
  SetList({"a", " *** new record A ***"}, 1);
  RemovePlaceholderIfCancelled(list, kPlaceholder, Buttons());
  EXPECT_EQ(list.ListCount(), 2);
  EXPECT_EQ(list.ListIndex, 1);
}

TEST_F(RecordLinesTest, DeleteSelectsTheLineNowAtTheIndexElseTheLast) {
  SetList({"a", "b", "c"}, 1);
  DeleteSelectedLine(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "c"}));
  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_EQ(list.Text, "c");
  EXPECT_EQ(States(), kLast);
  DeleteSelectedLine(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a"}));
  EXPECT_EQ(list.ListIndex, 0);
  EXPECT_EQ(States(), kOnlyLine);
}

TEST_F(RecordLinesTest, DeletingTheLastLineLeftTurnsTheFourButtonsOff) {
  SetList({"a"}, 0);
  SetAll(true);
  DeleteSelectedLine(list, Buttons());
  EXPECT_TRUE(list.Items.empty());
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_EQ(States(), kAllOff);
}

TEST_F(RecordLinesTest, DeleteWithNothingSelectedIsAnInvalidProcedureCall) {
  SetList({"a"}, -1);
  EXPECT_EQ(ErrorNumberRaisedBy([&] { DeleteSelectedLine(list, Buttons()); }), 5);
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a"}));
}

TEST_F(RecordLinesTest, UpSwapsWithTheLineAboveAndDisablesUpOnTheFirstLine) {
  SetList({"a", "b", "c"}, 2);
  SetAll(true);
  down.Enabled = false;
  MoveSelectedLineUp(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "c", "b"}));
  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_EQ(list.Text, "c");
  EXPECT_EQ(States(), kAllOn);
  MoveSelectedLineUp(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"c", "a", "b"}));
  EXPECT_EQ(list.ListIndex, 0);
  EXPECT_EQ(States(), kFirstOfMore);
}

TEST_F(RecordLinesTest, DownSwapsWithTheLineBelowAndDisablesDownOnTheLastLine) {
  SetList({"a", "b", "c"}, 0);
  SetAll(true);
  up.Enabled = false;
  MoveSelectedLineDown(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"b", "a", "c"}));
  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_EQ(States(), kAllOn);
  MoveSelectedLineDown(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"b", "c", "a"}));
  EXPECT_EQ(list.ListIndex, 2);
  EXPECT_EQ(States(), kLast);
}

TEST_F(RecordLinesTest, ALineWithNoNeighbourOnThatSideStays) {
  SetList({"a", "b"}, 0);
  MoveSelectedLineUp(list, Buttons());
  list.Select(1);
  MoveSelectedLineDown(list, Buttons());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(list.ListIndex, 1);
}

TEST_F(RecordLinesTest, FileLinesEndAtCrCrLfOrLfAndAreAddedBehindThoseThere) {
  const auto path = home / "lines.txt";
  WriteFile(path, std::string("one\r\ntwo\rthree\n\r\nfive \x00\xff end", 28));
  SetList({"kept"}, -1);
  AddFileLines(list, path.string());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"kept", "one", "two", "three", "",
                                                  std::string("five \x00\xff end", 11)}));
  EXPECT_EQ(list.ListIndex, -1);
}

TEST_F(RecordLinesTest, FileEndingInALineEndHasNoEmptyLineBehindIt) {
  const auto path = home / "lines.txt";
  WriteFile(path, "one\r\n\r\n");
  AddFileLines(list, path.string());
  EXPECT_EQ(list.Items, (std::vector<std::string>{"one", ""}));
}

TEST_F(RecordLinesTest, MissingFileIsFileNotFoundAndAddsNothing) {
  EXPECT_EQ(ErrorNumberRaisedBy([&] { AddFileLines(list, (home / "none.slf").string()); }), 53);
  EXPECT_TRUE(list.Items.empty());
}

TEST_F(RecordLinesTest, FirstRecordOfAFileComparesTheShortPathWithoutRegardToCase) {
  SetWorkingDirectoryCaption("/data/");
  SetList({"a st1 trees/two.tre @", "B st1 trees/two.tre @", "A st2 TREES/Two.tre @", "A st3 trees/two.tre @"}, -1);
  EXPECT_EQ(FirstRecordOfFile(list, 3, "/data/Trees/TWO.tre"), 2);
  EXPECT_EQ(FirstRecordOfFile(list, 3, "/other/trees/two.tre"), -1);
  // A location record names its stand list in token 4.
  SetList({"A \"x\" @ stands/one.slf @ @"}, -1);
  EXPECT_EQ(FirstRecordOfFile(list, 4, "/data/stands/one.slf"), 0);
  EXPECT_EQ(FirstRecordOfFile(list, 3, "/data/stands/one.slf"), -1);
}

TEST_F(RecordLinesTest, LoadOfAFileThatCannotBeReadGivesAnEmptyListWithTheButtonsOff) {
  SetAll(true);
  LoadRecordLines(list, (home / "none.loc").string(), 4, "", Buttons());
  EXPECT_TRUE(list.Items.empty());
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_EQ(States(), kAllOff);
}

// ---------------------------------------------------------------- saving and leaving

// The steps of an editor's file, counted.
struct FlowSteps {
  int validations = 0;
  int writings = 0;
  bool valid = true;
  bool unchanged = false;
  RecordFileFlow Flow(bool validateOnSave) {
    const auto validate = [this] {
      ++validations;
      return valid;
    };
    return {validateOnSave ? std::function<bool()>(validate) : nullptr, validate, [this] { ++writings; }, "File saved.",
            [this] { return unchanged; }};
  }
};

// A screen of no kind of its own, to go from and to.
class PlainScreen : public Screen {
 public:
  const char* Name() const override { return "PlainScreen"; }
  void Form_Load() override {}
};

TEST_F(RecordLinesTest, SaveValidatesWhereTheEditorAsksWritesAndSaysSo) {
  FlowSteps steps;
  SaveRecordFile(steps.Flow(true));
  EXPECT_EQ(steps.validations, 1);
  EXPECT_EQ(steps.writings, 1);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"File saved."}));
  EXPECT_FALSE(ui.busyPointer);

  ui.boxes.clear();
  steps.valid = false;
  SaveRecordFile(steps.Flow(true));
  EXPECT_EQ(steps.writings, 1);
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_FALSE(ui.busyPointer);

  // Without rules of its own the file is written whatever it holds.
  SaveRecordFile(steps.Flow(false));
  EXPECT_EQ(steps.validations, 2);
  EXPECT_EQ(steps.writings, 2);
}

TEST_F(RecordLinesTest, LeavingUnchangedGoesOnAtOnceAndAChangeIsSavedFirstOrStays) {
  PlainScreen from;
  PlainScreen to;
  from.Show();
  FlowSteps steps;
  steps.unchanged = true;
  int asked = 0;
  const auto next = [&]() -> Screen& {
    ++asked;
    return to;
  };
  SaveIfChangedAndHandOver(steps.Flow(true), from, next);
  EXPECT_EQ(steps.validations, 0);
  EXPECT_EQ(steps.writings, 0);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(to.Visible());
  EXPECT_FALSE(from.Visible());

  to.HandOverTo(from);
  steps.unchanged = false;
  steps.valid = false;
  SaveIfChangedAndHandOver(steps.Flow(false), from, next);
  // A refusal stays, and the next screen is not even asked for.
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(steps.writings, 0);
  EXPECT_TRUE(from.Visible());
  EXPECT_FALSE(ui.busyPointer);

  steps.valid = true;
  SaveIfChangedAndHandOver(steps.Flow(false), from, next);
  EXPECT_EQ(steps.writings, 1);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"File saved."}));
  EXPECT_TRUE(to.Visible());
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(RecordLinesTest, AFailureOnTheWayPassesOnAndLeavesThePointerBusy) {
  FlowSteps steps;
  RecordFileFlow flow = steps.Flow(true);
  flow.write = [] { Raise(err::PermissionDenied); };
  EXPECT_EQ(ErrorNumberRaisedBy([&] { SaveRecordFile(flow); }), err::PermissionDenied);
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_TRUE(ui.busyPointer);
}

}  // namespace
}  // namespace corvalin
