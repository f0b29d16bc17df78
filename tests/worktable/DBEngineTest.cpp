// The database engine: open, close, statements, row sets, and the two
// harmless mistakes (open when open, close when closed).
#include <filesystem>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/RunState.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;

using DBEngineTest = testing::WorkingTable;

TEST_F(DBEngineTest, OpenDatabaseFindsTheFileMadeAsTftUnderEitherCase) {
  OpenDatabase();
  EXPECT_TRUE(DatabaseEngine().IsOpen());
  EXPECT_EQ(DatabaseEngine().PathToDB(), Run().DataFolder + "tft.mdb");
  ASSERT_NE(TftRecords(), nullptr);
  EXPECT_EQ(TftRecords()->RecordCount(), 0);
  EXPECT_TRUE(TftRecords()->IsEOF());
  EXPECT_TRUE(TftRecords()->IsBOF());
}

TEST_F(DBEngineTest, TheEmptyTableHasLineNumThirtyCellsAndExcluded) {
  OpenDatabase();
  const auto& rs = *TftRecords();
  ASSERT_EQ(rs.FieldCount(), 32);
  EXPECT_EQ(rs.FieldName(0), "LineNum");
  EXPECT_EQ(rs.FieldName(1), "c1");
  EXPECT_EQ(rs.FieldName(30), "c30");
  EXPECT_EQ(rs.FieldName(31), "Excluded");
}

TEST_F(DBEngineTest, OpenDatabaseAfterOpenDatabaseKeepsTheConnectionAndRefreshesTheRows) {
  OpenDatabase();
  Exec("INSERT INTO tft (LineNum, c1, Excluded) VALUES (1, 'a', 'N')");
  auto first = TftRecords();
  OpenDatabase();
  EXPECT_NE(TftRecords(), first);
  EXPECT_EQ(TftRecords()->RecordCount(), 1);
  EXPECT_EQ(first->RecordCount(), 1);  // an old row set still reads the one table
}

TEST_F(DBEngineTest, CloseDatabaseAfterCloseDatabaseReportsNothing) {
  OpenDatabase();
  CloseDatabase();
  EXPECT_NO_THROW(CloseDatabase());
  EXPECT_FALSE(DatabaseEngine().IsOpen());
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(DBEngineTest, CloseDatabaseLeavesTftRecordsAsItIs) {
  OpenDatabase();
  auto records = TftRecords();
  CloseDatabase();
  EXPECT_EQ(TftRecords(), records);
}

TEST_F(DBEngineTest, SettingSQLStringTwiceUsesTheLaterText) {
  OpenDatabase();
  Exec("INSERT INTO tft (LineNum, c1, Excluded) VALUES (1, 'a', 'N')");
  Exec("INSERT INTO tft (LineNum, c1, Excluded) VALUES (2, 'b', 'Y')");
  DatabaseEngine().SQLString("Select * from tft");
  DatabaseEngine().SQLString("Select * from tft where Excluded = 'N'");
  auto rs = DatabaseEngine().RetreiveRecords();
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Text("c1"), "a");
}

TEST_F(DBEngineTest, ARejectedStatementRaisesTheStoresErrorAndKeepsTheBadText) {
  OpenDatabase();
  DatabaseEngine().SQLString("update nosuchtable set x = 1");
  int32_t affected = -1;
  try {
    DatabaseEngine().Execute(affected);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), err::DatabaseError);
    EXPECT_NE(error.description().find("no such table: nosuchtable"), std::string::npos) << error.description();
  }
  EXPECT_EQ(DatabaseEngine().SQLString(), "update nosuchtable set x = 1");
}

TEST_F(DBEngineTest, RetreiveRecordsWithNoOpenConnectionRaisesTheClosedError) {
  DatabaseEngine().SQLString("Select * from tft");
  try {
    DatabaseEngine().RetreiveRecords();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3704);
    EXPECT_EQ(error.description(), "Operation is not allowed when the object is closed.");
  }
}

TEST_F(DBEngineTest, ExecuteCountsTheRowsTouched) {
  OpenDatabase();
  Exec("INSERT INTO tft (LineNum, Excluded) VALUES (1, 'Y')");
  Exec("INSERT INTO tft (LineNum, Excluded) VALUES (2, 'Y')");
  DatabaseEngine().SQLString("update tft set Excluded = 'N'");
  int32_t affected = -1;
  DatabaseEngine().Execute(affected);
  EXPECT_EQ(affected, 2);
}

TEST_F(DBEngineTest, ATransactionRolledBackLeavesNoRows) {
  OpenDatabase();
  DatabaseEngine().StartTrans();
  Exec("INSERT INTO tft (LineNum, Excluded) VALUES (1, 'N')");
  DatabaseEngine().RollbckTrans();
  DatabaseEngine().StartTrans();
  Exec("INSERT INTO tft (LineNum, Excluded) VALUES (2, 'N')");
  DatabaseEngine().CommtTrans();
  OpenDatabase();
  ASSERT_EQ(TftRecords()->RecordCount(), 1);
  EXPECT_EQ(TftRecords()->Text("LineNum"), "2");
}

TEST_F(DBEngineTest, AMissingDatabaseFileFailsToOpenAndALaterOpenMayTryAgain) {
  fs::rename(fs::path(Run().DataFolder) / "TFT.mdb", fs::path(Run().DataFolder) / "away.mdb");
  EXPECT_THROW(OpenDatabase(), RuntimeError);
  EXPECT_FALSE(DatabaseEngine().IsOpen());
  fs::rename(fs::path(Run().DataFolder) / "away.mdb", fs::path(Run().DataFolder) / "TFT.mdb");
  EXPECT_NO_THROW(OpenDatabase());
}

TEST_F(DBEngineTest, ClosingReleasesTheFileSoItCanBeReplaced) {
  OpenDatabase();
  CloseDatabase();
  TftRecords().reset();
  EXPECT_TRUE(fs::remove(fs::path(Run().DataFolder) / "TFT.mdb"));
  testing::PutEmptyWorkingTable();
  EXPECT_NO_THROW(OpenDatabase());
}

TEST_F(DBEngineTest, APreparedInsertBindsTextWithQuotesAsItStands) {
  OpenDatabase();
  auto insert = DatabaseEngine().Prepare("INSERT INTO tft (LineNum, c1, Excluded) VALUES (?, ?, 'N')");
  insert->BindInt(1, 7);
  const std::string cell = "it's";
  insert->BindText(2, cell);
  insert->Run();
  OpenDatabase();
  EXPECT_EQ(TftRecords()->Text("c1"), "it's");
  EXPECT_EQ(TftRecords()->Text("LineNum"), "7");
}

TEST(ResolveFileNameCase, NamesTheExistingFileWhateverTheCaseAsked) {
  const fs::path dir = fs::temp_directory_path() / ("corvalin-case-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  testing::WriteFile(dir / "TFT.mdb", "x");
  EXPECT_EQ(ResolveFileNameCase((dir / "tft.mdb").string()), (dir / "TFT.mdb").string());
  EXPECT_EQ(ResolveFileNameCase((dir / "other.mdb").string()), (dir / "other.mdb").string());
  fs::remove_all(dir);
}

}  // namespace
}  // namespace corvalin
