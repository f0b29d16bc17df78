#include "worktable/Connection.h"

#include "worktable/TableWriter.h"

namespace corvalin {

Connection::Connection() = default;

Connection::~Connection() {
  try {
    FinishWrites(*this);
  } catch (...) {
    // Nobody is left to tell.
  }
  if (db != nullptr) sqlite3_close_v2(db);
}

long long DataVersion(Connection& connection) {
  sqlite3_stmt* statement = nullptr;
  long long version = -1;
  if (sqlite3_prepare_v2(connection.db, "PRAGMA data_version", -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW)
    version = sqlite3_column_int64(statement, 0);
  sqlite3_finalize(statement);
  return version;
}

void FinishWrites(Connection& connection) {
  if (!connection.writer) return;
  const std::unique_ptr<TableWriter> writer = std::move(connection.writer);
  writer->Finish();
  // SQLite counts the load's pages as another's change to the file: the
  // count after them is the one a reopening compares with.
  connection.dataVersion = DataVersion(connection);
}

}  // namespace corvalin
