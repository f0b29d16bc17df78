#include "templates/TemplateCommands.h"

#include <string>

#include "columns/Vocabulary.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "worktable/Recordset.h"

namespace corvalin {

namespace {

TemplateCommandState gCommands;

// The row set behind the grid; a grid that was never bound has none, and the
// first clone fails as an unset object does.
std::shared_ptr<Recordset> CloneOfGridRecords(const std::shared_ptr<Recordset>& rows) {
  if (!rows) Raise(err::ObjectNotSet);
  return rows->Clone();
}

// The busy pointer around a walk, except in an unattended run.
class BusyPointer {
 public:
  BusyPointer() {
    if (!Run().CommandLineMode) UI().SetBusyPointer(true);
  }
  void Done() {
    if (!Run().CommandLineMode) UI().SetBusyPointer(false);
  }
};

std::string FieldOf(int16_t column) { return "c" + std::to_string(column); }

// The fields a walk reads, found by name once, on its first row: a column
// the table does not have fails there, with the store's error.
struct WalkFields {
  int cell = -1;
  int excluded = -1;
  int line = -1;
};

// Marks the current row excluded when it still takes part; counts it then.
void ExcludeCurrentRow(Recordset& rows, const WalkFields& fields) {
  const auto excluded = rows.CellAt(fields.excluded);
  if (excluded && *excluded == "N") {
    rows.SetValueAt(fields.excluded, "Y");
    rows.Update();
    Commands().CommandHitCount = Inc16(Commands().CommandHitCount);
  }
}

// The rows a walk changes are written to the table together when it ends,
// also when it fails part way: what was changed stays changed.
class WriteBatch {
 public:
  explicit WriteBatch(Recordset& rows) : rows_(rows) { rows_.BeginBatch(); }
  ~WriteBatch() {
    try {
      rows_.EndBatch();
    } catch (const std::exception&) {
      // Only on the way out of a failure, which is the one reported.
    }
  }
  void Done() { rows_.EndBatch(); }
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;

 private:
  Recordset& rows_;
};

// What every command does around its rows: the busy pointer, a clone of the
// grid's rows, the hit count from zero, each row from the first to the end.
// A failure part way leaves the pointer busy and the rows done so far
// changed; the caller reports it.
template <typename EachRow>
void WalkGridRows(int16_t index, const std::shared_ptr<Recordset>& gridRows, bool usesColumn, EachRow eachRow) {
  BusyPointer busy;
  const TemplateCommand& command = TemplateCommandAt(index);
  auto rows = CloneOfGridRecords(gridRows);
  Commands().CommandHitCount = 0;
  rows->MoveFirst();
  WriteBatch batch(*rows);
  WalkFields fields;
  // A walk from the first row never stands before it, so the end is the one
  // place it stops.
  while (!rows->IsEOF()) {
    if (fields.excluded < 0) {
      // A range names a column too, which plays no part and need not exist.
      if (usesColumn) fields.cell = rows->RequireField(FieldOf(command.ColumnNumber));
      fields.excluded = rows->RequireField("Excluded");
      fields.line = rows->RequireField("LineNum");
    }
    eachRow(command, fields, *rows);
    rows->MoveNext();
  }
  batch.Done();
  busy.Done();
}

}  // namespace

TemplateCommandState& Commands() { return gCommands; }
void ResetCommands() { gCommands = TemplateCommandState{}; }

TemplateCommand& TemplateCommandAt(int16_t k) {
  if (k < 1 || k > kMaxTemplateCommands) Raise(err::SubscriptOutOfRange);
  return gCommands.TemplateCommands[static_cast<std::size_t>(k - 1)];
}

void ApplyReplaceAll(int16_t& index, const std::shared_ptr<Recordset>& gridRows) {
  const auto replaceCell = [](const TemplateCommand& command, const WalkFields& fields, Recordset& rows) {
    // Whole cells only: "12" does not touch "123". A Null cell is no match.
    const auto value = rows.CellAt(fields.cell);
    if (value && *value == command.FindString) {
      rows.SetValueAt(fields.cell, command.ReplacementString);
      rows.Update();
      Commands().CommandHitCount = Inc16(Commands().CommandHitCount);
    }
  };
  WalkGridRows(index, gridRows, true, replaceCell);
}

void ApplyExcludeContaining(int16_t& index, const std::shared_ptr<Recordset>& gridRows) {
  const auto excludeWholeCellMatch = [](const TemplateCommand& command, const WalkFields& fields, Recordset& rows) {
    // Despite its name the command compares the whole cell, as templates
    // saved so far expect.
    const auto value = rows.CellAt(fields.cell);
    if (value && *value == command.DeleteString) ExcludeCurrentRow(rows, fields);
  };
  WalkGridRows(index, gridRows, true, excludeWholeCellMatch);
}

void ApplyExcludeStartingWith(int16_t& index, const std::shared_ptr<Recordset>& gridRows) {
  const auto excludeCellStart = [](const TemplateCommand& command, const WalkFields& fields, Recordset& rows) {
    // A Null cell cannot be cut: the invalid use of Null (94) goes to the caller.
    const auto value = rows.CellAt(fields.cell);
    if (!value) Raise(err::InvalidUseOfNull, "Recordset");
    if (value->substr(0, command.DeleteString.size()) == command.DeleteString) ExcludeCurrentRow(rows, fields);
  };
  WalkGridRows(index, gridRows, true, excludeCellStart);
}

void ApplyExcludeRange(int16_t& index, const std::shared_ptr<Recordset>& gridRows) {
  const auto excludeLineInRange = [](const TemplateCommand& command, const WalkFields& fields, Recordset& rows) {
    // LineNum is the input line, so a range stays right when rows are hidden.
    const auto line = rows.CellAt(fields.line);
    if (line) {
      const long number = std::stol(std::string(*line));
      if (number >= command.StartLine && number <= command.EndLine) ExcludeCurrentRow(rows, fields);
    }
  };
  WalkGridRows(index, gridRows, false, excludeLineInRange);
}

std::string CommandLimitMessage() {
  return "Maximum of " + std::to_string(kMaxTemplateCommands) + " template commands.";
}

std::vector<std::string> BuildCommandList(const std::array<std::string, 32>& headings) {
  std::vector<std::string> lines;
  std::string line;
  for (int16_t k = 1; k <= Commands().EditedCommandCount; k = Inc16(k)) {
    if (k > kMaxTemplateCommands) Raise(err::SubscriptOutOfRange);
    const TemplateCommand& c = Commands().EditedCommands[static_cast<std::size_t>(k - 1)];
    const std::string n = std::to_string(c.ColumnNumber);
    const auto header = [&] {
      return HeadingType(headings.at(static_cast<std::size_t>(c.ColumnNumber)));
    };
    const std::string prefix = std::to_string(k) + "/  ";
    if (c.CommandType == "REPLACE_ALL") {
      line = prefix + "Replace all \"" + c.FindString + "\" with \"" + c.ReplacementString + "\" in column " + n +
             " (" + header() + ")";
    } else if (c.CommandType == "EXCLUDE_CONTAINING") {
      line = prefix + "Exclude rows with \"" + c.DeleteString + "\" in column " + n + " (" + header() + ")";
    } else if (c.CommandType == "EXCLUDE_STARTING_WITH") {
      line = prefix + "Exclude rows starting with \"" + c.DeleteString + "\" in column " + n + " (" + header() + ")";
    } else if (c.CommandType == "EXCLUDE_RANGE") {
      line = prefix + "Exclude rows in range \"" + std::to_string(c.StartLine) + "\" to \"" +
             std::to_string(c.EndLine) + "\"";
    } else {
      // The line of the previous command is repeated (empty for the first).
      ShowMessage("error:  unknown template command type");
    }
    lines.push_back(line);
  }
  return lines;
}

void ReplayTemplateCommands(const std::shared_ptr<Recordset>& gridRows) {
  for (int16_t k = 1; k <= Commands().CommandCount; k = Inc16(k)) {
    const std::string& type = TemplateCommandAt(k).CommandType;
    int16_t index = k;
    if (type == "REPLACE_ALL") {
      ApplyReplaceAll(index, gridRows);
    } else if (type == "EXCLUDE_CONTAINING") {
      ApplyExcludeContaining(index, gridRows);
    } else if (type == "EXCLUDE_STARTING_WITH") {
      ApplyExcludeStartingWith(index, gridRows);
    } else if (type == "EXCLUDE_RANGE") {
      ApplyExcludeRange(index, gridRows);
    }
  }
}

}  // namespace corvalin
