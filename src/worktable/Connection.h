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
  // connection was last closed.
  long long dataVersion = 0;

  ~Connection() {
    if (db != nullptr) sqlite3_close_v2(db);
  }
};

// The store's failure as a run-time error: its code and message.
[[noreturn]] void RaiseDatabaseError(sqlite3* db, const std::string& source);

}  // namespace corvalin
