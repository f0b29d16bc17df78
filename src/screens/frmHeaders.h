// frmHeaders: the grid screen. Its controller holds the grid's state (the
// headings of columns 0 to 30 and Excluded, visibility, selection, current
// row), the check boxes, the variant and the measurement system, the two
// assign lists and the pick lists. A view draws this state and calls the
// events; everything here also runs with no window at all, as in an
// unattended run, which calls Form_Activate itself after the load.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "screens/Controls.h"
#include "screens/GridGeometry.h"
#include "screens/Screen.h"
#include "translation/RunTranslation.h"
#include "worktable/Recordset.h"

namespace corvalin {

class frmTemplateName;
class ProfileFileEdit;
class frmDamageSeverity;
class StateDigest;

// The data source that binds a row set to the grid.
struct DataControl {
  std::shared_ptr<corvalin::Recordset> Recordset;
};

// The colours the cell rule gives (0xBBGGRR).
inline constexpr int kCellColourNone = 0;
inline constexpr int kCellColourExcluded = 65535;  // pure yellow
inline constexpr int kCellColourInvalid = 255;     // pure red

// The two caption texts of cmdNext.
inline constexpr const char* NextCaptionToStandList = "Next >>";
inline constexpr const char* NextCaptionDone = "Done";

class frmHeaders : public Screen {
 public:
  frmHeaders();
  ~frmHeaders() override;
  const char* Name() const override { return "frmHeaders"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 24;

  void Form_Load() override;
  void Form_Activate() override;
  // Lets go of the grid's rows and the working database.
  void Form_Unload() override;

  // --- the grid, TDBGrid1 ---
  // Grid column 0 is LineNum, 1..30 are c1..c30, 31 is Excluded.
  static constexpr int kExcludedColumn = 31;
  std::array<std::string, 32> ColumnCaption{};
  std::array<bool, 32> ColumnVisible{};
  // The per-cell colour callback of each column (FetchStyle).
  std::array<bool, 32> ColumnFetchStyle{};
  // The drop-down button of each column's cells.
  std::array<bool, 32> ColumnButton{};
  // The selected range of columns; -1 for none.
  int SelStartCol = -1;
  int SelEndCol = -1;
  // The leftmost visible column and how many columns the view shows.
  int LeftCol = 0;
  int VisibleColumnCount = 8;
  // The selected rows, by bookmark of the bound row set.
  std::vector<Recordset::Bookmark> SelBookmarks;
  // The current row, counted from the first row shown, and the current
  // column of the grid.
  int Row = 0;
  int Col = 1;
  // How often the grid was asked to repaint.
  int RefreshCount = 0;
  // Repaints every cell, asking the colour rule again.
  void RefreshGrid();

  DataControl Adodc1;

  // --- controls ---
  Label lblInputFile;
  CheckBox chkShowExcludedRows;
  CheckBox chkShowAllColumns;
  CheckBox chkAutoValidate;
  ListControl cmbHeaderChoices;
  ListControl cmbUnitChoices;
  ListControl cmbVariant;
  OptionButton optMetric;
  OptionButton optImperial;
  Button cmdSaveTemplate;
  Button cmdEditTemplateCommands;
  Button cmdValidate;
  Button cmdFinish;
  Button cmdNext;
  Button cmdBack;
  Button cmdQuit;
  Button cmdHelp;
  ListControl lstSpecies;
  ListControl lstTreeHistory;
  ListControl lstCrownRatio;
  ListControl lstTreeValueClass;
  ListControl lstCutLeavePrescription;
  ListControl lstPlotHabitat;
  ListControl lstPlotTopographicalPosition;
  ListControl lstPlotSitePreparation;

  // --- variables of the screen ---
  // The grid column the two assign lists show; -1 when none is selected.
  int16_t CurrentColumn = -1;
  // The grid column whose drop-down button was last pressed.
  int16_t ButtonColumn = 0;
  // The screen's own copy of the template path, taken at load.
  std::string TemplateFile;

  // --- operations ---
  void InitLists();
  void LoadOptions();
  void LoadColumnHeadings();
  void ApplyColumnVisibility();
  void ApplyFetchStyle();
  void RebindGrid();
  void SetSpeciesList();
  void FillUnitChoices();
  bool IsUnitsOfMeasurementSystem(const std::string& units) const;
  bool HasPickList(int column) const;
  // The type and units on a column's heading; a heading without a CR is all
  // type.
  void HeadingParts(int column, std::string& type, std::string& units) const;
  void SetColumnButton(int column);
  void SyncAssignControls();
  void SelectGridColumn(int column);
  void SelectGridRow(Recordset::Bookmark bookmark);
  // The colour of a cell about to be painted: none, yellow for an excluded
  // row, red for a value its column's rule refuses. The rule of each column
  // is worked out once per repaint (PrepareColourRules), not per cell.
  int CellColour(int column, Recordset::Bookmark bookmark) const;
  void PrepareColourRules();
  // The lowest and highest LineNum of the selected rows.
  struct LineSpan {
    int16_t first = 0;
    int16_t last = 0;
  };
  LineSpan SelectedLineSpan() const;
  // The assign lists' selection as a view changes it; each runs its click.
  void SelectHeaderChoice(int index);
  void SelectUnitChoice(int index);
  void SelectVariant(int index);

  // --- the grid's events (the view calls them; pixels are the view's) ---
  // The view that answers the grid's questions; nullptr: no view.
  void SetGridGeometry(const GridGeometry* geometry);
  const GridGeometry& Geometry() const;
  // A click on a column's heading: the column is selected.
  void TDBGrid1_HeadClick(int column);
  // The selection changed: a range of columns is cut to its first.
  void TDBGrid1_SelChange();
  // The current cell moved to this row and column. The insert row, after
  // the last row, has no record: on it the row set stands past its end.
  void TDBGrid1_RowColChange(Recordset::Bookmark bookmark, int column);
  // The grid scrolled: the species and crown ratio lists close.
  void TDBGrid1_Scroll();
  // Before a cell is edited; true cancels the edit (LineNum is never edited).
  bool TDBGrid1_BeforeColEdit(int column);
  // A row added at the end through the grid's insert row: empty by the
  // Insert key, or holding the text typed into a cell (columns 1 to 30) of
  // the insert row; nothing typed adds nothing. Either way the after-insert
  // event numbers it after the last row.
  void AddGridRow();
  void AddGridRowTyped(int column, const std::string& text);
  void TDBGrid1_AfterInsert();
  // A cell typed by the person: the row is written at once.
  void SetCellText(Recordset::Bookmark bookmark, int column, const std::string& text);
  // The drop-down button of a cell of the current row.
  void TDBGrid1_ButtonClick(int column);
  // Mouse events of the grid: button 1 left, 2 right; shift 1 held; x and y
  // in the grid's pixels, the strip of row selectors at its left.
  void TDBGrid1_MouseDown(int button, int shift, int x, int y);
  void TDBGrid1_MouseMove(int button, int shift, int x, int y);
  void TDBGrid1_MouseUp(int button, int shift, int x, int y);

  // The pick lists, one for each coded column type.
  enum class PickList : uint8_t {
    Species,
    TreeHistory,
    CrownRatio,
    TreeValueClass,
    CutLeavePrescription,
    PlotHabitat,
    PlotTopographicalPosition,
    PlotSitePreparation,
  };
  static constexpr int kPickLists = 8;
  ListControl& PickListControl(PickList list);
  // The list a column's heading opens, or nullptr.
  ListControl* PickListOf(int column);
  // An entry of an open list was clicked (the view selects it first).
  void PickList_Click(PickList list);
  void PickList_LostFocus(PickList list);
  // Where the open pick list stands, in the window's pixels.
  int PickListLeft = 0;
  int PickListTop = 0;

  // The context menus of the grid: which one is up, and their entries.
  enum class GridMenu : uint8_t { None, Column, Row };
  GridMenu PopupMenu = GridMenu::None;
  Button mnuReplaceAll;
  Button mnuExcludeContaining;
  Button mnuExcludeStartingWith;
  Button mnuAddColumn;
  Button mnuExcludeRows;
  Button mnuIncludeRows;
  // The menu went away, with or without a choice.
  void PopupMenu_Closed();
  void mnuAddColumn_Click();
  void mnuReplaceAll_Click();
  void mnuExcludeContaining_Click();
  void mnuExcludeStartingWith_Click();
  // Shows a command dialog over the grid, modally; the grid comes to the
  // front again afterwards.
  void ShowCommandDialog(Screen& dialog);

  // --- events ---
  void cmdEditTemplateCommands_Click();
  void cmdHelp_Click();
  void cmdQuit_Click();
  // The window asked to close: true keeps it open.
  bool Form_QueryUnload(CloseReason reason);
  void cmbHeaderChoices_Click();
  void cmbUnitChoices_Click();
  void cmbVariant_Click();
  void optMetric_Click();
  void optImperial_Click();
  void chkAutoValidate_Click();
  void chkShowAllColumns_Click();
  void chkShowExcludedRows_Click();
  void cmdValidate_Click();
  void cmdFinish_Click();
  void cmdNext_Click();
  void cmdBack_Click();
  void cmdSaveTemplate_Click();
  void mnuExcludeRows_Click();
  void mnuIncludeRows_Click();

  // The save step of a template, also run by the command editor. The name
  // is asked in frmTemplateName, shown modally.
  void SaveTemplate();
  // The template's three sections as the screens now stand, in the order a
  // template is written: the column format, the view, the commands.
  void WriteTemplateSections(ProfileFileEdit& file);

  // Validation of the grid as it stands, before a translation: the cell it
  // stops at is selected, then its message is shown. True when all passed.
  bool Validate();
  // What the translation takes from this screen: the output file, the
  // variant shown and the identified columns.
  TranslationRequest TranslationOf() const;
  // Where the wizard goes after a translation: the stand list editor when
  // stand list files are edited too, else the first screen.
  Screen& ScreenAfterTranslation();
  // Opens the damage/severity dialog over the current row's cell of
  // ButtonColumn, preloaded from the cell's text, modally.
  void OpenDamageSeverityDialog(const std::string& cellText);

 protected:
  void DescribeControls(StateDigest& digest) const override;
  void TakeGridChanges(ScreenChanges& changes) override;
  void ForgetChanges() override;

 private:
  // What the grid's view last drew of each part.
  struct GridDrawn {
    uint64_t bindings = 0;
    uint64_t headings = 0;
    uint64_t selection = 0;
    uint64_t current = 0;
    uint64_t colours = 0;
  };
  uint64_t HeadingsDigest() const;
  uint64_t SelectionDigest() const;
  uint64_t CurrentDigest() const;
  uint64_t ColoursDigest() const;
  GridDrawn drawn_;
  // Counts the row sets bound to the grid.
  uint64_t bindings_ = 0;
  bool repaintAll_ = false;
  // The cell rule of each column, for the colours.
  enum class CellRule : uint8_t;
  std::array<CellRule, 31> colourRules_{};
  // The fields of the bound rows that the colours read.
  mutable const Recordset* colourFieldsOf_ = nullptr;
  mutable int colourExcludedField_ = -1;
  mutable std::array<int, 31> colourCellField_{};

  // The extend step of a row selection: the selected line numbers grow to
  // take the line of the row on view under the mouse.
  void ExtendRowSelection(int viewRow);
  void SelectRowOnView(int viewRow);
  // A new record at the end, with the typed cell when typedColumn is 1 or
  // more, then the after-insert event.
  void AppendGridRow(int typedColumn, const std::string& typed);
  bool InRowSelector(int x, int y) const;
  const GridGeometry* geometry_ = nullptr;
  bool inMouseMove_ = false;

  std::string ReadFormatInfo(const std::string& key, const std::string& def) const;
  void SetCheck(CheckBox& box, int value, void (frmHeaders::*click)());
  void SetMeasurementSystem(bool metric);
  void BindRecords(std::shared_ptr<Recordset> records);
};

}  // namespace corvalin
