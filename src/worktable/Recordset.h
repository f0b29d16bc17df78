// A client-side row set over the working database: all rows of a select,
// held in memory in table order, with an independent position per clone.
// Clones share the rows, so an edit made through one is seen by all; Update
// writes the current row's edits through to the table at once.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "worktable/RowStore.h"

namespace corvalin {

struct Connection;
struct RowStore;

class Recordset {
 public:
  // A handle for a row, stable while the set lives.
  using Bookmark = long;

  Recordset(std::shared_ptr<Connection> connection, std::shared_ptr<RowStore> rows);
  ~Recordset();

  // Walking the rows.
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  bool IsEOF() const;   // past the last row (also: no rows)
  bool IsBOF() const;   // before the first row (also: no rows)
  long RecordCount() const;

  // Fields by name, without regard to case ("LineNum", "c12", "Excluded").
  int FieldCount() const;
  const std::string& FieldName(int index) const;
  // -1 when the set has no such field.
  int FieldIndex(std::string_view name) const;
  // The index of a field, raising "Item cannot be found" (3265) when missing.
  int RequireField(std::string_view name) const;

  // The current row's value; nullopt is Null. Raises 3021 at EOF or BOF.
  std::optional<std::string> Value(std::string_view name) const;
  std::optional<std::string> ValueAt(int fieldIndex) const;
  // The value as text; a Null raises "Invalid use of Null" (94).
  std::string Text(std::string_view name) const;
  // The value as text with Null read as the empty string.
  std::string TextOrEmpty(std::string_view name) const;
  // The current row's value without a copy, nullopt for Null (fast read);
  // valid until the row is changed.
  std::optional<std::string_view> CellAt(int fieldIndex) const;
  // Any row's value, by bookmark and field, without moving and without a
  // copy: what a grid paints a cell from. Valid until that row is changed.
  std::optional<std::string_view> CellAt(Bookmark row, int fieldIndex) const {
    if (!rows_->fetched) rows_->Ensure(*connection_);
    if (row < 0 || row >= rows_->Count() || fieldIndex < 0 || fieldIndex >= rows_->Width())
      RaiseNoCell(row, fieldIndex);
    return rows_->Cell(row, fieldIndex);
  }

  // Changes the current row's field (seen at once by every clone).
  void SetValue(std::string_view name, const std::string& value);
  void SetValueAt(int fieldIndex, const std::string& value);
  // Writes the current row's changed fields to the table (a new row is
  // inserted).
  void Update();

  // Many updates in a row go to the table in one write: from BeginBatch
  // they are held in one transaction of the store (unless one is open
  // already), and EndBatch writes them. What was updated before a failure
  // stays written: EndBatch is called on the way out all the same.
  void BeginBatch();
  void EndBatch();
  // A new row at the end of the set, every field Null, made the current row;
  // Update puts it into the table.
  void AddNew();

  // The rows changed or added through this set or its clones since the last
  // call: what the grid bound to it must redraw.
  struct RowChanges {
    long firstChanged = -1;
    long lastChanged = -1;
    long firstAdded = -1;
    long lastAdded = -1;
  };
  RowChanges TakeRowChanges();
  // Whether two row sets share their rows (a set and its clones).
  bool SharesRowsWith(const Recordset& other) const { return rows_ == other.rows_; }

  Bookmark GetBookmark() const;
  void SetBookmark(Bookmark bookmark);

  // A second, independent position over the same rows.
  std::shared_ptr<Recordset> Clone() const;

  // Searches forward from the current row for "Field = value" (a number or a
  // quoted text); stays on the row found, or ends at EOF.
  void Find(std::string_view criteria);

 private:
  [[noreturn]] void RaiseNoCell(Bookmark row, int fieldIndex) const;
  void RequireCurrent() const;
  RowStore& Store() const;

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<RowStore> rows_;
  long position_ = 0;  // -1 BOF, RecordCount() EOF
  bool batching_ = false;
};

}  // namespace corvalin
