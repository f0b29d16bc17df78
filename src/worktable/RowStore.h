// The rows of a select, held in memory and shared by a row set and its
// clones; each row keeps its table row id, so an edit can be written back.
// Fetched rows lie back to back in one buffer; a row that is edited moves to
// cells of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "worktable/TextArena.h"

namespace corvalin {

struct Connection;

// A row whose cells were changed through a row set.
struct EditedRow {
  std::vector<std::string> cells;
  std::vector<bool> isNull;
  std::vector<bool> dirty;
};

struct RowStore {
  std::string sql;                  // the select the rows come from
  bool fetched = false;
  std::string table;                // the table the rows come from; empty: read-only
  std::vector<std::string> fields;  // in select order
  std::unordered_map<std::string, int> fieldByName;  // exact spelling

  // Runs the select at the first look at the rows. The program often asks for
  // a fresh row set and replaces it before reading it (each opening of the
  // database makes one); fetching on first use spares those the cost.
  void Ensure(Connection& connection);

  // The rows of a whole table as a load writes them, in table order, without
  // reading them back: "SELECT * FROM table", updatable, every row appended
  // with AppendImageRow with the row id its insert gives it.
  static std::shared_ptr<RowStore> Image(const std::string& table, std::vector<std::string> fields);
  // Room for the rows a load can bring, taken at once: growing the buffers
  // row by row would copy them each time they double and leave the old
  // copies behind as holes a reload cannot reuse. Room that no row fills is
  // never touched, so it costs no memory.
  void ReserveImage(long rows, std::size_t cellBytes);
  // The room the next rows of the image will fill, as far as the room taken
  // reaches, when they are as long as the rows so far (an eighth more).
  std::vector<std::span<char>> ImageRoomAhead(long rows);
  // Whether a row of length bytes fits in the room taken, the rows before
  // it staying where they are.
  bool ImageHasRoomFor(std::size_t length) const { return arena_.capacity() - arena_.size() >= length; }
  // One row of the image: its row id and every field's text (none is Null).
  // The row's text is the pieces back to back; field f ends ends[f] bytes
  // into it, field 0 starting at its start. Gives where the row's text now
  // lies: it stays there as long as each later row is appended where there
  // is room.
  const char* AppendImageRow(long long rowid, std::span<const std::string_view> pieces, const uint32_t* ends);
  // The select of a whole table: its image stays exact under its own edits.
  bool IsWholeTable() const;

  long Count() const { return static_cast<long>(rowids_.size()); }
  // A new row at the end, every field Null; Update (WriteThrough) inserts it
  // into the table.
  long AddRow();
  int Width() const { return static_cast<int>(fields.size()); }
  // The cell of a row; nullopt is Null. Inline: the grid's paint, the
  // validation and the translation read every cell through it.
  std::optional<std::string_view> Cell(long row, int field) const {
    const auto r = static_cast<std::size_t>(row);
    const auto f = static_cast<std::size_t>(field);
    if (edited_[r] >= 0) {
      const EditedRow& edited = editedRows_[static_cast<std::size_t>(edited_[r])];
      if (edited.isNull[f]) return std::nullopt;
      return std::string_view(edited.cells[f]);
    }
    const std::size_t words = (fields.size() + 63) / 64;
    if ((nullBits_[r * words + f / 64] >> (f % 64)) & 1U) return std::nullopt;
    const std::size_t base = r * (fields.size() + 1);
    return arena_.view(starts_[base + f], starts_[base + f + 1] - starts_[base + f]);
  }
  void SetCell(long row, int field, const std::string& value);
  // Writes the row's changed fields to the table and clears their marks; a
  // new row is inserted.
  void WriteThrough(Connection& connection, long row);

  // Which rows were changed or added since the last look: what a grid over
  // these rows must redraw, whoever made the change.
  struct Changes {
    long firstChanged = -1;
    long lastChanged = -1;
    long firstAdded = -1;
    long lastAdded = -1;
  };
  Changes TakeChanges();

 private:
  void NoteChanged(long row);
  EditedRow& EditedCopy(long row);

  void Fetch(Connection& connection);

  std::vector<long long> rowids_;
  TextArena arena_;                   // every fetched cell, back to back
  std::vector<uint32_t> starts_;      // per row and field: start in arena_, then one end per row
  std::vector<uint64_t> nullBits_;    // per row, (Width() + 63) / 64 words
  std::vector<int32_t> edited_;       // per row: index into editedRows_, or -1
  std::vector<EditedRow> editedRows_;
  Changes changes_;
};

// The row id of a row added through the row set and not yet in the table.
inline constexpr long long kNewRowId = -1;

// Makes the image the rows a "SELECT * FROM" its table gives while nothing
// else changes the table.
void AdoptImage(Connection& connection, std::shared_ptr<RowStore> image);

// A row set's rows for a select, fetched on first use. A "select * from t ..."
// also fetches each row's id, which makes its rows updatable. The statement is
// checked at once, so a bad select fails where it is asked for. A select
// asked for again while the tables are unchanged shares the rows already
// fetched: they are what a new fetch would read.
std::shared_ptr<RowStore> FetchRows(Connection& connection, const std::string& sql);

}  // namespace corvalin
