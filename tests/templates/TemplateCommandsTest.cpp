// The replayable commands: whole-cell replacement and the three exclusions,
// run on a clone of the grid's row set, counted, and replayed in list order.
#include "TableFixture.h"
#include "templates/TemplateCommands.h"
#include "shell/Error.h"

namespace corvalin {
namespace {

class TemplateCommandsTest : public testing::TableFixture {
 protected:
  void SetUp() override {
    TableFixture::SetUp();
    MakeTable({{1, {"12", "PINE"}},
               {2, {"123", "WHITE PINE"}},
               {3, {"", "pine"}},
               {4, {"12", "P"}},
               {5, {"", "PINE"}}});
    grid = GridRows();
  }
  static TemplateCommand Replace(const std::string& find, const std::string& replacement, int16_t column) {
    TemplateCommand c;
    c.CommandType = "REPLACE_ALL";
    c.FindString = find;
    c.ReplacementString = replacement;
    c.ColumnNumber = column;
    return c;
  }
  static TemplateCommand Exclude(const std::string& kind, const std::string& text, int16_t column) {
    TemplateCommand c;
    c.CommandType = kind;
    c.DeleteString = text;
    c.ColumnNumber = column;
    return c;
  }
  static TemplateCommand Range(int16_t start, int16_t end) {
    TemplateCommand c;
    c.CommandType = "EXCLUDE_RANGE";
    c.StartLine = start;
    c.EndLine = end;
    c.ColumnNumber = 1;
    return c;
  }
  // Changes the working table behind the grid's back, then fetches the
  // grid's rows again.
  void ChangeTableAndReloadTheGrid(const std::string& statement) {
    Sql(statement);
    grid = GridRows();
  }
  // Adds the command to the list, runs it on its own as its button would, and
  // gives the number of rows it hit.
  int16_t HitsOf(const TemplateCommand& command) {
    int16_t k = AddCommand(command);
    if (command.CommandType == "REPLACE_ALL") ApplyReplaceAll(k, grid);
    if (command.CommandType == "EXCLUDE_CONTAINING") ApplyExcludeContaining(k, grid);
    if (command.CommandType == "EXCLUDE_STARTING_WITH") ApplyExcludeStartingWith(k, grid);
    if (command.CommandType == "EXCLUDE_RANGE") ApplyExcludeRange(k, grid);
    return Commands().CommandHitCount;
  }
  // The rows of the grid the commands walk.
  std::shared_ptr<Recordset> grid;
};

TEST_F(TemplateCommandsTest, ReplaceAllMatchesWholeCellsOnly) {
  EXPECT_EQ(HitsOf(Replace("12", "X", 1)), 2);
  EXPECT_EQ(CellOf(1, "c1"), "X");
  EXPECT_EQ(CellOf(2, "c1"), "123");
  EXPECT_EQ(CellOf(4, "c1"), "X");
}

TEST_F(TemplateCommandsTest, ReplaceAllWithEmptyFindStringFillsBlankCells) {
  EXPECT_EQ(HitsOf(Replace("", "0", 1)), 2);
  EXPECT_EQ(CellOf(3, "c1"), "0");
  EXPECT_EQ(CellOf(5, "c1"), "0");
  EXPECT_EQ(CellOf(1, "c1"), "12");
}

TEST_F(TemplateCommandsTest, ReplaceAllWithEmptyReplacementClearsMatchingCells) {
  EXPECT_EQ(HitsOf(Replace("PINE", "", 2)), 2);
  EXPECT_EQ(CellOf(1, "c2"), "");
  EXPECT_EQ(CellOf(5, "c2"), "");
  EXPECT_EQ(CellOf(3, "c2"), "pine");
}

TEST_F(TemplateCommandsTest, ReplaceAllTreatsExcludedRowsLikeAllOthers) {
  ChangeTableAndReloadTheGrid("update tft set Excluded = 'Y' where LineNum = 1");
  HitsOf(Replace("12", "X", 1));
  EXPECT_EQ(CellOf(1, "c1"), "X");
}

TEST_F(TemplateCommandsTest, SecondReplaceAllFindsTheTextOfTheFirstInReplay) {
  AddCommand(Replace("12", "A", 1));
  AddCommand(Replace("A", "B", 1));
  ReplayTemplateCommands(grid);
  EXPECT_EQ(CellOf(1, "c1"), "B");
  EXPECT_EQ(CellOf(4, "c1"), "B");
}

TEST_F(TemplateCommandsTest, ExcludeContainingComparesTheWholeCellWithCase) {
  EXPECT_EQ(HitsOf(Exclude("EXCLUDE_CONTAINING", "PINE", 2)), 2);
  EXPECT_EQ(ExcludedLines(), "1 5 ");
}

TEST_F(TemplateCommandsTest, ExcludeStartingWithComparesTheStartWithCase) {
  EXPECT_EQ(HitsOf(Exclude("EXCLUDE_STARTING_WITH", "P", 2)), 3);
  EXPECT_EQ(ExcludedLines(), "1 4 5 ");
}

TEST_F(TemplateCommandsTest, ExcludeStartingWithEmptyTextMatchesEveryRow) {
  EXPECT_EQ(HitsOf(Exclude("EXCLUDE_STARTING_WITH", "", 2)), 5);
  EXPECT_EQ(ExcludedLines(), "1 2 3 4 5 ");
}

TEST_F(TemplateCommandsTest, ExcludeRangeUsesLineNumbersInclusive) {
  EXPECT_EQ(HitsOf(Range(2, 4)), 3);
  EXPECT_EQ(ExcludedLines(), "2 3 4 ");
}

TEST_F(TemplateCommandsTest, RangeWithStartAboveEndExcludesNothing) {
  EXPECT_EQ(HitsOf(Range(4, 2)), 0);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(TemplateCommandsTest, ExcludingARowTwiceCountsItOnce) {
  EXPECT_EQ(HitsOf(Range(1, 2)), 2);
  EXPECT_EQ(HitsOf(Range(2, 3)), 1);
  EXPECT_EQ(ExcludedLines(), "1 2 3 ");
}

TEST_F(TemplateCommandsTest, ReplayRunsCommandsInListOrderSoAReplacementCanMakeAnExclusionMatch) {
  AddCommand(Exclude("EXCLUDE_CONTAINING", "X", 1));
  AddCommand(Replace("12", "X", 1));
  AddCommand(Exclude("EXCLUDE_CONTAINING", "X", 1));
  TemplateCommand unknown;
  unknown.CommandType = "SOMETHING_ELSE";
  AddCommand(unknown);
  ReplayTemplateCommands(grid);
  EXPECT_EQ(ExcludedLines(), "1 4 ");
  EXPECT_EQ(Commands().CommandHitCount, 2);
}

TEST_F(TemplateCommandsTest, ColumnNumberOutsideTheTableRaisesTheStoresError) {
  EXPECT_EQ(testing::ErrorNumberRaisedBy([this] { HitsOf(Replace("12", "X", 31)); }), 3265);
}

TEST_F(TemplateCommandsTest, IndexOutsideOneToHundredIsASubscriptError) {
  int16_t k = 101;
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { ApplyExcludeRange(k, grid); }), 9);
  int16_t zero = 0;
  EXPECT_THROW(ApplyReplaceAll(zero, grid), RuntimeError);
}

TEST_F(TemplateCommandsTest, AGridThatWasNeverBoundIsTheObjectError) {
  int16_t k = AddCommand(Range(1, 5));
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { ApplyExcludeRange(k, nullptr); }), 91);
}

TEST_F(TemplateCommandsTest, TheRowsACommandChangesAreRecordedForTheGridsView) {
  grid->TakeRowChanges();
  HitsOf(Replace("PINE", "X", 2));
  const Recordset::RowChanges changes = grid->TakeRowChanges();
  EXPECT_EQ(changes.firstChanged, 0);
  EXPECT_EQ(changes.lastChanged, 4);
  EXPECT_EQ(changes.firstAdded, -1);
  HitsOf(Range(2, 3));
  const Recordset::RowChanges excluded = grid->TakeRowChanges();
  EXPECT_EQ(excluded.firstChanged, 1);
  EXPECT_EQ(excluded.lastChanged, 2);
}

TEST_F(TemplateCommandsTest, NullCellFailsExcludeStartingWithOnly) {
  ChangeTableAndReloadTheGrid("update tft set c3 = NULL");
  EXPECT_EQ(HitsOf(Exclude("EXCLUDE_CONTAINING", "", 3)), 0);
  EXPECT_EQ(HitsOf(Replace("", "Z", 3)), 0);
  EXPECT_EQ(testing::ErrorNumberRaisedBy([this] { HitsOf(Exclude("EXCLUDE_STARTING_WITH", "", 3)); }), 94);
}

TEST_F(TemplateCommandsTest, AFailurePartWayLeavesTheRowsBeforeItExcludedInTheTable) {
  ChangeTableAndReloadTheGrid("update tft set c2 = NULL where LineNum = 3");
  EXPECT_EQ(testing::ErrorNumberRaisedBy([this] { HitsOf(Exclude("EXCLUDE_STARTING_WITH", "", 2)); }), 94);
  // Lines 1 and 2 came before the Null cell: they are written to the table,
  // and the table takes further changes.
  EXPECT_EQ(ExcludedLines(), "1 2 ");
  EXPECT_EQ(HitsOf(Range(4, 5)), 2);
  EXPECT_EQ(ExcludedLines(), "1 2 4 5 ");
}

TEST_F(TemplateCommandsTest, ARangeNeedsNoColumnOfItsOwn) {
  TemplateCommand range = Range(2, 3);
  range.ColumnNumber = -1;
  EXPECT_EQ(HitsOf(range), 2);
  EXPECT_EQ(ExcludedLines(), "2 3 ");
}

TEST_F(TemplateCommandsTest, TheWalkLeavesTheGridsPositionAlone) {
  grid->SetBookmark(3);
  HitsOf(Range(1, 5));
  EXPECT_EQ(grid->GetBookmark(), 3);
}

TEST_F(TemplateCommandsTest, BusyPointerIsRestoredAfterACommand) {
  int16_t k = AddCommand(Range(1, 5));
  ui.busyPointer = true;
  ApplyExcludeRange(k, grid);
  EXPECT_FALSE(ui.busyPointer);
}

}  // namespace
}  // namespace corvalin
