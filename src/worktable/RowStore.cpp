#include "worktable/RowStore.h"

#include <sqlite3.h>

#include <cctype>
#include <memory>

#include "shell/Error.h"
#include "shell/Text.h"
#include "worktable/Connection.h"

namespace corvalin {

namespace {

// "select * from tft where ..." → "select rowid, * from tft where ...", and
// the table's name; any other statement is run as it stands, read-only.
std::string WithRowId(const std::string& sql, std::string* table) {
  const std::string lower = ToLower(TrimLeftBlanks(sql));
  std::string rewritten = sql;
  if (StartsWith(lower, "select")) {
    std::size_t p = 6;
    while (p < lower.size() && lower[p] == ' ') ++p;
    if (p < lower.size() && lower[p] == '*') {
      const std::size_t lead = sql.size() - TrimLeftBlanks(sql).size();
      rewritten = sql.substr(0, lead + p) + "rowid, " + sql.substr(lead + p);
    }
  }
  const auto from = lower.find(" from ");
  if (from != std::string::npos) {
    std::size_t b = from + 6;
    while (b < lower.size() && lower[b] == ' ') ++b;
    std::size_t e = b;
    while (e < lower.size() && (std::isalnum(static_cast<unsigned char>(lower[e])) || lower[e] == '_')) ++e;
    const std::size_t lead = sql.size() - TrimLeftBlanks(sql).size();
    *table = sql.substr(lead + b, e - b);
  }
  return rewritten;
}

}  // namespace

void RaiseDatabaseError(sqlite3* db, const std::string& source) {
  const int code = db != nullptr ? sqlite3_errcode(db) : SQLITE_ERROR;
  const std::string message = db != nullptr ? sqlite3_errmsg(db) : "no database";
  throw RuntimeError(err::DatabaseError, source, message + " (" + std::to_string(code) + ")");
}

std::shared_ptr<RowStore> FetchRows(Connection& connection, const std::string& sql) {
  auto store = std::make_shared<RowStore>();
  store->sql = sql;
  const std::string rewritten = WithRowId(sql, &store->table);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection.db, rewritten.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection.db, "clsDBEngine.RetreiveRecords");
  sqlite3_finalize(statement);
  return store;
}

void RowStore::Ensure(Connection& connection) {
  if (fetched) return;
  fetched = true;
  std::string tableName;
  const std::string rewritten = WithRowId(sql, &tableName);
  const bool hasRowId = rewritten != sql;
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection.db, rewritten.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection.db, "clsDBEngine.RetreiveRecords");
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(statement, sqlite3_finalize);
  const int columns = sqlite3_column_count(statement);
  const int first = hasRowId ? 1 : 0;
  fields.clear();
  for (int c = first; c < columns; ++c) fields.emplace_back(sqlite3_column_name(statement, c));
  const std::size_t width = fields.size();
  int rc;
  while ((rc = sqlite3_step(statement)) == SQLITE_ROW) {
    Row& row = rows.emplace_back();
    row.rowid = hasRowId ? sqlite3_column_int64(statement, 0) : 0;
    row.cells.resize(width);
    row.isNull.assign(width, false);
    row.dirty.assign(width, false);
    for (int c = first; c < columns; ++c) {
      const auto i = static_cast<std::size_t>(c - first);
      // A NULL value reads as a null pointer: one call tells both.
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, c));
      if (text == nullptr)
        row.isNull[i] = true;
      else
        row.cells[i].assign(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, c)));
    }
  }
  if (rc != SQLITE_DONE) RaiseDatabaseError(connection.db, "clsDBEngine.RetreiveRecords");
  table = hasRowId ? tableName : std::string();  // only a select * is updatable
}

void RowStore::WriteThrough(Connection& connection, Row& row) {
  std::string sql;
  std::vector<std::size_t> changed;
  for (std::size_t i = 0; i < row.dirty.size(); ++i) {
    if (!row.dirty[i]) continue;
    sql += (changed.empty() ? "" : ", ") + std::string("\"") + fields[i] + "\" = ?";
    changed.push_back(i);
  }
  if (changed.empty()) return;
  if (table.empty() || connection.db == nullptr) Raise(err::ObjectClosed, "Recordset.Update");
  sql = "UPDATE \"" + table + "\" SET " + sql + " WHERE rowid = ?";
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection.db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection.db, "Recordset.Update");
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(statement, sqlite3_finalize);
  int n = 1;
  for (const std::size_t i : changed)
    sqlite3_bind_text(statement, n++, row.cells[i].data(), static_cast<int>(row.cells[i].size()), SQLITE_TRANSIENT);
  sqlite3_bind_int64(statement, n, row.rowid);
  if (sqlite3_step(statement) != SQLITE_DONE) RaiseDatabaseError(connection.db, "Recordset.Update");
  for (const std::size_t i : changed) row.dirty[i] = false;
}

}  // namespace corvalin
