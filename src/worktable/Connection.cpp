#include "worktable/Connection.h"

#include <exception>
#include <string>

#include "shell/Error.h"
#include "worktable/TableWriter.h"

namespace corvalin {

Connection::Connection() = default;

Connection::~Connection() {
  try {
    FinishWrites(*this);
  } catch (...) {
    // Nobody is left to tell: what went in before the failure stays.
  }
  if (db != nullptr) sqlite3_close_v2(db);
}

void FinishWrites(Connection& connection) {
  if (!connection.writer) return;
  const std::unique_ptr<TableWriter> writer = std::move(connection.writer);
  std::exception_ptr failure;
  try {
    writer->Finish();
  } catch (...) {
    failure = std::current_exception();
  }
  // The rows inserted before a failure stay in the table all the same.
  char* message = nullptr;
  const int rc = sqlite3_exec(connection.db, "COMMIT", nullptr, nullptr, &message);
  const std::string text = message != nullptr ? message : "?";
  sqlite3_free(message);
  if (failure) std::rethrow_exception(failure);
  if (rc != SQLITE_OK) throw RuntimeError(err::DatabaseError, "clsDBEngine.CommtTrans", text);
}

}  // namespace corvalin
