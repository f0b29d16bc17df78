#include "worktable/RowStore.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cstring>
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

// Two select texts that differ only in the case of keywords and names ask
// for the same rows; a quoted literal is compared exactly.
bool SameSelect(const std::string& a, const std::string& b) {
  if (a == b) return true;
  if (a.find('\'') != std::string::npos || b.find('\'') != std::string::npos) return false;
  return EqualsNoCase(a, b);
}

}  // namespace

void RaiseDatabaseError(sqlite3* db, const std::string& source) {
  const int code = db != nullptr ? sqlite3_errcode(db) : SQLITE_ERROR;
  const std::string message = db != nullptr ? sqlite3_errmsg(db) : "no database";
  throw RuntimeError(err::DatabaseError, source, message + " (" + std::to_string(code) + ")");
}

std::shared_ptr<RowStore> RowStore::Image(const std::string& table, std::vector<std::string> fields) {
  auto image = std::make_shared<RowStore>();
  image->sql = "SELECT * FROM " + table;
  image->table = table;
  image->fetched = true;
  image->fields = std::move(fields);
  for (std::size_t i = 0; i < image->fields.size(); ++i) image->fieldByName.emplace(image->fields[i], static_cast<int>(i));
  return image;
}

void RowStore::ReserveImage(long rows, std::size_t cellBytes) {
  const auto count = static_cast<std::size_t>(rows);
  const std::size_t width = fields.size();
  rowids_.reserve(count);
  edited_.reserve(count);
  nullBits_.reserve(count * ((width + 63) / 64));
  starts_.reserve(count * (width + 1));
  arena_.reserve(cellBytes);
}

namespace {

// The unused room of a buffer, up to n more elements.
template <class T>
std::span<char> RoomOf(T* data, std::size_t size, std::size_t capacity, std::size_t n) {
  return {reinterpret_cast<char*>(data + size), std::min(n, capacity - size) * sizeof(T)};
}

}  // namespace

std::vector<std::span<char>> RowStore::ImageRoomAhead(long rows) {
  const auto count = static_cast<std::size_t>(rows);
  const std::size_t width = fields.size();
  const std::size_t rowsSoFar = std::max<std::size_t>(rowids_.size(), 1);
  const std::size_t cellBytes = arena_.size() * count / rowsSoFar * 9 / 8;
  return {RoomOf(arena_.data(), arena_.size(), arena_.capacity(), cellBytes),
          RoomOf(starts_.data(), starts_.size(), starts_.capacity(), count * (width + 1)),
          RoomOf(nullBits_.data(), nullBits_.size(), nullBits_.capacity(), count * ((width + 63) / 64)),
          RoomOf(rowids_.data(), rowids_.size(), rowids_.capacity(), count),
          RoomOf(edited_.data(), edited_.size(), edited_.capacity(), count)};
}

const char* RowStore::AppendImageRow(long long rowid, std::span<const std::string_view> pieces, const uint32_t* ends) {
  const std::size_t width = fields.size();
  rowids_.push_back(rowid);
  nullBits_.resize(nullBits_.size() + (width + 63) / 64, 0);
  edited_.push_back(-1);
  const auto first = static_cast<uint32_t>(arena_.size());
  for (const std::string_view piece : pieces) arena_.append(piece.data(), piece.size());
  const std::size_t firstStart = starts_.size();
  starts_.resize(firstStart + width + 1);
  uint32_t* start = starts_.data() + firstStart;
  start[0] = first;
  for (std::size_t f = 0; f < width; ++f) start[f + 1] = first + ends[f];
  return arena_.data() + first;
}

bool RowStore::IsWholeTable() const {
  if (table.empty()) return false;
  const std::string whole = "select * from " + ToLower(table);
  return EqualsNoCase(TrimBlanks(sql), whole);
}

void AdoptImage(Connection& connection, std::shared_ptr<RowStore> image) {
  connection.lastRows = image;
  connection.lastRowsGeneration = connection.generation;
  connection.image = std::move(image);
}

std::shared_ptr<RowStore> FetchRows(Connection& connection, const std::string& sql) {
  if (auto last = connection.lastRows.lock();
      last && SameSelect(last->sql, sql) && connection.lastRowsGeneration == connection.generation)
    return last;
  FinishWrites(connection);
  auto store = std::make_shared<RowStore>();
  store->sql = sql;
  const std::string rewritten = WithRowId(sql, &store->table);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection.db, rewritten.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection.db, "clsDBEngine.RetreiveRecords");
  sqlite3_finalize(statement);
  connection.lastRows = store;
  connection.lastRowsGeneration = connection.generation;
  // The load's image is no longer the rows a select would share.
  connection.image.reset();
  return store;
}

void RowStore::Ensure(Connection& connection) {
  if (fetched) return;
  fetched = true;
  Fetch(connection);
}

void RowStore::Fetch(Connection& connection) {
  FinishWrites(connection);
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
  fieldByName.clear();
  for (int c = first; c < columns; ++c) {
    fields.emplace_back(sqlite3_column_name(statement, c));
    fieldByName.emplace(fields.back(), c - first);
  }
  const std::size_t width = fields.size();
  const std::size_t words = (width + 63) / 64;
  int rc;
  while ((rc = sqlite3_step(statement)) == SQLITE_ROW) {
    rowids_.push_back(hasRowId ? sqlite3_column_int64(statement, 0) : 0);
    const std::size_t nullBase = nullBits_.size();
    nullBits_.resize(nullBase + words, 0);
    for (int c = first; c < columns; ++c) {
      const auto i = static_cast<std::size_t>(c - first);
      starts_.push_back(static_cast<uint32_t>(arena_.size()));
      // A NULL value reads as a null pointer: one call tells both.
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, c));
      if (text == nullptr)
        nullBits_[nullBase + i / 64] |= uint64_t{1} << (i % 64);
      else
        arena_.append(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, c)));
    }
    starts_.push_back(static_cast<uint32_t>(arena_.size()));
  }
  if (rc != SQLITE_DONE) RaiseDatabaseError(connection.db, "clsDBEngine.RetreiveRecords");
  edited_.assign(rowids_.size(), -1);
  table = hasRowId ? tableName : std::string();  // only a select * is updatable
}

EditedRow& RowStore::EditedCopy(long row) {
  const auto r = static_cast<std::size_t>(row);
  if (edited_[r] < 0) {
    EditedRow edited;
    for (int f = 0; f < Width(); ++f) {
      const auto cell = Cell(row, f);
      edited.cells.emplace_back(cell ? std::string(*cell) : std::string());
      edited.isNull.push_back(!cell.has_value());
    }
    edited.dirty.assign(fields.size(), false);
    edited_[r] = static_cast<int32_t>(editedRows_.size());
    editedRows_.push_back(std::move(edited));
  }
  return editedRows_[static_cast<std::size_t>(edited_[r])];
}

void RowStore::SetCell(long row, int field, const std::string& value) {
  EditedRow& edited = EditedCopy(row);
  const auto f = static_cast<std::size_t>(field);
  edited.cells[f] = value;
  edited.isNull[f] = false;
  edited.dirty[f] = true;
  NoteChanged(row);
}

long RowStore::AddRow() {
  const long row = Count();
  rowids_.push_back(kNewRowId);
  edited_.push_back(static_cast<int32_t>(editedRows_.size()));
  EditedRow added;
  added.cells.assign(fields.size(), std::string());
  added.isNull.assign(fields.size(), true);
  added.dirty.assign(fields.size(), false);
  editedRows_.push_back(std::move(added));
  if (changes_.firstAdded < 0) changes_.firstAdded = row;
  changes_.lastAdded = row;
  return row;
}

void RowStore::NoteChanged(long row) {
  // A row added since the last look is told of as added, not as changed.
  if (changes_.firstAdded >= 0 && row >= changes_.firstAdded) return;
  if (changes_.firstChanged < 0 || row < changes_.firstChanged) changes_.firstChanged = row;
  if (row > changes_.lastChanged) changes_.lastChanged = row;
}

RowStore::Changes RowStore::TakeChanges() {
  const Changes taken = changes_;
  changes_ = Changes{};
  return taken;
}

void RowStore::WriteThrough(Connection& connection, long row) {
  const int32_t e = edited_[static_cast<std::size_t>(row)];
  if (e < 0) return;
  FinishWrites(connection);
  EditedRow& edited = editedRows_[static_cast<std::size_t>(e)];
  std::string sql;
  std::vector<std::size_t> changed;
  for (std::size_t i = 0; i < edited.dirty.size(); ++i) {
    if (!edited.dirty[i]) continue;
    sql += (changed.empty() ? "" : ", ") + std::string("\"") + fields[i] + "\" = ?";
    changed.push_back(i);
  }
  const auto r = static_cast<std::size_t>(row);
  const bool added = rowids_[r] == kNewRowId;
  if (changed.empty() && !added) return;
  if (table.empty() || connection.db == nullptr) Raise(err::ObjectClosed, "Recordset.Update");
  if (added) {
    // A new row goes in with the fields given so far; the table's defaults
    // fill the rest.
    std::string names;
    std::string marks;
    for (const std::size_t i : changed) {
      names += (names.empty() ? "\"" : ", \"") + fields[i] + "\"";
      marks += marks.empty() ? "?" : ", ?";
    }
    sql = changed.empty() ? "INSERT INTO \"" + table + "\" DEFAULT VALUES"
                          : "INSERT INTO \"" + table + "\" (" + names + ") VALUES (" + marks + ")";
  } else {
    sql = "UPDATE \"" + table + "\" SET " + sql + " WHERE rowid = ?";
  }
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection.db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection.db, "Recordset.Update");
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(statement, sqlite3_finalize);
  int n = 1;
  for (const std::size_t i : changed)
    sqlite3_bind_text(statement, n++, edited.cells[i].data(), static_cast<int>(edited.cells[i].size()),
                      SQLITE_TRANSIENT);
  if (!added) sqlite3_bind_int64(statement, n, rowids_[r]);
  if (sqlite3_step(statement) != SQLITE_DONE) RaiseDatabaseError(connection.db, "Recordset.Update");
  if (added) rowids_[r] = sqlite3_last_insert_rowid(connection.db);
  // The table changed: a later select must read it anew, unless these rows
  // are the whole table's: they hold the change themselves.
  ++connection.generation;
  if (connection.lastRows.lock().get() == this && IsWholeTable()) connection.lastRowsGeneration = connection.generation;
  for (const std::size_t i : changed) edited.dirty[i] = false;
}

}  // namespace corvalin
