// A working table for tests: a fresh TFT.mdb from the empty database, rows
// inserted as the load would insert them (every cell text, Excluded "N"
// unless told), helpers to read the table back, and the grid's row set over
// it as the grid binds it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "templates/TemplateCommands.h"
#include "columns/SpeciesCodes.h"
#include "worktable/clsDBEngine.h"

namespace corvalin::testing {

struct TableRow {
  int line;
  std::vector<std::string> cells;  // c1, c2, ...; the rest are empty
  std::string excluded = "N";
};

class TableFixture : public FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    ResetCommands();
    ResetSpeciesCodes();
  }
  void TearDown() override {
    ResetForTest();
    CloseDatabase();
    TftRecords().reset();
    ResetCommands();
    ResetSpeciesCodes();
    FreshProcess::TearDown();
  }

  // A new TFT.mdb holding these rows; ColumnCount is raised to the widest row.
  void MakeTable(const std::vector<TableRow>& rows) {
    // A table made again replaces the file: the old one is let go first.
    CloseDatabase();
    PutEmptyWorkingTable();
    OpenDatabase();
    for (const TableRow& row : rows) {
      std::string sql = "INSERT INTO tft (LineNum";
      for (int i = 1; i <= 30; ++i) sql += ",c" + std::to_string(i);
      sql += ",Excluded) VALUES (" + std::to_string(row.line);
      for (int i = 1; i <= 30; ++i) {
        const std::string cell = i <= static_cast<int>(row.cells.size()) ? row.cells[static_cast<std::size_t>(i - 1)] : "";
        sql += ",'" + SqlQuote(cell) + "'";
      }
      sql += ",'" + row.excluded + "')";
      DatabaseEngine().SQLString(sql);
      int32_t affected = 0;
      DatabaseEngine().Execute(affected);
      if (static_cast<int>(row.cells.size()) > Run().ColumnCount) Run().ColumnCount = static_cast<int16_t>(row.cells.size());
    }
    OpenDatabase();
  }

  // Runs a statement on the working table.
  static void Sql(const std::string& statement) {
    DatabaseEngine().SQLString(statement);
    int32_t affected = 0;
    DatabaseEngine().Execute(affected);
  }

  // The value of a field in the row of a line number, read from the table.
  static std::string CellOf(int line, const std::string& field) {
    DatabaseEngine().SQLString("SELECT * FROM tft WHERE LineNum = " + std::to_string(line));
    auto rows = DatabaseEngine().RetreiveRecords();
    rows->MoveFirst();
    return rows->TextOrEmpty(field);
  }

  // The line numbers whose Excluded is "Y", in table order, as "2 5 ".
  static std::string ExcludedLines() {
    DatabaseEngine().SQLString("SELECT * FROM tft");
    auto rows = DatabaseEngine().RetreiveRecords();
    std::string lines;
    for (rows->MoveFirst(); !rows->IsEOF(); rows->MoveNext())
      if (rows->TextOrEmpty("Excluded") == "Y") lines += rows->Text("LineNum") + " ";
    return lines;
  }

  // The bookmark of a line's row in a row set.
  static Recordset::Bookmark BookmarkOfLine(const std::shared_ptr<Recordset>& rowSet, int line) {
    auto rows = rowSet->Clone();
    rows->MoveFirst();
    rows->Find("LineNum = " + std::to_string(line));
    return rows->GetBookmark();
  }

  // A row set of every row, as the grid binds it when it shows excluded rows.
  static std::shared_ptr<Recordset> GridRows() {
    OpenDatabase();
    DatabaseEngine().SQLString("SELECT * FROM tft");
    return DatabaseEngine().RetreiveRecords();
  }

  // Adds a command to the list in force and returns its index.
  static int16_t AddCommand(const TemplateCommand& command) {
    TemplateCommandState& state = Commands();
    state.CommandCount = static_cast<int16_t>(state.CommandCount + 1);
    TemplateCommandAt(state.CommandCount) = command;
    return state.CommandCount;
  }
};

}  // namespace corvalin::testing
