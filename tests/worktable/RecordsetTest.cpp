// The row set the grid, the commands, validation and translation work
// through: walking, fields by name, edits written through, bookmarks, clones
// and the forward search.
#include <filesystem>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/RunState.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;

class RecordsetTest : public testing::WorkingTable {
 protected:
  void SetUp() override {
    WorkingTable::SetUp();
    OpenDatabase();
    for (int line = 1; line <= 5; ++line)
      Exec("INSERT INTO tft (LineNum,c1,c2,Excluded) VALUES (" + std::to_string(line) + ",'r" + std::to_string(line) +
           "','', '" + (line == 3 ? "Y" : "N") + "')");
    OpenDatabase();
  }
  Recordset& rs() { return *TftRecords(); }
};

TEST_F(RecordsetTest, RowsComeInLoadOrderAndTheWalkEndsAtEOF) {
  std::string seen;
  for (rs().MoveFirst(); !rs().IsEOF(); rs().MoveNext()) seen += rs().Text("c1") + " ";
  EXPECT_EQ(seen, "r1 r2 r3 r4 r5 ");
}

TEST_F(RecordsetTest, FieldsAreFoundWithoutRegardToCase) {
  rs().MoveFirst();
  EXPECT_EQ(rs().Text("LINENUM"), "1");
  EXPECT_EQ(rs().Text("C1"), "r1");
  EXPECT_EQ(rs().Text("excluded"), "N");
}

TEST_F(RecordsetTest, ANullCellReadsAsNullAndAsTextRaisesInvalidUseOfNull) {
  rs().MoveFirst();
  EXPECT_FALSE(rs().Value("c3").has_value());
  EXPECT_EQ(rs().TextOrEmpty("c3"), "");
  try {
    (void)rs().Text("c3");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 94);
    EXPECT_EQ(error.description(), "Invalid use of Null");
  }
}

TEST_F(RecordsetTest, AnEmptyCellIsTheEmptyStringNotNull) {
  rs().MoveFirst();
  ASSERT_TRUE(rs().Value("c2").has_value());
  EXPECT_EQ(*rs().Value("c2"), "");
}

TEST_F(RecordsetTest, AnUpdateIsVisibleToALaterSelectAtOnce) {
  rs().MoveFirst();
  rs().MoveNext();
  rs().SetValue("c1", "changed");
  rs().Update();
  auto again = RowOfLine(2);
  EXPECT_EQ(again->Text("c1"), "changed");
}

TEST_F(RecordsetTest, AClonesEditIsSeenByTheOriginalWhosePositionStays) {
  rs().MoveFirst();
  rs().MoveNext();
  auto clone = rs().Clone();
  clone->MoveFirst();
  clone->SetValue("Excluded", "Y");
  clone->Update();
  EXPECT_EQ(rs().Text("LineNum"), "2");
  rs().MoveFirst();
  EXPECT_EQ(rs().Text("Excluded"), "Y");
}

TEST_F(RecordsetTest, ABookmarkReturnsToItsRow) {
  rs().MoveFirst();
  rs().MoveNext();
  rs().MoveNext();
  const auto mark = rs().GetBookmark();
  rs().MoveFirst();
  rs().SetBookmark(mark);
  EXPECT_EQ(rs().Text("LineNum"), "3");
  auto clone = rs().Clone();
  clone->SetBookmark(mark);
  EXPECT_EQ(clone->Text("c1"), "r3");
}

TEST_F(RecordsetTest, FindSearchesForwardFromTheCurrentRow) {
  rs().MoveFirst();
  rs().Find("LineNum = 4");
  ASSERT_FALSE(rs().IsEOF());
  EXPECT_EQ(rs().Text("c1"), "r4");
  rs().Find("LineNum = 2");
  EXPECT_TRUE(rs().IsEOF());
}

TEST_F(RecordsetTest, TheNotExcludedSelectLeavesExcludedRowsOut) {
  DatabaseEngine().SQLString("Select * from tft where Excluded = 'N'");
  auto kept = DatabaseEngine().RetreiveRecords();
  EXPECT_EQ(kept->RecordCount(), 4);
}

TEST_F(RecordsetTest, MovingPastTheEndRaisesNoCurrentRecord) {
  rs().MoveLast();
  rs().MoveNext();
  EXPECT_TRUE(rs().IsEOF());
  try {
    rs().MoveNext();
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3021);
  }
}

TEST_F(RecordsetTest, MovePreviousFromTheFirstRowReachesBOF) {
  rs().MoveFirst();
  rs().MovePrevious();
  EXPECT_TRUE(rs().IsBOF());
}

TEST_F(RecordsetTest, AnUnknownFieldRaisesItemNotFound) {
  rs().MoveFirst();
  try {
    (void)rs().Value("c31");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3265);
  }
}

TEST_F(RecordsetTest, AnEditThroughARowSetStillLandsAfterTheEngineClosed) {
  rs().MoveFirst();
  CloseDatabase();
  rs().SetValue("c1", "late");
  rs().Update();
  OpenDatabase();
  EXPECT_EQ(TftRecords()->Text("c1"), "late");
}

TEST_F(RecordsetTest, TheSameSelectOnAnUnchangedTableReadsWhatTheFirstRead) {
  DatabaseEngine().SQLString("SELECT * FROM tft");
  auto first = DatabaseEngine().RetreiveRecords();
  EXPECT_EQ(first->RecordCount(), 5);
  DatabaseEngine().SQLString("Select * from tft");
  auto second = DatabaseEngine().RetreiveRecords();
  second->MoveLast();
  EXPECT_EQ(second->Text("c1"), "r5");
  EXPECT_EQ(second->RecordCount(), 5);
}

TEST_F(RecordsetTest, ASelectAfterAnUpdateThroughARowSetSeesTheTableAnew) {
  DatabaseEngine().SQLString("Select * from tft where Excluded = 'N'");
  auto kept = DatabaseEngine().RetreiveRecords();
  ASSERT_EQ(kept->RecordCount(), 4);
  kept->MoveFirst();
  kept->SetValue("Excluded", "Y");
  kept->Update();
  auto again = DatabaseEngine().RetreiveRecords();
  EXPECT_EQ(again->RecordCount(), 3);
  EXPECT_EQ(kept->RecordCount(), 4);
}

TEST_F(RecordsetTest, ASelectAfterAStatementSeesTheTableAnew) {
  DatabaseEngine().SQLString("Select * from tft");
  auto before = DatabaseEngine().RetreiveRecords();
  ASSERT_EQ(before->RecordCount(), 5);
  DatabaseEngine().SQLString("INSERT INTO tft (LineNum, c1, Excluded) VALUES (6, 'r6', 'N')");
  int32_t affected = -1;
  DatabaseEngine().Execute(affected);
  DatabaseEngine().SQLString("Select * from tft");
  EXPECT_EQ(DatabaseEngine().RetreiveRecords()->RecordCount(), 6);
}

TEST_F(RecordsetTest, AnEditedRowKeepsItsOtherCellsAndNulls) {
  rs().MoveFirst();
  rs().SetValue("c2", "x");
  EXPECT_EQ(rs().Text("c1"), "r1");
  EXPECT_FALSE(rs().Value("c3").has_value());
  EXPECT_EQ(rs().Text("c2"), "x");
  rs().Update();
  rs().SetValue("c3", "y");
  rs().Update();
  auto again = RowOfLine(1);
  EXPECT_EQ(again->Text("c2"), "x");
  EXPECT_EQ(again->Text("c3"), "y");
  EXPECT_EQ(again->Text("c1"), "r1");
}

TEST_F(RecordsetTest, AnyRowsCellIsReadByBookmarkWithoutMovingOrCopying) {
  rs().MoveFirst();
  const int c1 = rs().RequireField("c1");
  EXPECT_EQ(rs().CellAt(3, c1).value(), "r4");
  EXPECT_FALSE(rs().CellAt(1, rs().RequireField("c3")).has_value());
  // The row set stays where it was.
  EXPECT_EQ(rs().GetBookmark(), 0);
  // The view points into the rows themselves: the same bytes on every read.
  EXPECT_EQ(rs().CellAt(3, c1)->data(), rs().CellAt(3, c1)->data());
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { (void)rs().CellAt(5, c1); }), 3021);
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { (void)rs().CellAt(0, 40); }), 3265);
}

TEST_F(RecordsetTest, ANewRowIsAddedAtTheEndAndUpdateInsertsItIntoTheTable) {
  rs().TakeRowChanges();
  rs().AddNew();
  EXPECT_EQ(rs().RecordCount(), 6);
  EXPECT_EQ(rs().GetBookmark(), 5);
  EXPECT_FALSE(rs().Value("LineNum").has_value());
  rs().SetValue("LineNum", "6");
  rs().SetValue("c1", "r6");
  rs().SetValue("Excluded", "N");
  rs().Update();
  const Recordset::RowChanges changes = rs().TakeRowChanges();
  EXPECT_EQ(changes.firstAdded, 5);
  EXPECT_EQ(changes.lastAdded, 5);
  EXPECT_EQ(changes.firstChanged, -1);
  auto row = RowOfLine(6);
  row->MoveFirst();
  ASSERT_FALSE(row->IsEOF());
  EXPECT_EQ(row->Text("c1"), "r6");
  // A later edit of the new row changes the row the table now holds.
  rs().SetValue("c2", "edited");
  rs().Update();
  auto again = RowOfLine(6);
  again->MoveFirst();
  EXPECT_EQ(again->Text("c2"), "edited");
  EXPECT_EQ(again->RecordCount(), 1);
}

TEST_F(RecordsetTest, EditsAreRecordedAsTheRangeOfRowsTheyTouched) {
  rs().TakeRowChanges();
  auto clone = rs().Clone();
  for (long bookmark : {3L, 1L}) {
    clone->SetBookmark(bookmark);
    clone->SetValue("c2", "x");
  }
  const Recordset::RowChanges changes = rs().TakeRowChanges();
  EXPECT_EQ(changes.firstChanged, 1);
  EXPECT_EQ(changes.lastChanged, 3);
  EXPECT_EQ(rs().TakeRowChanges().firstChanged, -1);
}

}  // namespace
}  // namespace corvalin
