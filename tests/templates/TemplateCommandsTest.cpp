// The replayable commands: whole-cell replacement and the three exclusions,
// run on a clone of the grid's row set, counted, and replayed in list order.
#include "../columns/TableFixture.h"
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
    LoadHeaders();
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
};

TEST_F(TemplateCommandsTest, ReplaceAllMatchesWholeCellsOnly) {
  int16_t k = AddCommand(Replace("12", "X", 1));
  ApplyReplaceAll(k);
  EXPECT_EQ(Commands().CommandHitCount, 2);
  EXPECT_EQ(CellOf(1, "c1"), "X");
  EXPECT_EQ(CellOf(2, "c1"), "123");
  EXPECT_EQ(CellOf(4, "c1"), "X");
}

TEST_F(TemplateCommandsTest, ReplaceAllWithEmptyFindStringFillsBlankCells) {
  int16_t k = AddCommand(Replace("", "0", 1));
  ApplyReplaceAll(k);
  EXPECT_EQ(Commands().CommandHitCount, 2);
  EXPECT_EQ(CellOf(3, "c1"), "0");
  EXPECT_EQ(CellOf(5, "c1"), "0");
  EXPECT_EQ(CellOf(1, "c1"), "12");
}

TEST_F(TemplateCommandsTest, ReplaceAllWithEmptyReplacementClearsMatchingCells) {
  int16_t k = AddCommand(Replace("PINE", "", 2));
  ApplyReplaceAll(k);
  EXPECT_EQ(Commands().CommandHitCount, 2);
  EXPECT_EQ(CellOf(1, "c2"), "");
  EXPECT_EQ(CellOf(5, "c2"), "");
  EXPECT_EQ(CellOf(3, "c2"), "pine");
}

TEST_F(TemplateCommandsTest, ReplaceAllTreatsExcludedRowsLikeAllOthers) {
  Sql("update tft set Excluded = 'Y' where LineNum = 1");
  OpenDatabase();
  App().UnloadAll();
  LoadHeaders();
  int16_t k = AddCommand(Replace("12", "X", 1));
  ApplyReplaceAll(k);
  EXPECT_EQ(CellOf(1, "c1"), "X");
}

TEST_F(TemplateCommandsTest, SecondReplaceAllFindsTheTextOfTheFirstInReplay) {
  AddCommand(Replace("12", "A", 1));
  AddCommand(Replace("A", "B", 1));
  ReplayTemplateCommands();
  EXPECT_EQ(CellOf(1, "c1"), "B");
  EXPECT_EQ(CellOf(4, "c1"), "B");
}

TEST_F(TemplateCommandsTest, ExcludeContainingComparesTheWholeCellWithCase) {
  int16_t k = AddCommand(Exclude("EXCLUDE_CONTAINING", "PINE", 2));
  ApplyExcludeContaining(k);
  EXPECT_EQ(Commands().CommandHitCount, 2);
  EXPECT_EQ(ExcludedLines(), "1 5 ");
}

TEST_F(TemplateCommandsTest, ExcludeStartingWithComparesTheStartWithCase) {
  int16_t k = AddCommand(Exclude("EXCLUDE_STARTING_WITH", "P", 2));
  ApplyExcludeStartingWith(k);
  EXPECT_EQ(Commands().CommandHitCount, 3);
  EXPECT_EQ(ExcludedLines(), "1 4 5 ");
}

TEST_F(TemplateCommandsTest, ExcludeStartingWithEmptyTextMatchesEveryRow) {
  int16_t k = AddCommand(Exclude("EXCLUDE_STARTING_WITH", "", 2));
  ApplyExcludeStartingWith(k);
  EXPECT_EQ(Commands().CommandHitCount, 5);
  EXPECT_EQ(ExcludedLines(), "1 2 3 4 5 ");
}

TEST_F(TemplateCommandsTest, ExcludeRangeUsesLineNumbersInclusive) {
  int16_t k = AddCommand(Range(2, 4));
  ApplyExcludeRange(k);
  EXPECT_EQ(Commands().CommandHitCount, 3);
  EXPECT_EQ(ExcludedLines(), "2 3 4 ");
}

TEST_F(TemplateCommandsTest, RangeWithStartAboveEndExcludesNothing) {
  int16_t k = AddCommand(Range(4, 2));
  ApplyExcludeRange(k);
  EXPECT_EQ(Commands().CommandHitCount, 0);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(TemplateCommandsTest, ExcludingARowTwiceCountsItOnce) {
  int16_t k = AddCommand(Range(1, 2));
  ApplyExcludeRange(k);
  EXPECT_EQ(Commands().CommandHitCount, 2);
  int16_t k2 = AddCommand(Range(2, 3));
  ApplyExcludeRange(k2);
  EXPECT_EQ(Commands().CommandHitCount, 1);
  EXPECT_EQ(ExcludedLines(), "1 2 3 ");
}

TEST_F(TemplateCommandsTest, ReplayRunsCommandsInListOrderSoAReplacementCanMakeAnExclusionMatch) {
  AddCommand(Exclude("EXCLUDE_CONTAINING", "X", 1));
  AddCommand(Replace("12", "X", 1));
  AddCommand(Exclude("EXCLUDE_CONTAINING", "X", 1));
  TemplateCommand unknown;
  unknown.CommandType = "SOMETHING_ELSE";
  AddCommand(unknown);
  ReplayTemplateCommands();
  EXPECT_EQ(ExcludedLines(), "1 4 ");
  EXPECT_EQ(Commands().CommandHitCount, 2);
}

TEST_F(TemplateCommandsTest, ColumnNumberOutsideTheTableRaisesTheStoresError) {
  int16_t k = AddCommand(Replace("12", "X", 31));
  try {
    ApplyReplaceAll(k);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3265);
  }
}

TEST_F(TemplateCommandsTest, IndexOutsideOneToHundredIsASubscriptError) {
  int16_t k = 101;
  try {
    ApplyExcludeRange(k);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 9);
  }
  int16_t zero = 0;
  EXPECT_THROW(ApplyReplaceAll(zero), RuntimeError);
}

TEST_F(TemplateCommandsTest, NullCellFailsExcludeStartingWithOnly) {
  Sql("update tft set c3 = NULL");
  OpenDatabase();
  App().UnloadAll();
  LoadHeaders();
  int16_t k = AddCommand(Exclude("EXCLUDE_CONTAINING", "", 3));
  ApplyExcludeContaining(k);
  EXPECT_EQ(Commands().CommandHitCount, 0);
  int16_t r = AddCommand(Replace("", "Z", 3));
  ApplyReplaceAll(r);
  EXPECT_EQ(Commands().CommandHitCount, 0);
  int16_t s = AddCommand(Exclude("EXCLUDE_STARTING_WITH", "", 3));
  try {
    ApplyExcludeStartingWith(s);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 94);
  }
}

TEST_F(TemplateCommandsTest, TheWalkLeavesTheGridsPositionAlone) {
  frmHeaders& headers = App().Headers();
  headers.Adodc1.Recordset->SetBookmark(3);
  int16_t k = AddCommand(Range(1, 5));
  ApplyExcludeRange(k);
  EXPECT_EQ(headers.Adodc1.Recordset->GetBookmark(), 3);
}

TEST_F(TemplateCommandsTest, BusyPointerIsRestoredAfterACommand) {
  int16_t k = AddCommand(Range(1, 5));
  ui.busyPointer = true;
  ApplyExcludeRange(k);
  EXPECT_FALSE(ui.busyPointer);
}

}  // namespace
}  // namespace corvalin
