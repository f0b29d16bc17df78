#include "worktable/Recordset.h"

#include <sqlite3.h>

#include <cstdlib>

#include "shell/Error.h"
#include "shell/Text.h"
#include "worktable/Connection.h"
#include "worktable/RowStore.h"

namespace corvalin {

namespace {
constexpr int kNoCurrentRecord = 3021;
constexpr int kItemNotFound = 3265;
constexpr const char* kNoCurrentRecordText = "Either BOF or EOF is True, or the current record has been deleted.";
}  // namespace

Recordset::Recordset(std::shared_ptr<Connection> connection, std::shared_ptr<RowStore> rows)
    : connection_(std::move(connection)), rows_(std::move(rows)) {}

Recordset::~Recordset() = default;

RowStore& Recordset::Store() const {
  rows_->Ensure(*connection_);
  return *rows_;
}

long Recordset::RecordCount() const { return Store().Count(); }

void Recordset::MoveFirst() { position_ = 0; }
void Recordset::MoveLast() { position_ = RecordCount() > 0 ? RecordCount() - 1 : 0; }

void Recordset::MoveNext() {
  if (IsEOF()) Raise(kNoCurrentRecord, "Recordset", kNoCurrentRecordText);
  ++position_;
}

void Recordset::MovePrevious() {
  if (IsBOF()) Raise(kNoCurrentRecord, "Recordset", kNoCurrentRecordText);
  --position_;
}

bool Recordset::IsEOF() const { return RecordCount() == 0 || position_ >= RecordCount(); }
bool Recordset::IsBOF() const { return RecordCount() == 0 || position_ < 0; }

int Recordset::FieldCount() const { return Store().Width(); }
const std::string& Recordset::FieldName(int index) const { return Store().fields.at(static_cast<std::size_t>(index)); }

int Recordset::FieldIndex(std::string_view name) const {
  const RowStore& store = Store();
  // The program names its fields as the table spells them; other spellings
  // are found too, only more slowly.
  if (const auto it = store.fieldByName.find(std::string(name)); it != store.fieldByName.end()) return it->second;
  for (std::size_t i = 0; i < store.fields.size(); ++i)
    if (EqualsNoCase(store.fields[i], name)) return static_cast<int>(i);
  return -1;
}

int Recordset::RequireField(std::string_view name) const {
  const int index = FieldIndex(name);
  if (index < 0)
    Raise(kItemNotFound, "Recordset", "Item cannot be found in the collection corresponding to the requested name or ordinal.");
  return index;
}

void Recordset::RequireCurrent() const {
  if (IsEOF() || IsBOF()) Raise(kNoCurrentRecord, "Recordset", kNoCurrentRecordText);
}

std::optional<std::string_view> Recordset::CellAt(int fieldIndex) const {
  RequireCurrent();
  if (fieldIndex < 0 || fieldIndex >= Store().Width()) Raise(kItemNotFound, "Recordset");
  return Store().Cell(position_, fieldIndex);
}

void Recordset::RaiseNoCell(Bookmark row, int fieldIndex) const {
  if (row < 0 || row >= rows_->Count()) Raise(kNoCurrentRecord, "Recordset", kNoCurrentRecordText);
  (void)fieldIndex;
  Raise(kItemNotFound, "Recordset");
}

std::optional<std::string> Recordset::ValueAt(int fieldIndex) const {
  const auto cell = CellAt(fieldIndex);
  if (!cell) return std::nullopt;
  return std::string(*cell);
}

std::optional<std::string> Recordset::Value(std::string_view name) const { return ValueAt(RequireField(name)); }

std::string Recordset::Text(std::string_view name) const {
  const auto cell = CellAt(RequireField(name));
  if (!cell) Raise(err::InvalidUseOfNull, "Recordset");
  return std::string(*cell);
}

std::string Recordset::TextOrEmpty(std::string_view name) const {
  const auto cell = CellAt(RequireField(name));
  return cell ? std::string(*cell) : std::string();
}

void Recordset::SetValueAt(int fieldIndex, const std::string& value) {
  RequireCurrent();
  if (fieldIndex < 0 || fieldIndex >= Store().Width()) Raise(kItemNotFound, "Recordset");
  Store().SetCell(position_, fieldIndex, value);
}

void Recordset::SetValue(std::string_view name, const std::string& value) { SetValueAt(RequireField(name), value); }

void Recordset::Update() {
  RequireCurrent();
  Store().WriteThrough(*connection_, position_);
}

void Recordset::BeginBatch() {
  if (batching_ || connection_ == nullptr || connection_->db == nullptr) return;
  FinishWrites(*connection_);
  if (sqlite3_get_autocommit(connection_->db) == 0) return;
  if (sqlite3_exec(connection_->db, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection_->db, "Recordset.BeginBatch");
  batching_ = true;
}

void Recordset::EndBatch() {
  if (!batching_) return;
  batching_ = false;
  if (connection_->db == nullptr || sqlite3_get_autocommit(connection_->db) != 0) return;
  if (sqlite3_exec(connection_->db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection_->db, "Recordset.EndBatch");
}

void Recordset::AddNew() { position_ = Store().AddRow(); }

Recordset::RowChanges Recordset::TakeRowChanges() {
  const RowStore::Changes changes = Store().TakeChanges();
  return {changes.firstChanged, changes.lastChanged, changes.firstAdded, changes.lastAdded};
}

Recordset::Bookmark Recordset::GetBookmark() const {
  RequireCurrent();
  return position_;
}

void Recordset::SetBookmark(Bookmark bookmark) {
  if (bookmark < 0 || bookmark >= RecordCount()) Raise(kNoCurrentRecord, "Recordset", "Bookmark is invalid.");
  position_ = bookmark;
}

std::shared_ptr<Recordset> Recordset::Clone() const {
  auto clone = std::make_shared<Recordset>(connection_, rows_);
  clone->position_ = 0;
  return clone;
}

void Recordset::Find(std::string_view criteria) {
  // "Field = value": the one form the program searches by.
  const auto eq = criteria.find('=');
  if (eq == std::string_view::npos) Raise(err::InvalidProcedureCall, "Recordset.Find");
  const int field = RequireField(TrimBlanks(criteria.substr(0, eq)));
  std::string wanted = TrimBlanks(criteria.substr(eq + 1));
  if (wanted.size() >= 2 && wanted.front() == '\'' && wanted.back() == '\'') wanted = wanted.substr(1, wanted.size() - 2);
  if (position_ < 0) position_ = 0;
  for (; position_ < RecordCount(); ++position_) {
    const auto cell = Store().Cell(position_, field);
    if (cell && *cell == wanted) return;
  }
}

}  // namespace corvalin
