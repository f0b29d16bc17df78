// What the engine, its statements and its row sets share: one SQLite handle,
// closed when the last of them lets go. A row set keeps the file open after
// the engine closed its connection, so that an edit through it still lands.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>

namespace corvalin {

struct RowStore;
class TableWriter;

struct Connection {
  sqlite3* db = nullptr;
  // Counts every statement that may have changed a table, so that the rows
  // of the last select can be reused while nothing changed.
  uint64_t generation = 0;
  std::weak_ptr<RowStore> lastRows;
  uint64_t lastRowsGeneration = 0;
  // The rows of the whole working table as the load inserted them: held
  // here, so that the grid, validation and translation that follow read
  // them without reading the table back.
  std::shared_ptr<RowStore> image;
  // The file the connection has open, to know it again when it is reopened.
  std::string path;
  unsigned long long device = 0;
  unsigned long long inode = 0;
  // SQLite's count of changes other connections made to the file, when the
  // connection was last closed or its load was done.
  long long dataVersion = 0;
  // The load's rows, still going into the table on a thread of their own:
  // while they go, the connection holds the file's write lock, so no other
  // connection reads or changes it.
  std::unique_ptr<TableWriter> writer;

  Connection();
  // Waits for the load's rows first: the table is whole when it closes.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
};

// Waits until the load's rows are in the table. Every use of the database
// calls it first, so that nothing ever sees the table before it is whole; the
// grid, the validation and the translation, which read the load's image, need
// not wait. Raises the first failure of the load's writes.
void FinishWrites(Connection& connection);

// SQLite's count of the changes others made to the file, as this connection
// last saw it.
long long DataVersion(Connection& connection);

// The store's failure as a run-time error: its code and message.
[[noreturn]] void RaiseDatabaseError(sqlite3* db, const std::string& source);

}  // namespace corvalin
