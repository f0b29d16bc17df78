// The single door to the scratch database that holds the working table.
// One connection, one path and one statement text; open, close, run a
// statement, and return a row set for a statement. Opening an open
// connection and closing a closed one are harmless.
#pragma once

#include <any>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "worktable/Recordset.h"

struct sqlite3_stmt;

namespace corvalin {

struct Connection;
struct RowStore;
class TableWriter;

// A statement prepared once and run many times with bound parameters.
class PreparedStatement {
 public:
  PreparedStatement(std::shared_ptr<Connection> connection, const std::string& sql);
  ~PreparedStatement();
  PreparedStatement(const PreparedStatement&) = delete;
  PreparedStatement& operator=(const PreparedStatement&) = delete;

  void BindInt(int index, long long value);        // 1-based
  void BindText(int index, std::string_view text);  // 1-based; the text is copied
  // Runs the statement and resets it for the next binding.
  void Run();

 private:
  std::shared_ptr<Connection> connection_;
  ::sqlite3_stmt* statement_ = nullptr;
};

class clsDBEngine {
 public:
  clsDBEngine();
  ~clsDBEngine();

  // Opens the file at PathToDB for reading and writing. An open connection
  // stays as it is (the "already open" error is swallowed).
  std::any OpenDB();
  // Closes the connection; a closed one is no failure. The program closes and
  // opens the working table again between each of its steps: the closed
  // connection is kept aside and taken up again by the next opening of the
  // same file, unless the file was replaced or changed by another since,
  // so that what was read of it stays read.
  void CloseDB();
  // Closes the connection for good: the file is let go (to be replaced).
  void ReleaseDB();
  // Stored and never used.
  void CommDialog(void* dialog) { commDialog_ = dialog; }

  const std::string& SQLString() const { return sqlString_; }
  void SQLString(const std::string& sql) { sqlString_ = sql; }
  const std::string& PathToDB() const { return pathToDB_; }
  void PathToDB(const std::string& path) { pathToDB_ = path; }

  // A row set over the result of SQLString.
  std::shared_ptr<Recordset> RetreiveRecords();
  // Runs SQLString; recordsAffected receives the number of rows touched.
  void Execute(int32_t& recordsAffected);

  void StartTrans();
  void RollbckTrans();
  void CommtTrans();

  bool IsOpen() const { return connection_ != nullptr; }
  // The rows just written to the whole table by the load, for the next
  // "select *" of it on this connection (expects it open).
  void AdoptRows(std::shared_ptr<RowStore> rows);
  // A prepared statement on the open connection.
  std::unique_ptr<PreparedStatement> Prepare(const std::string& sql);
  // The open connection, for the load's writer.
  std::shared_ptr<Connection> Current() const;
  // The load's rows, still going into the table of the connection the load
  // wrote to: they are waited for at that connection's next use, or when it
  // goes. The writer lays pages into that connection's file, so it stays
  // with it even when the database was let go and opened again while the
  // load ran (a click among the pending events under the busy window).
  void FinishLater(const std::shared_ptr<Connection>& connection, std::unique_ptr<TableWriter> writer);
  // Waits for the load's rows of the open or the closed connection.
  void FinishWrites();

 private:
  std::shared_ptr<Connection> RequireOpen() const;

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<Connection> closed_;
  void* commDialog_ = nullptr;
  std::string sqlString_;
  std::string pathToDB_;
};

// The one database access object of the process (made by the start sequence).
clsDBEngine& DatabaseEngine();
// The open row set over tft.
std::shared_ptr<Recordset>& TftRecords();

// Opens the working database (DataFolder + "tft.mdb" in the wizard, the
// run's own in an unattended run) and puts a fresh "Select * from tft" row set in TftRecords.
void OpenDatabase();
// Closes the connection; TftRecords stays as it is.
void CloseDatabase();
// Closes it and lets go of the file, which is about to be replaced, or whose
// screen is gone.
void ReleaseDatabase();
// Waits until the load's inserts are in the working table and committed: for
// a look at the file from outside the engine.
void FinishDatabaseWrites();
// Makes the rows the load just wrote the rows the next "Select * from tft"
// gives, without reading the table back.
void AdoptLoadedRows(std::shared_ptr<RowStore> rows);

// The working database's file name where it is created; "tft.mdb" where it is
// opened names the same file.
inline constexpr const char* WorkingDatabaseName = "TFT.mdb";
inline constexpr const char* EmptyDatabaseName = "EmptyTFT.mdb";

// A path whose file name matches an existing file of its folder without
// regard to case resolves to that file, so "tft.mdb" and "TFT.mdb" are one.
std::string ResolveFileNameCase(const std::string& path);

}  // namespace corvalin
