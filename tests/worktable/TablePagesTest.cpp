// The load's rows laid straight into the pages of tft: SQLite must read back
// every row as it was given, find the file whole, and go on changing it.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "input/ColumnFormat.h"
#include "shell/Error.h"
#include "worktable/TablePages.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using Row = std::vector<std::string>;

// A row to lay: its line number and its cells.
struct Line {
  int16_t number;
  std::vector<std::string> cells;
};

class TablePagesTest : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    path = home / "tft.mdb";
  }
  void TearDown() override {
    for (sqlite3* db : open) sqlite3_close(db);
    FreshProcess::TearDown();
  }

  // The empty working database of the source tree, with pages of the size
  // given, and a statement to run on it after.
  void MakeDatabase(int pageSize = 65536, const std::string& after = "") {
    std::string schema = testing::ReadFile(testing::SourceDir() / "data" / "tft_schema.sql");
    const std::string pragma = "PRAGMA page_size = 65536;";
    schema.replace(schema.find(pragma), pragma.size(), "PRAGMA page_size = " + std::to_string(pageSize) + ";");
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, (schema + after).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
  }

  sqlite3* Open() {
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    open.push_back(db);
    return db;
  }

  // A whole load of the lines into db's table.
  static void Load(sqlite3* db, const std::vector<Line>& lines) {
    TablePages pages(db);
    Lay(pages, lines);
    pages.Complete();
  }

  // Lays the lines as rows 1, 2, ... of the table.
  static void Lay(TablePages& pages, const std::vector<Line>& lines) {
    long long rowid = 0;
    for (const Line& line : lines) {
      std::string text;
      std::vector<uint32_t> ends;
      for (const std::string& cell : line.cells) {
        text += cell;
        ends.push_back(static_cast<uint32_t>(text.size()));
      }
      pages.Append(++rowid, line.number, static_cast<int>(line.cells.size()), text.data(), ends.data());
    }
  }

  // What a statement gives, each row's columns as text joined by "|", the
  // rows by newlines; the failure's message when it fails.
  static std::string Query(sqlite3* db, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) return sqlite3_errmsg(db);
    std::string result;
    int rc = SQLITE_OK;
    while ((rc = sqlite3_step(statement)) == SQLITE_ROW) {
      if (!result.empty()) result += "\n";
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        result += (i == 0 ? "" : "|") + (text == nullptr ? std::string("<null>") : std::string(text));
      }
    }
    if (rc != SQLITE_DONE) result = sqlite3_errmsg(db);
    sqlite3_finalize(statement);
    return result;
  }

  // Every row of tft as a new connection reads it: LineNum, c1..c30,
  // Excluded, each as text.
  std::vector<Row> Rows() {
    sqlite3* db = Open();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, "SELECT * FROM tft ORDER BY rowid", -1, &statement, nullptr);
    std::vector<Row> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      Row row;
      for (int i = 0; i < sqlite3_column_count(statement); ++i)
        row.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                         static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
      rows.push_back(row);
    }
    sqlite3_finalize(statement);
    return rows;
  }

  static std::vector<Row> Expected(const std::vector<Line>& lines) {
    std::vector<Row> rows;
    for (const Line& line : lines) {
      Row row{std::to_string(line.number)};
      for (int n = 0; n < kMaxColumns; ++n)
        row.push_back(n < static_cast<int>(line.cells.size()) ? line.cells[static_cast<std::size_t>(n)] : "");
      row.emplace_back("N");
      rows.push_back(row);
    }
    return rows;
  }

  // The first byte of a page of the file: what kind of page it is.
  uint8_t PageKind(uint32_t page, uint32_t pageSize) const {
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(page - 1) * pageSize);
    return static_cast<uint8_t>(file.get());
  }
  uint32_t RightChild(uint32_t page, uint32_t pageSize) const {
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(page - 1) * pageSize + 8);
    uint32_t child = 0;
    for (int i = 0; i < 4; ++i) child = (child << 8) | static_cast<uint8_t>(file.get());
    return child;
  }

  static std::string FailureOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& failure) {
      return std::to_string(failure.number()) + " " + failure.source() + ": " + failure.description();
    }
    return "";
  }

  fs::path path;
  std::vector<sqlite3*> open;
};

// Cells of every length a cell can have, 0 to 255, on lines of 0 to 30
// cells, with line numbers of one byte and of two, positive and negative.
std::vector<Line> LinesOfEveryShape(int count) {
  std::vector<Line> lines;
  for (int k = 0; k < count; ++k) {
    Line line{static_cast<int16_t>(k % 3 == 0 ? k : -k), {}};
    const int cells = k % (kMaxColumns + 1);
    for (int n = 0; n < cells; ++n) {
      const int length = (k * 7 + n * 13) % 256;
      line.cells.emplace_back(static_cast<std::size_t>(length), static_cast<char>('!' + (k + n) % 90));
    }
    lines.push_back(line);
  }
  return lines;
}

TEST_F(TablePagesTest, RowsOfEveryShapeReadBackAsLaidAndTheFileIsWhole) {
  MakeDatabase();
  sqlite3* db = Open();
  const std::vector<Line> lines = LinesOfEveryShape(3000);
  Load(db, lines);
  EXPECT_EQ(Query(db, "PRAGMA integrity_check"), "ok");
  EXPECT_EQ(Rows(), Expected(lines));
  // Numbers stay numbers and cells texts, as an insert would store them.
  EXPECT_EQ(Query(db, "SELECT typeof(LineNum), typeof(c1), typeof(c30), typeof(Excluded) FROM tft WHERE rowid = 31"),
            "integer|text|text|text");
  EXPECT_EQ(Query(db, "SELECT count(*) FROM tft WHERE LineNum < 0"), "2000");
}

TEST_F(TablePagesTest, SmallPagesMakeATreeOfThreeLevels) {
  MakeDatabase(8192);
  sqlite3* db = Open();
  std::vector<Line> lines;
  for (int k = 1; k <= 32767; ++k)
    lines.push_back(Line{static_cast<int16_t>(k), std::vector<std::string>(30, "cell " + std::to_string(k) + ".....")});
  Load(db, lines);
  EXPECT_EQ(Query(db, "PRAGMA integrity_check"), "ok");
  EXPECT_EQ(PageKind(2, 8192), 0x05);
  EXPECT_EQ(PageKind(RightChild(2, 8192), 8192), 0x05);
  EXPECT_EQ(PageKind(RightChild(RightChild(2, 8192), 8192), 8192), 0x0D);
  EXPECT_EQ(Rows(), Expected(lines));
  EXPECT_EQ(Query(db, "SELECT c30 FROM tft WHERE rowid = 20000"), "cell 20000.....");
}

TEST_F(TablePagesTest, OneRowIsTheRootLeafOfATwoPageFile) {
  MakeDatabase();
  sqlite3* db = Open();
  const std::vector<Line> lines{{1, {"p1", "7", "DF"}}};
  Load(db, lines);
  EXPECT_EQ(Query(db, "PRAGMA integrity_check"), "ok");
  EXPECT_EQ(Query(db, "PRAGMA page_count"), "2");
  EXPECT_EQ(PageKind(2, 65536), 0x0D);
  EXPECT_EQ(Rows(), Expected(lines));
}

TEST_F(TablePagesTest, NoRowLeavesTheTableAsItWas) {
  MakeDatabase();
  const std::string before = testing::ReadFile(path);
  sqlite3* db = Open();
  Load(db, {});
  EXPECT_EQ(testing::ReadFile(path), before);
  EXPECT_EQ(Query(db, "SELECT count(*) FROM tft"), "0");
}

TEST_F(TablePagesTest, TheTableTakesChangesAfterTheLoad) {
  MakeDatabase();
  sqlite3* db = Open();
  const std::vector<Line> lines = LinesOfEveryShape(5000);
  Load(db, lines);
  ASSERT_EQ(sqlite3_exec(db,
                         "UPDATE tft SET c5 = 'changed' WHERE rowid % 2 = 0;"
                         "DELETE FROM tft WHERE rowid % 3 = 0;"
                         "INSERT INTO tft (LineNum, c1, Excluded) VALUES (5001, 'new', 'N');",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  EXPECT_EQ(Query(db, "PRAGMA integrity_check"), "ok");
  EXPECT_EQ(Query(db, "SELECT max(rowid), count(*) FROM tft"), "5001|3335");
  EXPECT_EQ(Query(db, "SELECT count(*) FROM tft WHERE c5 = 'changed'"), "1667");
  EXPECT_EQ(Query(db, "SELECT c1 FROM tft WHERE LineNum = 5001"), "new");
}

TEST_F(TablePagesTest, AConnectionThatReadTheEmptyTableSeesTheRows) {
  MakeDatabase();
  sqlite3* db = Open();
  sqlite3* other = Open();
  EXPECT_EQ(Query(other, "SELECT count(*) FROM tft"), "0");
  {
    TablePages pages(db);
    Lay(pages, LinesOfEveryShape(2000));
    // Nobody reads a table half built.
    EXPECT_EQ(Query(other, "SELECT count(*) FROM tft"), "database is locked");
    pages.Complete();
  }
  EXPECT_EQ(Query(other, "SELECT count(*) FROM tft"), "2000");
  EXPECT_EQ(Query(db, "SELECT count(*) FROM tft"), "2000");
}

TEST_F(TablePagesTest, ALoadNotCompletedLeavesTheTableEmptyAndTheFileFree) {
  MakeDatabase();
  sqlite3* db = Open();
  {
    TablePages pages(db);
    Lay(pages, LinesOfEveryShape(2000));
  }
  EXPECT_EQ(Query(db, "SELECT count(*) FROM tft"), "0");
  EXPECT_EQ(Query(Open(), "PRAGMA integrity_check"), "ok");
}

TEST_F(TablePagesTest, RowsOutOfOrderAreRefused) {
  MakeDatabase();
  sqlite3* db = Open();
  TablePages pages(db);
  const uint32_t end = 1;
  pages.Append(1, 1, 1, "a", &end);
  EXPECT_EQ(FailureOf([&] { pages.Append(3, 3, 1, "c", &end); }),
            "3709 CreateColumnsTable: row 2 of tft was expected as row 3");
}

TEST_F(TablePagesTest, ATableNotFreshIsRefusedAndSaysWhy) {
  const std::string prefix = "3709 CreateColumnsTable: tft is not the fresh table of the empty working database: ";
  MakeDatabase(65536, "INSERT INTO tft (LineNum, c1, Excluded) VALUES (1, 'a', 'N');");
  EXPECT_EQ(FailureOf([&] { TablePages pages(Open()); }), prefix + "it is not empty");

  fs::remove(path);
  MakeDatabase(65536, "CREATE INDEX byLine ON tft (LineNum);");
  EXPECT_EQ(FailureOf([&] { TablePages pages(Open()); }), prefix + "the file holds more than tft, rooted on its second page");

  fs::remove(path);
  MakeDatabase(65536, "ALTER TABLE tft ADD COLUMN Extra TEXT;");
  EXPECT_EQ(FailureOf([&] { TablePages pages(Open()); }), prefix + "its columns are not LineNum, c1 to c30 and Excluded");

  fs::remove(path);
  MakeDatabase(4096);
  EXPECT_EQ(FailureOf([&] { TablePages pages(Open()); }), prefix + "its pages of 4096 bytes cannot hold the longest row");
}

TEST_F(TablePagesTest, AFileAnotherConnectionWritesIsLocked) {
  MakeDatabase();
  sqlite3* other = Open();
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(FailureOf([&] { TablePages pages(Open()); }), "3709 CreateColumnsTable: database is locked");
  ASSERT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
}

}  // namespace
}  // namespace corvalin
