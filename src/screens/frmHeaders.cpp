#include "screens/frmHeaders.h"

#include <algorithm>

#include "columns/CellRules.h"
#include "columns/DamageSeverity.h"
#include "columns/SpeciesCodes.h"
#include "columns/ValidateTable.h"
#include "columns/Vocabulary.h"
#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/StoredVariant.h"
#include "screens/frmColumns.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmSlf.h"
#include "screens/frmTemplate.h"
#include "screens/frmTemplateName.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/ProfileFile.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"
#include "translation/RunTranslation.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

namespace {

constexpr const char* kSettingsSection = "Corvalin";

std::string Field(int column) { return "c" + std::to_string(column); }

void FillList(ListControl& list, const std::vector<std::string>& items) {
  for (const std::string& item : items) list.AddItem(item);
}

// Type and units of a heading as the assign lists read it: a heading without
// a CR is all type.
void LooseSplit(const std::string& heading, std::string& type, std::string& units) {
  const auto cr = heading.find('\r');
  if (cr == std::string::npos) {
    type = heading;
    units.clear();
    return;
  }
  type = heading.substr(0, cr);
  units = cr + 2 <= heading.size() ? heading.substr(cr + 2) : std::string();
}

void SaveColumnSetting(const std::string& key, int column, const std::string& value) {
  SaveSetting(SettingsApplication, kSettingsSection, key + std::to_string(column), value);
}

[[noreturn]] void RaiseUnboundGrid() { Raise(err::ObjectNotSet); }

// The buttons that validate or translate need rows: without any the person is
// told so, and nothing else happens.
bool GridHasRows(const frmHeaders& headers, const char* noRowsText) {
  if (!headers.Adodc1.Recordset) RaiseUnboundGrid();
  if (headers.Adodc1.Recordset->RecordCount() == 0) {
    ShowMessage(noRowsText);
    return false;
  }
  return true;
}

}  // namespace

frmHeaders::frmHeaders() {
  // The grid before any activation: the plain field names, all shown.
  ColumnCaption[0] = "LineNum";
  for (int i = 1; i <= kHeadingColumns; ++i) ColumnCaption[static_cast<std::size_t>(i)] = Field(i);
  ColumnCaption[kExcludedColumn] = "Excluded";
  ColumnVisible.fill(true);
  // The design state of the options, the same as their defaults.
  chkShowExcludedRows.Caption = "Show excluded rows";
  chkShowExcludedRows.Value = 1;
  chkShowAllColumns.Caption = "Show unassigned columns";
  chkShowAllColumns.Value = 1;
  chkAutoValidate.Caption = "Auto-validate grid data";
  chkAutoValidate.Value = 1;
  optMetric.Caption = " Metric";
  optMetric.Value = true;
  optImperial.Caption = " Imperial";
  cmdSaveTemplate.Caption = "Save";
  cmdEditTemplateCommands.Caption = "Edit";
  cmdValidate.Caption = "Validate";
  cmdFinish.Caption = "Translate";
  cmdNext.Caption = NextCaptionToStandList;
  cmdBack.Caption = "<< Back";
  cmdQuit.Caption = "Quit";
  cmdHelp.Caption = "Help";
  mnuReplaceAll.Caption = "Find/Replace";
  mnuExcludeContaining.Caption = "Exclude Rows Containing...";
  mnuExcludeStartingWith.Caption = "Exclude Rows Starting With...";
  mnuAddColumn.Caption = "Add Column";
  mnuExcludeRows.Caption = "Exclude Selected Rows";
  mnuIncludeRows.Caption = "Include Selected Rows";
  for (ListControl* list : {&lstSpecies, &lstTreeHistory, &lstCrownRatio, &lstTreeValueClass, &lstCutLeavePrescription,
                            &lstPlotHabitat, &lstPlotTopographicalPosition, &lstPlotSitePreparation})
    list->Visible = false;
}

frmHeaders::~frmHeaders() = default;

void frmHeaders::RefreshGrid() {
  ++RefreshCount;
  repaintAll_ = true;
  PrepareColourRules();
}

// ---------------------------------------------------------------- load

void frmHeaders::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "Headers";
    Caption = std::string(ApplicationTitle) + " - Identify Columns, Create Template and Treelist";
    HelpContextID = kHelpContext;
    Run().TranslationDone = false;
    OpenDatabase();
    BindRecords(TftRecords());
    ApplyFetchStyle();
    InitLists();
    if (Run().UseTemplate) {
      TemplateFile = Run().TemplateFilePath;
      ReadTemplateCommands(TemplateFile);
    }
    frmTemplate& setup = App().Template();
    if (!setup.lblInputFile.Caption.empty()) lblInputFile.SetCaption(setup.lblInputFile.Caption);
    ApplyColumnVisibility();
    SetSpeciesList();
    Run().EditingCommand = false;
    cmdNext.Caption = setup.chkEditStandListFile.Checked() ? NextCaptionToStandList : NextCaptionDone;
  });
}

void frmHeaders::Form_Activate() {
  RunEvent([&] {
    Run().TranslationDone = false;
    if (!Run().ResumeGridAfterDialog) {
      OpenDatabase();
      BindRecords(TftRecords());
      ApplyFetchStyle();
      LoadOptions();
    }
    RebindGrid();
    LoadColumnHeadings();
    for (int i = 1; i <= kHeadingColumns; ++i) {
      // The colour callback goes on whatever the boxes say.
      ColumnFetchStyle[static_cast<std::size_t>(i)] = true;
      SetColumnButton(i);
    }
    ColumnVisible[kExcludedColumn] = false;
    Run().ResumeGridAfterDialog = false;
    PrepareColourRules();
  });
}

void frmHeaders::Form_Unload() {
  // The rows and the database go now: a reload that follows replaces the
  // working database's file, and a new grid binds rows of its own.
  if (TftRecords() && Adodc1.Recordset && TftRecords()->SharesRowsWith(*Adodc1.Recordset)) TftRecords().reset();
  Adodc1.Recordset.reset();
  ReleaseDatabase();
}

void frmHeaders::BindRecords(std::shared_ptr<Recordset> records) {
  Adodc1.Recordset = std::move(records);
  ++bindings_;
  colourFieldsOf_ = nullptr;
  // A new binding has no selection and starts at the top.
  SelStartCol = -1;
  SelEndCol = -1;
  SelBookmarks.clear();
  Row = 0;
  RefreshGrid();
}

void frmHeaders::InitLists() {
  FillList(cmbHeaderChoices, HeaderChoices());
  FillList(cmbVariant, VariantNames());
  FillList(lstTreeHistory, TreeHistoryItems());
  FillList(lstCrownRatio, CrownRatioItems());
  FillList(lstTreeValueClass, TreeValueClassItems());
  FillList(lstCutLeavePrescription, CutLeavePrescriptionItems());
  FillList(lstPlotHabitat, PlotHabitatItems());
  FillList(lstPlotTopographicalPosition, PlotTopographicalPositionItems());
  FillList(lstPlotSitePreparation, PlotSitePreparationItems());
  CurrentColumn = -1;
  cmbHeaderChoices.ListIndex = -1;
  cmbUnitChoices.ListIndex = -1;
  cmbHeaderChoices.Visible = false;
  cmbUnitChoices.Visible = false;
}

std::string frmHeaders::ReadFormatInfo(const std::string& key, const std::string& def) const {
  if (Run().UseTemplate) return ReadProfileString(TemplateFile, SectionFormatInfo, key, def);
  return GetSetting(SettingsApplication, kSettingsSection, key, def);
}

void frmHeaders::SetCheck(CheckBox& box, int value, void (frmHeaders::*click)()) {
  // A box set by the program runs its click when its value changes.
  if (box.Value == value) return;
  box.Value = value;
  (this->*click)();
}

void frmHeaders::SetMeasurementSystem(bool metric) {
  OptionButton& chosen = metric ? optMetric : optImperial;
  OptionButton& other = metric ? optImperial : optMetric;
  const bool changed = !chosen.Value;
  chosen.Value = true;
  other.Value = false;
  if (changed) FillUnitChoices();
}

void frmHeaders::LoadOptions() {
  Run().OrvanVariant = ReadFormatInfo("OrvanVariant", DefaultVariant);
  SelectVariant(FindStoredVariant(cmbVariant, Run().OrvanVariant));
  SetMeasurementSystem(ReadFormatInfo("MeasurementSystem", "METRIC") != "IMPERIAL");
  SetCheck(chkShowAllColumns, IsYesValue(ReadFormatInfo("ShowUnassignedColumns", "YES")),
           &frmHeaders::chkShowAllColumns_Click);
  SetCheck(chkAutoValidate, IsYesValue(ReadFormatInfo("AutoValidateGridData", "YES")),
           &frmHeaders::chkAutoValidate_Click);
  SetCheck(chkShowExcludedRows, IsYesValue(ReadFormatInfo("ShowExcludedRows", "YES")),
           &frmHeaders::chkShowExcludedRows_Click);
}

void frmHeaders::LoadColumnHeadings() {
  for (int i = 1; i <= kHeadingColumns; ++i) {
    const std::string type = ReadFormatInfo("ColumnHeader" + std::to_string(i), UnassignedColumn);
    const std::string units = ReadFormatInfo("ColumnUnits" + std::to_string(i), UnassignedUnits);
    ColumnCaption[static_cast<std::size_t>(i)] = MakeHeading(type, units);
  }
  // With an input file the load has counted the columns; without one the
  // template or the settings say how many there are.
  if (App().Template().lblInputFile.Caption == NoInputFileMarker)
    Run().ColumnCount = StoredInteger(ReadFormatInfo("NumberOfColumns", "0"));
  for (int i = 1; i <= Run().ColumnCount; ++i) ColumnVisible.at(static_cast<std::size_t>(i)) = true;
  for (int i = Run().ColumnCount + 1; i <= kHeadingColumns; ++i) ColumnVisible[static_cast<std::size_t>(i)] = false;
}

void frmHeaders::ApplyColumnVisibility() {
  for (int i = 1; i <= Run().ColumnCount; ++i) {
    const auto c = static_cast<std::size_t>(i);
    ColumnVisible.at(c) = chkShowAllColumns.Checked() || HeadingIsAssigned(ColumnCaption.at(c));
  }
}

void frmHeaders::ApplyFetchStyle() {
  // With neither option there is nothing to paint, and the grid draws faster.
  const bool on = chkAutoValidate.Checked() || chkShowExcludedRows.Checked();
  for (int i = 1; i <= kHeadingColumns; ++i) ColumnFetchStyle[static_cast<std::size_t>(i)] = on;
}

void frmHeaders::RebindGrid() {
  ApplyFetchStyle();
  DatabaseEngine().SQLString(chkShowExcludedRows.Checked() ? "SELECT * FROM tft"
                                                           : "Select * from tft where Excluded = 'N'");
  TftRecords() = DatabaseEngine().RetreiveRecords();
  BindRecords(TftRecords());
  ApplyFetchStyle();
}

void frmHeaders::SetSpeciesList() {
  if (const SpeciesList* row = SpeciesRowOf(cmbVariant.Text)) SpeciesCodes() = *row;
  lstSpecies.Clear();
  for (const std::string& code : SpeciesCodes()) lstSpecies.AddItem(code);
}

void frmHeaders::FillUnitChoices() {
  Run().TranslationDone = false;
  cmbUnitChoices.Clear();
  FillList(cmbUnitChoices, UnitChoicesFor(cmbHeaderChoices.Text, optMetric.Value));
}

bool frmHeaders::IsUnitsOfMeasurementSystem(const std::string& units) const {
  return corvalin::IsUnitsOfMeasurementSystem(units, optMetric.Value);
}

void frmHeaders::HeadingParts(int column, std::string& type, std::string& units) const {
  LooseSplit(ColumnCaption.at(static_cast<std::size_t>(column)), type, units);
}

bool frmHeaders::HasPickList(int column) const {
  std::string type, units;
  HeadingParts(column, type, units);
  return corvalin::HasPickList(type, units);
}

void frmHeaders::SetColumnButton(int column) {
  ColumnButton.at(static_cast<std::size_t>(column)) = HasPickList(column);
}

// ---------------------------------------------------------------- selection

void frmHeaders::SyncAssignControls() {
  if (SelStartCol < 1) {
    CurrentColumn = -1;
    cmbHeaderChoices.Select(-1);
    cmbUnitChoices.Select(-1);
    cmbHeaderChoices.Visible = false;
    cmbUnitChoices.Visible = false;
    return;
  }
  CurrentColumn = ToInt16(SelStartCol);
  std::string type, units;
  LooseSplit(ColumnCaption.at(static_cast<std::size_t>(CurrentColumn)), type, units);
  // Selecting the entry is a click on the list: the heading is written anew
  // with the same content and the units list rebuilt before it is searched.
  const auto typeAt = std::find(cmbHeaderChoices.Items.begin(), cmbHeaderChoices.Items.end(), type);
  SelectHeaderChoice(
      typeAt == cmbHeaderChoices.Items.end() ? -1 : static_cast<int>(typeAt - cmbHeaderChoices.Items.begin()));
  const auto unitsAt = std::find(cmbUnitChoices.Items.begin(), cmbUnitChoices.Items.end(), units);
  SelectUnitChoice(unitsAt == cmbUnitChoices.Items.end() ? -1
                                                         : static_cast<int>(unitsAt - cmbUnitChoices.Items.begin()));
  cmbHeaderChoices.Visible = true;
  cmbUnitChoices.Visible = true;
}

void frmHeaders::SelectHeaderChoice(int index) {
  cmbHeaderChoices.Select(index);
  cmbHeaderChoices_Click();
}

void frmHeaders::SelectUnitChoice(int index) {
  cmbUnitChoices.Select(index);
  cmbUnitChoices_Click();
}

void frmHeaders::SelectVariant(int index) {
  cmbVariant.Select(index);
  cmbVariant_Click();
}

void frmHeaders::SelectGridColumn(int column) {
  // This order keeps the start from passing the end.
  if (column < SelEndCol) {
    SelStartCol = column;
    SelEndCol = column;
  } else {
    SelEndCol = column;
    SelStartCol = column;
  }
  if (LeftCol > column || LeftCol + VisibleColumnCount < column) LeftCol = column;
  SyncAssignControls();
  RefreshGrid();
  UI().DoEvents();
}

void frmHeaders::SelectGridRow(Recordset::Bookmark bookmark) {
  if (!Adodc1.Recordset) RaiseUnboundGrid();
  SelBookmarks.clear();
  SelBookmarks.push_back(bookmark);
  // The grid makes the row its current record. A row already on view stays
  // where it is; any other is scrolled to the top, where it is row 0.
  Recordset& rows = *Adodc1.Recordset;
  const int lineField = rows.RequireField("LineNum");
  const std::string current(rows.IsEOF() || rows.IsBOF() ? "" : rows.CellAt(lineField).value_or(""));
  const std::string target(rows.CellAt(bookmark, lineField).value_or(""));
  rows.SetBookmark(bookmark);
  Row = 0;
  if (current != target) {
    for (int row = 1; row < Geometry().VisibleRows(); ++row) {
      const Recordset::Bookmark onView = Geometry().RowBookmark(row);
      if (onView >= 0 && rows.CellAt(onView, lineField).value_or("") == target) {
        Row = row;
        break;
      }
    }
  }
  RefreshGrid();
  UI().DoEvents();
}

// The rules a column's cells are coloured by, by the type on its heading.
enum class frmHeaders::CellRule : uint8_t {
  None,
  TreeHistory,
  Species,
  CrownRatio,
  DamageSeverity,
  TreeValue,
  Prescription,
  HabitatType,
  TopoPosition,
  SitePreparation,
  Decimal,
};

void frmHeaders::PrepareColourRules() {
  for (int column = 1; column <= kHeadingColumns; ++column) {
    const std::string type = HeadingType(ColumnCaption[static_cast<std::size_t>(column)]);
    CellRule rule = CellRule::None;
    if (type == "Tree History") {
      rule = CellRule::TreeHistory;
    } else if (type == "Species") {
      rule = CellRule::Species;
    } else if (type == "Crown Ratio") {
      rule = CellRule::CrownRatio;
    } else if (type == "Damage/Severity - 1" || type == "Damage/Severity - 2" || type == "Damage/Severity - 3") {
      rule = CellRule::DamageSeverity;
    } else if (type == "Tree Value Class") {
      rule = CellRule::TreeValue;
    } else if (type == "Cut/Leave Prescription") {
      rule = CellRule::Prescription;
    } else if (type == "Plot US Habitat Type") {
      rule = CellRule::HabitatType;
    } else if (type == "Plot Topographical Position") {
      // No column type is spelt so: the grid never marks a topographic cell,
      // while the validation does refuse a bad one.
      rule = CellRule::TopoPosition;
    } else if (type == "Plot Site Preparation") {
      rule = CellRule::SitePreparation;
    } else if (type == "DBH" || type == "Tree Count" || type == "Periodic DBH Inc." || type == "Total Height" ||
               type == "Height to Topkill" || type == "Periodic Height Inc.") {
      rule = CellRule::Decimal;
    }
    colourRules_[static_cast<std::size_t>(column)] = rule;
  }
}

int frmHeaders::CellColour(int column, Recordset::Bookmark bookmark) const {
  if (column < 1 || column > kHeadingColumns || !ColumnFetchStyle[static_cast<std::size_t>(column)])
    return kCellColourNone;
  if (!Adodc1.Recordset) return kCellColourNone;
  const Recordset& rows = *Adodc1.Recordset;
  if (colourFieldsOf_ != &rows) {
    // The fields are found once per bound row set, not per cell.
    colourExcludedField_ = rows.RequireField("Excluded");
    for (int c = 1; c <= kHeadingColumns; ++c)
      colourCellField_[static_cast<std::size_t>(c)] = rows.FieldIndex(Field(c));
    colourFieldsOf_ = &rows;
  }
  const auto excluded = rows.CellAt(bookmark, colourExcludedField_);
  if (excluded && *excluded == "Y") return kCellColourExcluded;
  if (!chkAutoValidate.Checked()) return kCellColourNone;
  const CellRule rule = colourRules_[static_cast<std::size_t>(column)];
  if (rule == CellRule::None) return kCellColourNone;
  const int field = colourCellField_[static_cast<std::size_t>(column)];
  const std::string_view text =
      rows.CellAt(bookmark, field >= 0 ? field : rows.RequireField(Field(column))).value_or(std::string_view());
  bool valid = true;
  switch (rule) {
    case CellRule::None:
      break;
    case CellRule::TreeHistory:
      valid = IsValidTreeHistory(text);
      break;
    case CellRule::Species: {
      std::string copy(text);
      valid = IsValidSpecies(copy, cmbVariant.Text);
      break;
    }
    case CellRule::CrownRatio:
      valid = IsValidCrownRatio(text);
      break;
    case CellRule::DamageSeverity:
      valid = IsValidDamageSeverityPair(text);
      break;
    case CellRule::TreeValue:
      valid = IsValidTreeValue(text);
      break;
    case CellRule::Prescription:
      valid = IsValidPrescription(text);
      break;
    case CellRule::HabitatType:
      valid = IsValidHabitatType(text);
      break;
    case CellRule::TopoPosition:
      valid = IsValidTopoPosition(text);
      break;
    case CellRule::SitePreparation:
      valid = IsValidSitePreparation(text);
      break;
    case CellRule::Decimal:
      valid = IsDecimalText(text);
      break;
  }
  return valid ? kCellColourNone : kCellColourInvalid;
}

frmHeaders::LineSpan frmHeaders::SelectedLineSpan() const {
  if (!Adodc1.Recordset) RaiseUnboundGrid();
  auto rows = Adodc1.Recordset->Clone();
  LineSpan span;
  bool any = false;
  for (Recordset::Bookmark bookmark : SelBookmarks) {
    rows->SetBookmark(bookmark);
    const int16_t line = StoredInteger(rows->Text("LineNum"));
    if (!any || line < span.first) span.first = line;
    if (!any || line > span.last) span.last = line;
    any = true;
  }
  if (!any) Raise(err::SubscriptOutOfRange);
  return span;
}

// ---------------------------------------------------------------- events

void frmHeaders::cmbHeaderChoices_Click() {
  RunEvent([&] {
    if (cmbHeaderChoices.ListIndex < 0) return;
    Run().TranslationDone = false;
    const auto column = static_cast<std::size_t>(CurrentColumn);
    std::string oldType, oldUnits;
    LooseSplit(ColumnCaption.at(column), oldType, oldUnits);
    const std::string type = cmbHeaderChoices.Text;
    // The settings keep the last assignment also while a template is in use.
    SaveColumnSetting("ColumnHeader", CurrentColumn, type);
    FillUnitChoices();
    std::string units;
    if (cmbUnitChoices.ListCount() == 0) {
      if (StartsWith(type, "?")) {
        units = UnassignedUnits;
      } else {
        units.clear();
        SaveColumnSetting("ColumnUnits", CurrentColumn, "");
      }
    } else {
      // A type with units keeps the old units until the user picks anew.
      units = oldUnits.empty() ? std::string(UnassignedUnits) : oldUnits;
    }
    ColumnCaption.at(column) = MakeHeading(type, units);
    SetColumnButton(CurrentColumn);
    PrepareColourRules();
  });
}

void frmHeaders::cmbUnitChoices_Click() {
  RunEvent([&] {
    if (cmbUnitChoices.ListIndex < 0) return;
    Run().TranslationDone = false;
    const std::string units = cmbUnitChoices.Text;
    // The crown ratio rule of the grid depends on the units at once.
    if (cmbHeaderChoices.Text == "Crown Ratio") Run().UnitsCrownRatio = units;
    const auto column = static_cast<std::size_t>(CurrentColumn);
    ColumnCaption.at(column) = MakeHeading(HeadingType(ColumnCaption.at(column)), units);
    SaveColumnSetting("ColumnUnits", CurrentColumn, units);
  });
}

void frmHeaders::cmbVariant_Click() {
  RunEvent([&] {
    SetSpeciesList();
    RefreshGrid();
    Run().TranslationDone = false;
  });
}

void frmHeaders::optMetric_Click() {
  RunEvent([&] {
    optMetric.Value = true;
    optImperial.Value = false;
    FillUnitChoices();
  });
}

void frmHeaders::optImperial_Click() {
  RunEvent([&] {
    optImperial.Value = true;
    optMetric.Value = false;
    FillUnitChoices();
  });
}

void frmHeaders::chkAutoValidate_Click() {
  RunEvent([&] {
    ApplyFetchStyle();
    RefreshGrid();
  });
}

void frmHeaders::chkShowAllColumns_Click() {
  RunEvent([&] { ApplyColumnVisibility(); });
}

void frmHeaders::chkShowExcludedRows_Click() {
  RunEvent([&] {
    ApplyFetchStyle();
    if (chkShowExcludedRows.Checked()) {
      DatabaseEngine().SQLString("SELECT * FROM tft");
      TftRecords() = DatabaseEngine().RetreiveRecords();
      BindRecords(TftRecords());
      ApplyFetchStyle();
    } else {
      // The grid is to stop showing excluded rows; with client-side row sets
      // that takes the new set bound to the grid.
      DatabaseEngine().SQLString("Select * from tft where Excluded = 'N'");
      TftRecords() = DatabaseEngine().RetreiveRecords();
      BindRecords(TftRecords());
    }
  });
}

void frmHeaders::cmdValidate_Click() {
  RunEvent([&] {
    if (!GridHasRows(*this, "No data to validate.")) return;
    UI().SetBusyPointer(true);
    const bool valid = Validate();
    UI().SetBusyPointer(false);
    if (valid) ShowMessage("Data validated - ready for translation.");
  });
}

void frmHeaders::cmdFinish_Click() {
  RunEvent([&] {
    if (!GridHasRows(*this, "No data to translate.")) return;
    UI().SetBusyPointer(true);
    if (Validate()) RunTranslation(TranslationOf());
    UI().SetBusyPointer(false);
  });
}

void frmHeaders::cmdNext_Click() {
  RunEvent([&] {
    if (!GridHasRows(*this, "No data to translate.")) return;
    UI().SetBusyPointer(true);
    // Once translated with nothing touched since, Next leaves at once.
    const bool ready = Run().TranslationDone || (Validate() && RunTranslation(TranslationOf()));
    if (ready) HandOverTo(ScreenAfterTranslation());
    UI().SetBusyPointer(false);
  });
}

Screen& frmHeaders::ScreenAfterTranslation() {
  if (App().Template().chkEditStandListFile.Checked()) return App().Slf();
  return App().Template();
}

void frmHeaders::cmdBack_Click() {
  RunEvent([&] {
    UI().SetBusyPointer(true);
    Screen* target = nullptr;
    if (App().Template().lblInputFile.Caption == NoInputFileMarker) {
      target = &App().Template();
    } else {
      target = &App().Columns();
    }
    HandOverTo(*target);
    UI().SetBusyPointer(false);
  });
}

void frmHeaders::mnuExcludeRows_Click() {
  RunEvent([&] {
    const auto [first, last] = SelectedLineSpan();
    TemplateCommandState& state = Commands();
    if (state.CommandCount >= kMaxTemplateCommands) {
      ShowMessage(CommandLimitMessage());
      return;
    }
    state.CommandCount = Inc16(state.CommandCount);
    int16_t k = state.CommandCount;
    TemplateCommand& command = TemplateCommandAt(k);
    command = TemplateCommand{};
    command.CommandType = "EXCLUDE_RANGE";
    command.StartLine = first;
    command.EndLine = last;
    command.ColumnNumber = CurrentColumn;
    ApplyExcludeRange(k, Adodc1.Recordset);
    RefreshGrid();
  });
}

void frmHeaders::mnuIncludeRows_Click() {
  RunEvent([&] {
    const auto [first, last] = SelectedLineSpan();
    TemplateCommandState& state = Commands();
    // Commands added while splitting are not visited.
    const int16_t count = state.CommandCount;
    for (int16_t k = 1; k <= count; k = Inc16(k)) {
      TemplateCommand& command = TemplateCommandAt(k);
      if (command.CommandType != "EXCLUDE_RANGE") continue;
      if (!(command.StartLine <= last && command.EndLine >= first)) continue;
      if (command.EndLine <= last) command.EndLine = ToInt16(static_cast<long long>(first) - 1);
      if (command.StartLine >= first) command.StartLine = ToInt16(static_cast<long long>(last) + 1);
      if (command.StartLine < command.EndLine && command.StartLine <= first && command.EndLine >= last) {
        // The selection lies inside the range: split it in two.
        if (state.CommandCount >= kMaxTemplateCommands) {
          ShowMessage(CommandLimitMessage());
          continue;
        }
        state.CommandCount = Inc16(state.CommandCount);
        TemplateCommand& added = TemplateCommandAt(state.CommandCount);
        added = TemplateCommand{};
        added.CommandType = "EXCLUDE_RANGE";
        added.StartLine = ToInt16(static_cast<long long>(last) + 1);
        added.EndLine = command.EndLine;
        added.ColumnNumber = command.ColumnNumber;
        command.EndLine = ToInt16(static_cast<long long>(first) - 1);
      }
    }
    // Every line of the span comes back, also unselected ones in between.
    if (!Adodc1.Recordset) RaiseUnboundGrid();
    for (long line = first; line <= last; ++line) {
      auto rows = Adodc1.Recordset->Clone();
      rows->MoveFirst();
      rows->Find("LineNum = " + std::to_string(line));
      if (!rows->IsEOF()) {
        rows->SetValue("Excluded", "N");
        rows->Update();
      }
    }
    RefreshGrid();
  });
}

// ---------------------------------------------------------------- templates

void frmHeaders::WriteTemplateSections(ProfileFileEdit& file) {
  frmColumns& format = App().Columns();
  ColumnDelimiterKeys keys;
  keys.FixedWidth = format.optFixedWidth.Value;
  keys.Comma = format.chkComma.Checked();
  keys.Tab = format.chkTab.Checked();
  keys.Semicolon = format.chkSemicolon.Checked();
  keys.Space = format.chkSpace.Checked();
  keys.Other = format.chkOther.Checked();
  keys.OtherChars = format.txtOtherCharacter.Text;
  keys.TreatConsecutiveAsOne = format.chkConsecutiveAsOne.Checked();
  keys.TextQualifier = format.cmbTextQualifiers.Text;
  WriteColumnDelimiters(file, keys, Markers());

  FormatInfoKeys view;
  view.MeasurementSystem = optMetric.Value ? "METRIC" : "IMPERIAL";
  view.ShowUnassignedColumns = YesNoText(chkShowAllColumns.Value);
  view.ShowExcludedRows = YesNoText(chkShowExcludedRows.Value);
  view.AutoValidateGridData = YesNoText(chkAutoValidate.Value);
  view.OrvanVariant = cmbVariant.Text;
  WriteFormatInfo(file, view, Run().ColumnCount, ColumnCaption);
  WriteTemplateCommands(file);
}

void frmHeaders::SaveTemplate() {
  frmTemplate& setup = App().Template();
  frmTemplateName& dialog = App().TemplateName();
  dialog.cmbTemplateName.Text = Run().UseTemplate ? setup.cmbTemplate.Text : std::string();
  App().ShowModal(dialog);
  // The name is read before the dialog goes.
  const std::string name = dialog.cmbTemplateName.Text;
  App().UnloadTemplateName();
  if (!Run().TemplateSaved) return;
  // The three sections are gathered and the template replaced once, so that
  // a process killed while saving leaves the old template or the new one.
  // What an error leaves unwritten is missing, as with a key-by-key save.
  ProfileFileEdit file(TemplatePathOf(name));
  try {
    WriteTemplateSections(file);
  } catch (...) {
    (void)file.Save();
    throw;
  }
  (void)file.Save();

  // The new name is selected on the first screen without unloading this one.
  Run().RefreshingTemplateList = true;
  setup.RefreshTemplateList(name);
  Run().RefreshingTemplateList = false;
}

void frmHeaders::cmdSaveTemplate_Click() {
  RunEvent([&] { SaveTemplate(); });
}

void frmHeaders::OpenDamageSeverityDialog(const std::string& cellText) {
  frmDamageSeverity& dialog = App().DamageSeverity();
  dialog.Preload(cellText);
  App().ShowModal(dialog);
}

// ---------------------------------------------------------------- validation

bool frmHeaders::Validate() {
  const ValidationResult result = ValidateTable({ColumnCaption, cmbVariant.Text, optMetric.Value, Adodc1.Recordset});
  // The cell first, so that the person sees what the message is about.
  if (result.column >= 0) SelectGridColumn(result.column);
  if (result.row >= 0) SelectGridRow(result.row);
  if (!result.fault.empty()) ShowMessage(result.fault);
  UI().DoEvents();
  return result.valid;
}

TranslationRequest frmHeaders::TranslationOf() const {
  TranslationRequest request;
  request.outputPath = App().Template().lblOutputFile.Caption;
  request.variant = cmbVariant.Text;
  request.identified = IdentifiedColumns(ColumnCaption, Run().ColumnCount);
  return request;
}

// ---------------------------------------------------------------- the view

void frmHeaders::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lblInputFile << chkShowExcludedRows << chkShowAllColumns << chkAutoValidate << cmbHeaderChoices
         << cmbUnitChoices << cmbVariant << optMetric << optImperial << cmdSaveTemplate << cmdEditTemplateCommands
         << cmdValidate << cmdFinish << cmdNext << cmdBack << cmdQuit << cmdHelp << lstSpecies << lstTreeHistory
         << lstCrownRatio << lstTreeValueClass << lstCutLeavePrescription << lstPlotHabitat
         << lstPlotTopographicalPosition << lstPlotSitePreparation << CurrentColumn << ButtonColumn;
  digest << PickListLeft << PickListTop << static_cast<int>(PopupMenu) << mnuReplaceAll << mnuExcludeContaining
         << mnuExcludeStartingWith << mnuAddColumn << mnuExcludeRows << mnuIncludeRows;
}

uint64_t frmHeaders::HeadingsDigest() const {
  StateDigest digest;
  for (std::size_t i = 0; i < ColumnCaption.size(); ++i)
    digest << ColumnCaption[i] << ColumnVisible[i] << ColumnButton[i];
  return digest.Value();
}

uint64_t frmHeaders::SelectionDigest() const {
  StateDigest digest;
  digest << SelStartCol << SelEndCol << static_cast<long long>(SelBookmarks.size());
  for (const Recordset::Bookmark bookmark : SelBookmarks) digest << bookmark;
  return digest.Value();
}

uint64_t frmHeaders::CurrentDigest() const {
  StateDigest digest;
  digest << Row << Col << LeftCol << VisibleColumnCount;
  const Recordset* rows = Adodc1.Recordset.get();
  digest << (rows != nullptr && !rows->IsEOF() && !rows->IsBOF() ? rows->GetBookmark() : -1L);
  return digest.Value();
}

uint64_t frmHeaders::ColoursDigest() const {
  // What the colour of a cell depends on besides its row: the rules of the
  // headings, the options, the variant and the crown ratio's units.
  StateDigest digest;
  for (bool on : ColumnFetchStyle) digest << on;
  digest << chkAutoValidate.Value << cmbVariant.Text << Run().UnitsCrownRatio;
  for (std::size_t i = 1; i < colourRules_.size(); ++i) digest << static_cast<int>(colourRules_[i]);
  return digest.Value();
}

void frmHeaders::ForgetChanges() {
  Screen::ForgetChanges();
  PrepareColourRules();
  drawn_.bindings = bindings_;
  drawn_.headings = HeadingsDigest();
  drawn_.selection = SelectionDigest();
  drawn_.current = CurrentDigest();
  drawn_.colours = ColoursDigest();
  repaintAll_ = false;
  if (Adodc1.Recordset) Adodc1.Recordset->TakeRowChanges();
}

void frmHeaders::TakeGridChanges(ScreenChanges& changes) {
  PrepareColourRules();
  const uint64_t headings = HeadingsDigest();
  const uint64_t selection = SelectionDigest();
  const uint64_t current = CurrentDigest();
  const uint64_t colours = ColoursDigest();
  changes.headings = headings != drawn_.headings;
  changes.selection = selection != drawn_.selection;
  changes.current = current != drawn_.current;
  const bool recoloured = repaintAll_ || colours != drawn_.colours;
  if (bindings_ != drawn_.bindings) {
    // A new row set: the view starts over, and what the old rows recorded
    // does not matter.
    changes.rowsReset = true;
    if (Adodc1.Recordset) Adodc1.Recordset->TakeRowChanges();
  } else if (Adodc1.Recordset) {
    const Recordset::RowChanges rows = Adodc1.Recordset->TakeRowChanges();
    changes.cells.Include(rows.firstChanged, rows.lastChanged);
    changes.insertedRows.Include(rows.firstAdded, rows.lastAdded);
    if (recoloured && Adodc1.Recordset->RecordCount() > 0) {
      const long drawnRows = rows.firstAdded >= 0 ? rows.firstAdded : Adodc1.Recordset->RecordCount();
      changes.cells.Include(0, drawnRows - 1);
    }
  }
  drawn_ = {bindings_, headings, selection, current, colours};
  repaintAll_ = false;
}

}  // namespace corvalin
