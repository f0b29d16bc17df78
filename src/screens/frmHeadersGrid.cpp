// The grid of frmHeaders: column and row selection by mouse, the current
// cell, editing and new rows, the cell buttons with their pick lists, and the
// context menus. The view tells the events what the person did; what the
// grid looks like on screen it answers through GridGeometry.
#include <algorithm>

#include "columns/Vocabulary.h"
#include "screens/Application.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmExcludeContaining.h"
#include "screens/frmExcludeStartingWith.h"
#include "screens/frmHeaders.h"
#include "screens/frmReplaceAll.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"
#include "templates/TemplateFile.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

namespace {

std::string Field(int column) { return "c" + std::to_string(column); }

// The window's lower edge is kept clear by this much when a list opens
// downward; below that it opens upward from the row.
constexpr int kListBottomMargin = 20;

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kShiftHeld = 1;

// The characters of a picked entry that go into the cell; 0 is the whole.
int PickedCharacters(frmHeaders::PickList list) {
  switch (list) {
    case frmHeaders::PickList::Species:
      return 0;
    case frmHeaders::PickList::PlotHabitat:
      return 3;
    default:
      return 1;
  }
}

}  // namespace

// ---------------------------------------------------------------- geometry

void frmHeaders::SetGridGeometry(const GridGeometry* geometry) { geometry_ = geometry; }

const GridGeometry& frmHeaders::Geometry() const {
  static const NoGridGeometry none;
  return geometry_ != nullptr ? *geometry_ : none;
}

bool frmHeaders::InRowSelector(int x, int y) const {
  return x < Geometry().RowSelectorWidth() && Geometry().RowContaining(y) >= 0;
}

// ---------------------------------------------------------------- columns

void frmHeaders::TDBGrid1_HeadClick(int column) {
  RunEvent([&] {
    // The grid selects the column the person clicked, and no rows.
    SelBookmarks.clear();
    SelStartCol = column;
    SelEndCol = column;
    Col = column;
    SyncAssignControls();
  });
}

void frmHeaders::TDBGrid1_SelChange() {
  RunEvent([&] {
    if (SelStartCol == SelEndCol) return;
    SelEndCol = SelStartCol;
    SyncAssignControls();
  });
}

void frmHeaders::TDBGrid1_RowColChange(Recordset::Bookmark bookmark, int column) {
  RunEvent([&] {
    if (Adodc1.Recordset && bookmark >= 0 && bookmark < Adodc1.Recordset->RecordCount()) {
      Adodc1.Recordset->SetBookmark(bookmark);
    } else if (Adodc1.Recordset && bookmark == Adodc1.Recordset->RecordCount()) {
      // The insert row: no record is current until one is typed there.
      Recordset& rows = *Adodc1.Recordset;
      rows.MoveLast();
      if (!rows.IsEOF()) rows.MoveNext();
    }
    Col = column;
    Row = 0;
    for (int row = 0; row < Geometry().VisibleRows(); ++row) {
      if (Geometry().RowBookmark(row) == bookmark) {
        Row = row;
        break;
      }
    }
    CurrentColumn = -1;
    cmbHeaderChoices.Select(-1);
    cmbUnitChoices.Select(-1);
    cmbHeaderChoices.Visible = false;
    cmbUnitChoices.Visible = false;
  });
}

void frmHeaders::TDBGrid1_Scroll() {
  RunEvent([&] {
    // Only these two close; the six others are handed a selection that
    // changes nothing, and stay until they lose the focus.
    lstSpecies.Visible = false;
    lstCrownRatio.Visible = false;
    if (Geometry().LeftColumn() >= 0) LeftCol = Geometry().LeftColumn();
    if (Geometry().VisibleColumns() >= 0) VisibleColumnCount = Geometry().VisibleColumns();
  });
}

// ---------------------------------------------------------------- editing

bool frmHeaders::TDBGrid1_BeforeColEdit(int column) {
  bool cancel = false;
  RunEvent([&] {
    Run().TranslationDone = false;
    if (column != 0) return;
    cancel = true;
    if (!ColumnVisible[1]) Col = 1;
  });
  return cancel;
}

void frmHeaders::SetCellText(Recordset::Bookmark bookmark, int column, const std::string& text) {
  RunEvent([&] {
    if (!Adodc1.Recordset) Raise(err::ObjectNotSet);
    if (column < 1 || column > kHeadingColumns) return;
    Run().TranslationDone = false;
    Recordset& rows = *Adodc1.Recordset;
    rows.SetBookmark(bookmark);
    rows.SetValue(Field(column), text);
    rows.Update();
  });
}

void frmHeaders::AddGridRow() {
  RunEvent([&] { AppendGridRow(0, {}); });
}

void frmHeaders::AddGridRowTyped(int column, const std::string& text) {
  RunEvent([&] {
    if (column < 1 || column > kHeadingColumns || text.empty()) return;
    AppendGridRow(column, text);
  });
}

void frmHeaders::AppendGridRow(int typedColumn, const std::string& typed) {
  if (!Adodc1.Recordset) Raise(err::ObjectNotSet);
  Recordset& rows = *Adodc1.Recordset;
  rows.AddNew();
  // The typed cell is in the record when the after-insert event numbers it,
  // so that the event leaves it as typed and empties only the others.
  if (typedColumn >= 1) rows.SetValue(Field(typedColumn), typed);
  TDBGrid1_AfterInsert();
}

void frmHeaders::TDBGrid1_AfterInsert() {
  RunEvent([&] {
    if (!Adodc1.Recordset) Raise(err::ObjectNotSet);
    Run().TranslationDone = false;
    auto rows = Adodc1.Recordset->Clone();
    rows->MoveLast();
    rows->MovePrevious();
    // Numbered after the row before it in this view: with excluded rows
    // hidden that need not be the highest number, and nothing stops a repeat.
    std::string line = "1";
    if (!rows->IsBOF()) line = std::to_string(static_cast<long>(StoredInteger(rows->TextOrEmpty("LineNum"))) + 1);
    rows->MoveLast();
    rows->SetValue("LineNum", line);
    rows->SetValue("Excluded", "N");
    for (int i = 1; i <= kHeadingColumns; ++i)
      if (!rows->Value(Field(i))) rows->SetValue(Field(i), "");
    rows->Update();
    UI().DoEvents();
    RefreshGrid();
  });
}

// ---------------------------------------------------------------- pick lists

ListControl& frmHeaders::PickListControl(PickList list) {
  switch (list) {
    case PickList::Species:
      return lstSpecies;
    case PickList::TreeHistory:
      return lstTreeHistory;
    case PickList::CrownRatio:
      return lstCrownRatio;
    case PickList::TreeValueClass:
      return lstTreeValueClass;
    case PickList::CutLeavePrescription:
      return lstCutLeavePrescription;
    case PickList::PlotHabitat:
      return lstPlotHabitat;
    case PickList::PlotTopographicalPosition:
      return lstPlotTopographicalPosition;
    case PickList::PlotSitePreparation:
      return lstPlotSitePreparation;
  }
  return lstSpecies;
}

ListControl* frmHeaders::PickListOf(int column) {
  std::string type, units;
  HeadingParts(column, type, units);
  if (type == "Tree History") return &lstTreeHistory;
  if (type == "Species") return &lstSpecies;
  if (type == "Crown Ratio" && units == "codes") return &lstCrownRatio;
  if (type == "Tree Value Class") return &lstTreeValueClass;
  if (type == "Cut/Leave Prescription") return &lstCutLeavePrescription;
  if (type == "Plot US Habitat Type") return &lstPlotHabitat;
  if (type == "Plot Topographic Position") return &lstPlotTopographicalPosition;
  if (type == "Plot Site Preparation") return &lstPlotSitePreparation;
  return nullptr;
}

void frmHeaders::TDBGrid1_ButtonClick(int column) {
  RunEvent([&] {
    if (!Adodc1.Recordset) Raise(err::ObjectNotSet);
    ButtonColumn = ToInt16(column);
    const std::string cell(Adodc1.Recordset->CellAt(Adodc1.Recordset->RequireField(Field(column))).value_or(""));
    if (StartsWith(HeadingType(ColumnCaption.at(static_cast<std::size_t>(column))), "Damage/Severity")) {
      OpenDamageSeverityDialog(cell);
      return;
    }
    ListControl* list = PickListOf(column);
    if (list == nullptr) {
      ShowMessage("Error:  Invalid column button");
      // The event goes on with no list to open.
      Raise(err::ObjectNotSet);
    }
    // Entry 0 is the default and is not searched.
    list->Select(0);
    if (!cell.empty()) {
      for (int i = 1; i < list->ListCount(); ++i) {
        if (list->Items[static_cast<std::size_t>(i)].compare(0, cell.size(), cell) != 0) continue;
        const bool lastOfPrescription =
            list == &lstCutLeavePrescription && cell.size() == 1 && i == list->ListCount() - 1;
        if (!lastOfPrescription) list->Select(i);
        break;
      }
    }
    const GridGeometry& grid = Geometry();
    PickListLeft = grid.GridLeft() + grid.ColumnLeft(column) + grid.ColumnWidth(column);
    PickListTop = grid.GridTop() + grid.RowTop(Row);
    if (PickListLeft + grid.ListWidth() > grid.FormWidth())
      PickListLeft = grid.GridLeft() + grid.ColumnLeft(column) - grid.ListWidth();
    const int listHeight = grid.ListHeight(list->ListCount());
    if (PickListTop + listHeight > grid.FormHeight() - kListBottomMargin)
      PickListTop = PickListTop + grid.RowHeight() - listHeight;
    list->Visible = true;
  });
}

void frmHeaders::PickList_Click(PickList which) {
  RunEvent([&] {
    ListControl& list = PickListControl(which);
    if (!list.Visible || list.ListIndex < 0) return;
    if (!Adodc1.Recordset) Raise(err::ObjectNotSet);
    const std::string& entry = list.Items[static_cast<std::size_t>(list.ListIndex)];
    const int characters = PickedCharacters(which);
    Recordset& rows = *Adodc1.Recordset;
    rows.SetValue(Field(ButtonColumn), characters == 0 ? entry : entry.substr(0, static_cast<std::size_t>(characters)));
    rows.Update();
    Run().TranslationDone = false;
    list.Visible = false;
  });
}

void frmHeaders::PickList_LostFocus(PickList which) {
  RunEvent([&] { PickListControl(which).Visible = false; });
}

// ---------------------------------------------------------------- rows

void frmHeaders::SelectRowOnView(int viewRow) {
  SelBookmarks.clear();
  SelBookmarks.push_back(Geometry().RowBookmark(viewRow));
  SelStartCol = -1;
  SelEndCol = -1;
}

void frmHeaders::ExtendRowSelection(int viewRow) {
  if (!Adodc1.Recordset) Raise(err::ObjectNotSet);
  auto rows = Adodc1.Recordset->Clone();
  auto lineOf = [&](Recordset::Bookmark bookmark) {
    rows->SetBookmark(bookmark);
    return static_cast<long>(StoredInteger(rows->TextOrEmpty("LineNum")));
  };
  long low = lineOf(SelBookmarks.front());
  long high = low;
  while (!SelBookmarks.empty()) {
    const long line = lineOf(SelBookmarks.front());
    if (line < low) {
      low = line;
    } else if (line > high) {
      high = line;
    }
    SelBookmarks.erase(SelBookmarks.begin());
  }
  // A click inside the range moves its low end up to the click.
  const long clicked = lineOf(Geometry().RowBookmark(viewRow));
  if (clicked > high) {
    high = clicked;
  } else {
    low = clicked;
  }
  const int lineField = rows->RequireField("LineNum");
  for (rows->MoveFirst(); !rows->IsEOF(); rows->MoveNext()) {
    const long line = StoredInteger(std::string(rows->CellAt(lineField).value_or("")));
    if (line >= low && line <= high) SelBookmarks.push_back(rows->GetBookmark());
  }
}

void frmHeaders::TDBGrid1_MouseDown(int button, int shift, int x, int y) {
  RunEvent([&] {
    if (button != kLeftButton) return;
    const bool shiftHeld = (shift & kShiftHeld) != 0;
    if ((SelBookmarks.empty() || !shiftHeld) && InRowSelector(x, y)) {
      SelectRowOnView(Geometry().RowContaining(y));
      RefreshGrid();
      UI().DoEvents();
    }
    if (shiftHeld && !SelBookmarks.empty() && InRowSelector(x, y)) {
      ExtendRowSelection(Geometry().RowContaining(y));
      RefreshGrid();
      UI().DoEvents();
    }
  });
}

void frmHeaders::TDBGrid1_MouseMove(int button, int, int x, int y) {
  // Yielding below can bring the next move in: it waits for this one.
  if (inMouseMove_) return;
  inMouseMove_ = true;
  try {
    RunEvent([&] {
      if (button != kLeftButton || SelBookmarks.empty() || !InRowSelector(x, y)) return;
      ExtendRowSelection(Geometry().RowContaining(y));
      RefreshGrid();
      UI().DoEvents();
    });
  } catch (...) {
    inMouseMove_ = false;
    throw;
  }
  inMouseMove_ = false;
}

// ---------------------------------------------------------------- menus

void frmHeaders::TDBGrid1_MouseUp(int button, int, int, int) {
  RunEvent([&] {
    if (button != kRightButton) return;
    if (SelBookmarks.empty()) {
      const bool column = CurrentColumn >= 1;
      mnuReplaceAll.Enabled = column;
      mnuExcludeContaining.Enabled = column;
      mnuExcludeStartingWith.Enabled = column;
      mnuAddColumn.Enabled = Run().ColumnCount < kHeadingColumns;
      PopupMenu = GridMenu::Column;
    } else {
      PopupMenu = GridMenu::Row;
    }
  });
}

void frmHeaders::PopupMenu_Closed() {
  RunEvent([&] { PopupMenu = GridMenu::None; });
}

void frmHeaders::mnuAddColumn_Click() {
  RunEvent([&] {
    if (Run().ColumnCount >= kHeadingColumns) return;
    Run().ColumnCount = Inc16(Run().ColumnCount);
    ColumnVisible.at(static_cast<std::size_t>(Run().ColumnCount)) = true;
    SelectGridColumn(Run().ColumnCount);
  });
}

void frmHeaders::ShowCommandDialog(Screen& dialog) {
  App().ShowModal(dialog);
  // The grid is in front again and shows the table as the command left it:
  // rows now excluded go when excluded rows are hidden. Only the rows are
  // read again: the headings, the variant and the units stay as the person
  // left them (read again from a template the editor has just turned on,
  // they would lose every column named since it was saved). After
  // Find/Replace the grid keeps its rows and its place, the row found in
  // view.
  if (!Run().ResumeGridAfterDialog) {
    OpenDatabase();
    RebindGrid();
  }
  Run().ResumeGridAfterDialog = false;
}

void frmHeaders::mnuReplaceAll_Click() {
  RunEvent([&] { ShowCommandDialog(App().ReplaceAll()); });
}

void frmHeaders::mnuExcludeContaining_Click() {
  RunEvent([&] { ShowCommandDialog(App().ExcludeContaining()); });
}

void frmHeaders::mnuExcludeStartingWith_Click() {
  RunEvent([&] { ShowCommandDialog(App().ExcludeStartingWith()); });
}

// ---------------------------------------------------------------- buttons

void frmHeaders::cmdEditTemplateCommands_Click() {
  RunEvent([&] {
    const Answer answer = UI().Message({"Would you like to save the current view?", Buttons::YesNo, Icon::None, "", 1});
    if (answer == Answer::Yes) SaveTemplate();
    Run().UseTemplate = true;
    ShowCommandDialog(App().EditTemplateCommands());
  });
}

void frmHeaders::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void frmHeaders::cmdQuit_Click() {
  RunEvent([] { ConfirmQuit(); });
}

bool frmHeaders::Form_QueryUnload(CloseReason reason) {
  bool cancelled = reason == CloseReason::ControlMenu;
  RunEvent([&] { cancelled = CloseAsQuit(reason); });
  return cancelled;
}

}  // namespace corvalin
