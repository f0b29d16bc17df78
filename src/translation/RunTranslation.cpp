#include "translation/RunTranslation.h"

#include <array>
#include <string>

#include "shell/Busy.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "translation/OutputFile.h"
#include "translation/RecordsInOrder.h"
#include "translation/TreeRecord.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

namespace {

enum class RecordForm { Metric, Imperial };

constexpr int kTableColumns = kTranslatedColumns;
constexpr const char* kBusyText = "Translating line:  ";

// The writers' shared loop: one record per row taking part that has data in
// an identified column, in table order. Each field is found once per run and
// read per row by its position in the row set.
void WriteTreeList(RecordForm form, const TranslationRequest& request) {
  ShowBusy(ApplicationTitle, std::string(kBusyText) + "0");

  RunState& run = Run();
  const RecordSetup setup = form == RecordForm::Metric ? BcRecordSetup(run) : UsRecordSetup(run);
  Assert(IsLengthUnitName(run.UnitsDbh));

  const std::array<bool, kTableColumns + 1>& identified = request.identified;

  OpenDatabase();
  // The database comes first: a bad output path leaves it open.
  OpenOutput(request.outputPath, run.AppendToOutput);

  Recordset& rows = *TftRecords();
  // The columns a row is read in: those of the record and the identified ones.
  std::array<bool, kTableColumns + 1> read = identified;
  for (int16_t column : {setup.PlotId, setup.TreeId, setup.TreeCount, setup.TreeHistory, setup.Species, setup.Dbh,
                         setup.DbhInc, setup.TotalHeight, setup.TopkillHeight, setup.HeightInc, setup.CrownRatio,
                         setup.Damage1, setup.Damage2, setup.Damage3, setup.TreeValue, setup.Prescription,
                         setup.PlotSlope, setup.PlotAspect, setup.HabitatType, setup.TopoPosition,
                         setup.SitePreparation}) {
    if (column == -1) continue;
    if (column < 1 || column > kTableColumns) Raise(err::SubscriptOutOfRange);
    read[static_cast<std::size_t>(column)] = true;
  }
  std::array<int, kTableColumns + 1> field{};
  for (int n = 1; n <= kTableColumns; ++n) field[static_cast<std::size_t>(n)] = rows.FieldIndex("c" + std::to_string(n));
  const int excludedField = rows.FieldIndex("Excluded");

  const int excluded = excludedField < 0 ? rows.RequireField("Excluded") : excludedField;
  for (int n = 1; n <= kTableColumns; ++n) {
    const auto slot = static_cast<std::size_t>(n);
    // A column the row set lacks fails as reading it by name would.
    if (read[slot] && field[slot] < 0) field[slot] = rows.RequireField("c" + std::to_string(n));
  }
  // Every row from the first, read in place by its bookmark.
  const long rowCount = rows.RecordCount();
  const auto makeRecord = [&](long row, std::string& text) {
    const auto excludedCell = rows.CellAt(row, excluded);
    if (!excludedCell || *excludedCell != "N") return;
    RowCells cells{};
    bool hasData = false;
    for (int n = 1; n <= kTableColumns; ++n) {
      const auto slot = static_cast<std::size_t>(n);
      if (!read[slot]) continue;
      const auto cell = rows.CellAt(row, field[slot]);
      cells[slot] = cell.value_or(std::string_view());
      if (identified[slot] && cell && !cell->empty()) hasData = true;
    }
    // The record is made for every row taking part, data or not.
    const std::string record = form == RecordForm::Metric ? BcRecord(setup, cells) : UsRecord(setup, cells);
    if (hasData) text += record;
  };
  int16_t linesWritten = 0;
  const auto writeRecord = [&](std::string_view record) {
    WriteOutputLine(record);
    // The count is 16-bit: record 32,768 is written, then the count overflows.
    linesWritten = Inc16(linesWritten);
    ShowBusyCount(ApplicationTitle, kBusyText, linesWritten);
  };
  // Nobody can change the table during an unattended run, so its records are
  // made on two threads; a person's run keeps the one, as the busy window
  // lets the screens go on drawing from the same rows.
  WriteRecordsInOrder(rowCount, run.CommandLineMode, makeRecord, writeRecord);

  CloseDatabase();
  CloseOutput();
  HideBusy();
}

// A failed run leaves file number 1 open; what was written still reaches it.
void WriteTreeListKeepingWhatWasWritten(RecordForm form, const TranslationRequest& request) {
  try {
    WriteTreeList(form, request);
  } catch (...) {
    FlushOutput();
    throw;
  }
}

}  // namespace

std::array<bool, kTranslatedColumns + 1> IdentifiedColumns(const std::array<std::string, 32>& headings,
                                                           int16_t columnCount) {
  std::array<bool, kTableColumns + 1> identified{};
  // The data test of a row looks only at the identified columns.
  const int last = columnCount < kTableColumns ? columnCount : kTableColumns;
  for (int i = 1; i <= last; ++i) {
    const std::string& heading = headings[static_cast<std::size_t>(i)];
    identified[static_cast<std::size_t>(i)] = heading.empty() || heading[0] != '?';
  }
  return identified;
}

void TranslateBc(const TranslationRequest& request) {
  WriteTreeListKeepingWhatWasWritten(RecordForm::Metric, request);
}

void TranslateUs(const TranslationRequest& request) {
  try {
    WriteTreeListKeepingWhatWasWritten(RecordForm::Imperial, request);
  } catch (const std::exception& failure) {
    const RuntimeError error = AsRuntimeError(failure);
    ShowMessage(std::string("Error translating file.") + "Module = " + Run().CurrentScreen + "\r\n" +
                std::to_string(error.number()) + ": " + error.description());
  }
}

bool RunTranslation(const TranslationRequest& request) {
  RunState& run = Run();
  if (run.CommandLineMode) {
    run.AppendToOutput = false;
  } else if (!OutputOpensForInput(request.outputPath)) {
    run.AppendToOutput = false;
  } else {
    UI().SetBusyPointer(false);
    AskAppendOverwriteCancel();
    UI().SetBusyPointer(true);
    // The busy pointer stays for the caller to reset.
    if (run.AppendCancelled) return false;
  }

  // The variant on the screen chooses the record, not the one of the settings.
  if (request.variant == "BC")
    TranslateBc(request);
  else
    TranslateUs(request);

  if (!run.CommandLineMode) ShowMessage("Translation completed.");
  run.TranslationDone = true;
  return true;
}

}  // namespace corvalin
