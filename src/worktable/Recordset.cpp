#include "worktable/Recordset.h"

#include <cstdlib>

#include "shell/Error.h"
#include "shell/Text.h"
#include "worktable/Connection.h"
#include "worktable/RowStore.h"

namespace corvalin {

namespace {
constexpr int kNoCurrentRecord = 3021;
constexpr int kItemNotFound = 3265;
}  // namespace

Recordset::Recordset(std::shared_ptr<Connection> connection, std::shared_ptr<RowStore> rows)
    : connection_(std::move(connection)), rows_(std::move(rows)) {}

Recordset::~Recordset() = default;

long Recordset::RecordCount() const { return static_cast<long>(Store().rows.size()); }

RowStore& Recordset::Store() const {
  rows_->Ensure(*connection_);
  return *rows_;
}

void Recordset::MoveFirst() { position_ = 0; }
void Recordset::MoveLast() { position_ = RecordCount() > 0 ? RecordCount() - 1 : 0; }

void Recordset::MoveNext() {
  if (IsEOF()) Raise(kNoCurrentRecord, "Recordset", "Either BOF or EOF is True, or the current record has been deleted.");
  ++position_;
}

void Recordset::MovePrevious() {
  if (IsBOF()) Raise(kNoCurrentRecord, "Recordset", "Either BOF or EOF is True, or the current record has been deleted.");
  --position_;
}

bool Recordset::IsEOF() const { return RecordCount() == 0 || position_ >= RecordCount(); }
bool Recordset::IsBOF() const { return RecordCount() == 0 || position_ < 0; }

int Recordset::FieldCount() const { return static_cast<int>(Store().fields.size()); }
const std::string& Recordset::FieldName(int index) const { return Store().fields.at(static_cast<std::size_t>(index)); }

int Recordset::FieldIndex(std::string_view name) const {
  const auto& fields = Store().fields;
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (EqualsNoCase(fields[i], name)) return static_cast<int>(i);
  return -1;
}

int Recordset::RequireField(std::string_view name) const {
  const int index = FieldIndex(name);
  if (index < 0)
    Raise(kItemNotFound, "Recordset", "Item cannot be found in the collection corresponding to the requested name or ordinal.");
  return index;
}

void Recordset::RequireCurrent() const {
  if (IsEOF() || IsBOF())
    Raise(kNoCurrentRecord, "Recordset", "Either BOF or EOF is True, or the current record has been deleted.");
}

const std::string* Recordset::CellAt(int fieldIndex) const {
  RequireCurrent();
  const Row& row = Store().rows[static_cast<std::size_t>(position_)];
  const auto i = static_cast<std::size_t>(fieldIndex);
  if (i >= row.cells.size()) Raise(kItemNotFound, "Recordset");
  return row.isNull[i] ? nullptr : &row.cells[i];
}

std::optional<std::string> Recordset::ValueAt(int fieldIndex) const {
  const std::string* cell = CellAt(fieldIndex);
  if (cell == nullptr) return std::nullopt;
  return *cell;
}

std::optional<std::string> Recordset::Value(std::string_view name) const { return ValueAt(RequireField(name)); }

std::string Recordset::Text(std::string_view name) const {
  const std::string* cell = CellAt(RequireField(name));
  if (cell == nullptr) Raise(err::InvalidUseOfNull, "Recordset");
  return *cell;
}

std::string Recordset::TextOrEmpty(std::string_view name) const {
  const std::string* cell = CellAt(RequireField(name));
  return cell == nullptr ? std::string() : *cell;
}

void Recordset::SetValueAt(int fieldIndex, const std::string& value) {
  RequireCurrent();
  Row& row = Store().rows[static_cast<std::size_t>(position_)];
  const auto i = static_cast<std::size_t>(fieldIndex);
  if (i >= row.cells.size()) Raise(kItemNotFound, "Recordset");
  row.cells[i] = value;
  row.isNull[i] = false;
  row.dirty[i] = true;
}

void Recordset::SetValue(std::string_view name, const std::string& value) { SetValueAt(RequireField(name), value); }

void Recordset::Update() {
  RequireCurrent();
  Store().WriteThrough(*connection_, Store().rows[static_cast<std::size_t>(position_)]);
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
    const Row& row = Store().rows[static_cast<std::size_t>(position_)];
    const auto i = static_cast<std::size_t>(field);
    if (!row.isNull[i] && row.cells[i] == wanted) return;
  }
}

}  // namespace corvalin
