// The grid of frmHeaders driven as its view drives it: heading clicks, the
// current cell, scrolling, editing, new rows, the cell buttons with their
// pick lists and where they open, row selection by mouse in the strip of row
// selectors, and the context menus with their enabled entries.
#include "FakeGrid.h"
#include "GridFixture.h"
#include "columns/Vocabulary.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmTemplateName.h"
#include "shell/ProfileFile.h"
#include "templates/TemplateFile.h"

namespace corvalin {
namespace {

class GridEventsTest : public testing::GridFixture {
 protected:
  testing::FakeGrid grid;
  void UseHeadings(const std::string& keys) {
    App().Template();
    testing::WriteFile(TemplatePathOf("grid"), "[FORMAT_INFO]\r\nOrvanVariant=BC\r\n" + keys);
    Run().UseTemplate = true;
    Run().TemplateFilePath = TemplatePathOf("grid");
  }
  frmHeaders& Activate() {
    App().Template().lblInputFile.Caption = "trees.txt";
    frmHeaders& headers = LoadHeaders();
    headers.Form_Activate();
    grid.rowCount = headers.Adodc1.Recordset->RecordCount();
    headers.SetGridGeometry(&grid);
    return headers;
  }
  // Lines 1..n with one cell each, the species column holding "FD".
  void Lines(int n, const std::string& cell = "FD") {
    std::vector<testing::TableRow> rows;
    for (int line = 1; line <= n; ++line) rows.push_back({line, {cell}});
    MakeTable(rows);
  }
  static int Y(int row) { return row * 20 + 5; }
  std::vector<int> SelectedLines(frmHeaders& headers) {
    std::vector<int> lines;
    for (Recordset::Bookmark bookmark : headers.SelBookmarks)
      lines.push_back(std::stoi(std::string(headers.Adodc1.Recordset->CellAt(bookmark, 0).value_or("0"))));
    return lines;
  }
  // Presses a cell's button on the row of a line.
  void PressButton(frmHeaders& headers, int line, int column) {
    headers.TDBGrid1_RowColChange(BookmarkOfLine(headers, line), column);
    headers.TDBGrid1_ButtonClick(column);
  }
};

// ---------------------------------------------------------------- columns

TEST_F(GridEventsTest, HeadingClickOnLineNumHidesBothAssignLists) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_HeadClick(2);
  EXPECT_TRUE(headers.cmbHeaderChoices.Visible);
  headers.TDBGrid1_HeadClick(0);
  EXPECT_EQ(headers.SelStartCol, 0);
  EXPECT_EQ(headers.CurrentColumn, -1);
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  EXPECT_FALSE(headers.cmbUnitChoices.Visible);
  EXPECT_EQ(headers.cmbHeaderChoices.ListIndex, -1);
}

TEST_F(GridEventsTest, HeadingClickOnAnUnassignedColumnShowsQuestionColumnAndNoUnits) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_HeadClick(1);
  EXPECT_EQ(headers.CurrentColumn, 1);
  EXPECT_EQ(headers.cmbHeaderChoices.Text, "? column");
  EXPECT_EQ(headers.cmbUnitChoices.ListCount(), 0);
  EXPECT_EQ(headers.ColumnCaption[1], "? column\r\n? units");
}

TEST_F(GridEventsTest, ASelectionOfSeveralColumnsIsCutToItsFirst) {
  Lines(3);
  UseHeadings("ColumnHeader2=Species\r\nColumnUnits2=\r\n");
  frmHeaders& headers = Activate();
  headers.SelStartCol = 2;
  headers.SelEndCol = 4;
  headers.TDBGrid1_SelChange();
  EXPECT_EQ(headers.SelEndCol, 2);
  EXPECT_EQ(headers.CurrentColumn, 2);
  EXPECT_EQ(headers.cmbHeaderChoices.Text, "Species");
}

TEST_F(GridEventsTest, TheAssignListsShowOnlyWhileAColumnOtherThanLineNumIsSelected) {
  Lines(3);
  frmHeaders& headers = Activate();
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  EXPECT_FALSE(headers.cmbUnitChoices.Visible);
  headers.TDBGrid1_HeadClick(0);
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  EXPECT_FALSE(headers.cmbUnitChoices.Visible);
  headers.TDBGrid1_HeadClick(1);
  EXPECT_TRUE(headers.cmbHeaderChoices.Visible);
  EXPECT_TRUE(headers.cmbUnitChoices.Visible);
  headers.TDBGrid1_RowColChange(BookmarkOfLine(headers, 2), 1);
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  EXPECT_FALSE(headers.cmbUnitChoices.Visible);
  EXPECT_EQ(headers.cmbHeaderChoices.ListIndex, -1);
  EXPECT_EQ(headers.cmbUnitChoices.ListIndex, -1);
}

TEST_F(GridEventsTest, MovingTheCurrentCellHidesTheAssignListsAndTakesTheRowOnView) {
  Lines(5);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_HeadClick(1);
  headers.TDBGrid1_RowColChange(BookmarkOfLine(headers, 4), 1);
  EXPECT_EQ(headers.CurrentColumn, -1);
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  EXPECT_EQ(headers.Row, 3);
  EXPECT_EQ(headers.Adodc1.Recordset->GetBookmark(), BookmarkOfLine(headers, 4));
}

TEST_F(GridEventsTest, ScrollingHidesSpeciesAndCrownRatioListsOnly) {
  Lines(3);
  frmHeaders& headers = Activate();
  for (int i = 0; i < frmHeaders::kPickLists; ++i)
    headers.PickListControl(static_cast<frmHeaders::PickList>(i)).Visible = true;
  headers.TDBGrid1_Scroll();
  EXPECT_FALSE(headers.lstSpecies.Visible);
  EXPECT_FALSE(headers.lstCrownRatio.Visible);
  EXPECT_TRUE(headers.lstTreeHistory.Visible);
  EXPECT_TRUE(headers.lstCutLeavePrescription.Visible);
  EXPECT_TRUE(headers.lstPlotSitePreparation.Visible);
}

TEST_F(GridEventsTest, SelectGridRowFindsTheRowOnViewInsteadOfRowZero) {
  Lines(20);
  frmHeaders& headers = Activate();
  headers.SelectGridRow(BookmarkOfLine(headers, 7));
  EXPECT_EQ(headers.Row, 6);
  EXPECT_EQ(headers.SelBookmarks, std::vector<Recordset::Bookmark>{BookmarkOfLine(headers, 7)});
  // A row off view comes to the top.
  headers.SelectGridRow(BookmarkOfLine(headers, 15));
  EXPECT_EQ(headers.Row, 0);
  // The current record's own row is row 0.
  headers.SelectGridRow(BookmarkOfLine(headers, 15));
  EXPECT_EQ(headers.Row, 0);
}

TEST_F(GridEventsTest, ValidationFailureSelectsTheFaultyRowOnView) {
  std::vector<testing::TableRow> rows;
  for (int line = 1; line <= 12; ++line) rows.push_back({line, {"1", std::to_string(line), "1", "FD", "20"}});
  MakeTable(rows);
  Sql("UPDATE tft SET c4 = 'xx' WHERE LineNum = 9");
  UseHeadings("ColumnHeader1=Plot ID\r\nColumnUnits1=\r\nColumnHeader2=Tree ID\r\nColumnUnits2=\r\n"
              "ColumnHeader3=Tree Count\r\nColumnUnits3=\r\nColumnHeader4=Species\r\nColumnUnits4=\r\n"
              "ColumnHeader5=DBH\r\nColumnUnits5=cm\r\n");
  frmHeaders& headers = Activate();
  headers.cmdValidate_Click();
  EXPECT_EQ(headers.Row, 8);
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{9});
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Invalid Species Code."});
}

// ---------------------------------------------------------------- editing

TEST_F(GridEventsTest, LineNumIsNeverEditedAndEveryEditClearsTheTranslation) {
  Lines(3);
  frmHeaders& headers = Activate();
  Run().TranslationDone = true;
  EXPECT_TRUE(headers.TDBGrid1_BeforeColEdit(0));
  EXPECT_FALSE(Run().TranslationDone);
  Run().TranslationDone = true;
  EXPECT_FALSE(headers.TDBGrid1_BeforeColEdit(1));
  EXPECT_FALSE(Run().TranslationDone);
}

TEST_F(GridEventsTest, LineNumEditWithColumnOneHiddenMovesTheCurrentColumnToOne) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.Col = 0;
  headers.ColumnVisible[1] = false;
  EXPECT_TRUE(headers.TDBGrid1_BeforeColEdit(0));
  EXPECT_EQ(headers.Col, 1);
}

TEST_F(GridEventsTest, ATypedCellIsWrittenToTheTableAndRepaintedAlone) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TakeChanges();
  headers.SetCellText(BookmarkOfLine(headers, 2), 1, "xx");
  EXPECT_EQ(CellOf(2, "c1"), "xx");
  const ScreenChanges changes = headers.TakeChanges();
  EXPECT_EQ(changes.cells, (RowSpan{1, 1}));
}

TEST_F(GridEventsTest, ANewRowIsNumberedAfterTheLastRowOnView) {
  MakeTable({{1, {"a"}}, {2, {"b"}}, {7, {"c"}, "Y"}});
  UseHeadings("ShowExcludedRows=NO\r\n");
  frmHeaders& headers = Activate();
  headers.AddGridRow();
  EXPECT_EQ(CellOf(3, "Excluded"), "N");
  EXPECT_EQ(CellOf(3, "c1"), "");
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 3);
}

TEST_F(GridEventsTest, TheOnlyRowIsLineOne) {
  MakeTable({});
  frmHeaders& headers = Activate();
  headers.AddGridRow();
  EXPECT_EQ(CellOf(1, "Excluded"), "N");
  EXPECT_EQ(CellOf(1, "c30"), "");
}

TEST_F(GridEventsTest, TextTypedIntoTheInsertRowIsANewRowNumberedAfterTheLastRowOnView) {
  MakeTable({{1, {"a"}}, {2, {"b"}}, {7, {"c"}, "Y"}});
  UseHeadings("ShowExcludedRows=NO\r\n");
  frmHeaders& headers = Activate();
  Run().TranslationDone = true;
  headers.AddGridRowTyped(2, "12");
  EXPECT_FALSE(Run().TranslationDone);
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 3);
  EXPECT_EQ(CellOf(3, "c2"), "12");
  EXPECT_EQ(CellOf(3, "c1"), "");
  EXPECT_EQ(CellOf(3, "c30"), "");
  EXPECT_EQ(CellOf(3, "Excluded"), "N");
  // The new row is the current record, so the person goes on typing in it.
  EXPECT_EQ(headers.Adodc1.Recordset->GetBookmark(), 2);
}

TEST_F(GridEventsTest, TextTypedIntoTheInsertRowOfAnEmptyTableIsLineOne) {
  MakeTable({});
  frmHeaders& headers = Activate();
  headers.AddGridRowTyped(30, "x");
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 1);
  EXPECT_EQ(CellOf(1, "c30"), "x");
  EXPECT_EQ(CellOf(1, "Excluded"), "N");
}

TEST_F(GridEventsTest, NewRowsAreNumberedAfterTheLastRowEvenWhereTheNumberRepeats) {
  MakeTable({{1, {"a"}}, {5, {"b"}}, {3, {"c"}}});
  frmHeaders& headers = Activate();
  headers.AddGridRowTyped(1, "d");
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 4);
  EXPECT_EQ(headers.Adodc1.Recordset->Text("LineNum"), "4");
  headers.AddGridRow();
  EXPECT_EQ(headers.Adodc1.Recordset->Text("LineNum"), "5");
  EXPECT_EQ(headers.Adodc1.Recordset->TextOrEmpty("c1"), "");
}

TEST_F(GridEventsTest, NothingTypedOrATypedLineNumOrExcludedAddsNoRow) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TakeChanges();
  headers.AddGridRowTyped(1, "");
  headers.AddGridRowTyped(0, "9");
  headers.AddGridRowTyped(frmHeaders::kExcludedColumn, "Y");
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 3);
  EXPECT_TRUE(headers.TakeChanges().insertedRows.Empty());
}

TEST_F(GridEventsTest, TheInsertRowHasNoRecordSoTheCurrentRowIsPastTheLast) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_HeadClick(1);
  headers.TDBGrid1_RowColChange(3, 2);
  EXPECT_TRUE(headers.Adodc1.Recordset->IsEOF());
  EXPECT_EQ(headers.Col, 2);
  EXPECT_EQ(headers.CurrentColumn, -1);
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  headers.AddGridRowTyped(2, "FD");
  EXPECT_EQ(headers.Adodc1.Recordset->GetBookmark(), 3);
  EXPECT_EQ(CellOf(4, "c2"), "FD");
}

TEST_F(GridEventsTest, TheInsertRowOfAnEmptyTableHasNoCurrentRecordEither) {
  MakeTable({});
  frmHeaders& headers = Activate();
  headers.TDBGrid1_RowColChange(0, 1);
  EXPECT_TRUE(headers.Adodc1.Recordset->IsEOF());
  EXPECT_EQ(headers.Col, 1);
}

// ---------------------------------------------------------------- pick lists

class PickListTest : public GridEventsTest {
 protected:
  frmHeaders& WithCell(const std::string& type, const std::string& units, const std::string& cell) {
    Lines(12, cell);
    UseHeadings("ColumnHeader1=" + type + "\r\nColumnUnits1=" + units + "\r\n");
    return Activate();
  }
};

TEST_F(PickListTest, CrownRatioCodeThreeOpensOnItsEntryAndPickingWritesOneCharacter) {
  frmHeaders& headers = WithCell("Crown Ratio", "codes", "3");
  PressButton(headers, 2, 1);
  EXPECT_TRUE(headers.lstCrownRatio.Visible);
  EXPECT_EQ(headers.lstCrownRatio.Text, "3 : 21-30%");
  headers.lstCrownRatio.Select(4);
  EXPECT_EQ(headers.lstCrownRatio.Text.substr(0, 4), "5 : ");
  headers.PickList_Click(frmHeaders::PickList::CrownRatio);
  EXPECT_EQ(CellOf(2, "c1"), "5");
  EXPECT_FALSE(headers.lstCrownRatio.Visible);
  EXPECT_EQ(headers.ButtonColumn, 1);
}

TEST_F(PickListTest, CrownRatioCodeOneOpensOnTheFirstEntryThatIsNotSearched) {
  frmHeaders& headers = WithCell("Crown Ratio", "codes", "1");
  PressButton(headers, 1, 1);
  EXPECT_EQ(headers.lstCrownRatio.ListIndex, 0);
}

TEST_F(PickListTest, PrescriptionNineOpensOnCutNotOnTheLastEntry) {
  frmHeaders& headers = WithCell("Cut/Leave Prescription", "", "9");
  PressButton(headers, 1, 1);
  EXPECT_EQ(headers.lstCutLeavePrescription.ListIndex, 0);
  EXPECT_EQ(headers.lstCutLeavePrescription.Text, "1 : Cut");
}

TEST_F(PickListTest, TreeHistorySevenMatchesNoEntryAndOpensOnLiveTrees) {
  frmHeaders& headers = WithCell("Tree History", "", "7");
  PressButton(headers, 1, 1);
  EXPECT_EQ(headers.lstTreeHistory.Text, "1-5 : Live Trees");
}

TEST_F(PickListTest, SpeciesPickWritesTheWholeEntryAndSearchesByItsLeadingCharacters) {
  frmHeaders& headers = WithCell("Species", "", "xx");
  PressButton(headers, 3, 1);
  EXPECT_EQ(headers.lstSpecies.ListIndex, 0);
  headers.lstSpecies.Select(3);
  const std::string picked = headers.lstSpecies.Text;
  headers.PickList_Click(frmHeaders::PickList::Species);
  EXPECT_EQ(CellOf(3, "c1"), picked);
  headers.SetCellText(BookmarkOfLine(headers, 4), 1, picked.substr(0, 1));
  PressButton(headers, 4, 1);
  EXPECT_EQ(headers.lstSpecies.Text.substr(0, 1), picked.substr(0, 1));
}

TEST_F(PickListTest, HabitatPickWritesThreeCharacters) {
  frmHeaders& headers = WithCell("Plot US Habitat Type", "", "");
  PressButton(headers, 1, 1);
  headers.lstPlotHabitat.Select(2);
  const std::string entry = headers.lstPlotHabitat.Text;
  headers.PickList_Click(frmHeaders::PickList::PlotHabitat);
  EXPECT_EQ(CellOf(1, "c1"), entry.substr(0, 3));
}

TEST_F(PickListTest, AClickOnAHiddenListOrWithoutAnEntryChangesNothing) {
  frmHeaders& headers = WithCell("Tree Value Class", "", "2");
  headers.TDBGrid1_RowColChange(BookmarkOfLine(headers, 1), 1);
  headers.ButtonColumn = 1;
  headers.lstTreeValueClass.Select(0);
  headers.PickList_Click(frmHeaders::PickList::TreeValueClass);
  EXPECT_EQ(CellOf(1, "c1"), "2");
  headers.lstTreeValueClass.Visible = true;
  headers.lstTreeValueClass.Select(-1);
  headers.PickList_Click(frmHeaders::PickList::TreeValueClass);
  EXPECT_EQ(CellOf(1, "c1"), "2");
}

TEST_F(PickListTest, LosingTheFocusHidesTheListAndKeepsTheCell) {
  frmHeaders& headers = WithCell("Plot Site Preparation", "", "2");
  PressButton(headers, 1, 1);
  EXPECT_TRUE(headers.lstPlotSitePreparation.Visible);
  headers.PickList_LostFocus(frmHeaders::PickList::PlotSitePreparation);
  EXPECT_FALSE(headers.lstPlotSitePreparation.Visible);
  EXPECT_EQ(CellOf(1, "c1"), "2");
}

TEST_F(PickListTest, ListOpensRightOfTheColumnBelowTheRow) {
  frmHeaders& headers = WithCell("Tree History", "", "1");
  PressButton(headers, 3, 1);
  EXPECT_EQ(headers.PickListLeft, 10 + 90 + 60);
  EXPECT_EQ(headers.PickListTop, 100 + 40);
}

TEST_F(PickListTest, NearTheRightEdgeTheListOpensLeftOfTheColumn) {
  frmHeaders& headers = WithCell("Tree History", "", "1");
  grid.formWidth = 250;
  PressButton(headers, 3, 1);
  EXPECT_EQ(headers.PickListLeft, 10 + 90 - 150);
}

TEST_F(PickListTest, NearTheBottomEdgeTheListOpensUpward) {
  frmHeaders& headers = WithCell("Tree History", "", "1");
  grid.formHeight = 400;
  PressButton(headers, 10, 1);
  // Row 9 on view: top 100 + 180; 280 + 120 passes 400 - 20.
  EXPECT_EQ(headers.PickListTop, 280 + 20 - 120);
}

TEST_F(PickListTest, CrownRatioInPercentHasNoListAndSaysInvalidColumnButton) {
  frmHeaders& headers = WithCell("Crown Ratio", "%", "30");
  PressButton(headers, 1, 1);
  ASSERT_EQ(ui.Texts().size(), 2u);
  EXPECT_EQ(ui.Texts()[0], "Error:  Invalid column button");
  EXPECT_EQ(ui.Texts()[1], "[91] Object variable or With block variable not set");
}

TEST_F(PickListTest, DamageColumnOpensTheDamageDialogPreloadedFromTheCell) {
  frmHeaders& headers = WithCell("Damage/Severity - 2", "", "12 9");
  std::string damage, severity;
  ui.AnswerDialog<frmDamageSeverity>([&](frmDamageSeverity& dialog) {
    damage = dialog.cmbDamage.Text;
    severity = dialog.cmbSeverity.Text;
    dialog.cmbDamage.Text = "30";
    dialog.SetSeverityText("6");
    dialog.cmdOk_Click();
  });
  PressButton(headers, 5, 1);
  EXPECT_EQ(damage, "12");
  EXPECT_EQ(severity, "9");
  EXPECT_EQ(CellOf(5, "c1"), "30 6");
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmDamageSeverity"});
}

// ---------------------------------------------------------------- rows by mouse

class RowSelectTest : public GridEventsTest {
 protected:
  void SetUp() override {
    GridEventsTest::SetUp();
    Lines(10);
  }
};

TEST_F(RowSelectTest, APressInTheStripSelectsThatRowAndNoColumns) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_HeadClick(1);
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(3));
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{4});
  EXPECT_EQ(headers.SelStartCol, -1);
  EXPECT_EQ(headers.SelEndCol, -1);
}

TEST_F(RowSelectTest, APressRightOfTheStripOrBelowTheRowsSelectsNothing) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 40, Y(3));
  EXPECT_TRUE(headers.SelBookmarks.empty());
  grid.rowsOnView = 3;
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(5));
  EXPECT_TRUE(headers.SelBookmarks.empty());
}

TEST_F(RowSelectTest, ShiftPressWithNoRowSelectedSelectsThatRow) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 1, 5, Y(6));
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{7});
}

TEST_F(RowSelectTest, ShiftPressBelowExtendsDownward) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(3));
  headers.TDBGrid1_MouseDown(1, 1, 5, Y(6));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{4, 5, 6, 7}));
}

TEST_F(RowSelectTest, ShiftPressAboveExtendsUpward) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(6));
  headers.TDBGrid1_MouseDown(1, 1, 5, Y(2));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{3, 4, 5, 6, 7}));
}

TEST_F(RowSelectTest, ShiftPressInsideTheRangeRaisesItsLowEnd) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(1));
  headers.TDBGrid1_MouseDown(1, 1, 5, Y(8));
  headers.TDBGrid1_MouseDown(1, 1, 5, Y(4));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{5, 6, 7, 8, 9}));
}

TEST_F(RowSelectTest, DraggingInTheStripExtendsAndAMoveWithoutTheButtonDoesNot) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(2));
  headers.TDBGrid1_MouseMove(0, 0, 5, Y(5));
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{3});
  headers.TDBGrid1_MouseMove(1, 0, 5, Y(4));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{3, 4, 5}));
}

TEST_F(RowSelectTest, AMoveThatArrivesWhileTheLastOneYieldsIsLeftOut) {
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(2));
  int nested = 0;
  ui.onDoEvents = [&] {
    if (nested++ == 0) headers.TDBGrid1_MouseMove(1, 0, 5, Y(9));
  };
  headers.TDBGrid1_MouseMove(1, 0, 5, Y(4));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{3, 4, 5}));
  ui.onDoEvents = nullptr;
  headers.TDBGrid1_MouseMove(1, 0, 5, Y(9));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(RowSelectTest, TheSelectionIsByLineNumbersNotByRowsOnScreen) {
  MakeTable({{1, {"a"}}, {5, {"b"}}, {3, {"c"}}, {4, {"d"}}});
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(0));
  headers.TDBGrid1_MouseDown(1, 1, 5, Y(2));
  EXPECT_EQ(SelectedLines(headers), (std::vector<int>{1, 3}));
}

// ---------------------------------------------------------------- menus

TEST_F(GridEventsTest, RightButtonWithoutRowsOpensTheColumnMenuEnabledForAColumn) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseUp(2, 0, 100, Y(1));
  EXPECT_EQ(headers.PopupMenu, frmHeaders::GridMenu::Column);
  EXPECT_FALSE(headers.mnuReplaceAll.Enabled);
  EXPECT_FALSE(headers.mnuExcludeContaining.Enabled);
  EXPECT_FALSE(headers.mnuExcludeStartingWith.Enabled);
  EXPECT_TRUE(headers.mnuAddColumn.Enabled);
  headers.PopupMenu_Closed();
  headers.TDBGrid1_HeadClick(1);
  headers.TDBGrid1_MouseUp(2, 0, 100, Y(1));
  EXPECT_TRUE(headers.mnuReplaceAll.Enabled);
  EXPECT_TRUE(headers.mnuExcludeContaining.Enabled);
  EXPECT_TRUE(headers.mnuExcludeStartingWith.Enabled);
  EXPECT_EQ(headers.mnuReplaceAll.Caption, "Find/Replace");
}

TEST_F(GridEventsTest, RightButtonWithRowsOpensTheRowMenu) {
  Lines(3);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseDown(1, 0, 5, Y(1));
  headers.TDBGrid1_MouseUp(2, 0, 5, Y(1));
  EXPECT_EQ(headers.PopupMenu, frmHeaders::GridMenu::Row);
  EXPECT_EQ(headers.mnuExcludeRows.Caption, "Exclude Selected Rows");
  EXPECT_EQ(headers.mnuIncludeRows.Caption, "Include Selected Rows");
  headers.PopupMenu_Closed();
  EXPECT_EQ(headers.PopupMenu, frmHeaders::GridMenu::None);
}

TEST_F(GridEventsTest, ThirtyColumnsDisableAddColumn) {
  MakeTable({{1, std::vector<std::string>(30, "1")}});
  frmHeaders& headers = Activate();
  headers.TDBGrid1_MouseUp(2, 0, 100, Y(0));
  EXPECT_FALSE(headers.mnuAddColumn.Enabled);
  headers.mnuAddColumn_Click();
  EXPECT_EQ(Run().ColumnCount, 30);
}

TEST_F(GridEventsTest, AddColumnShowsTheNextColumnAndSelectsIt) {
  MakeTable({{1, {"1", "2"}}});
  UseHeadings("ColumnHeader3=Species\r\nColumnUnits3=\r\n");
  frmHeaders& headers = Activate();
  EXPECT_FALSE(headers.ColumnVisible[3]);
  headers.mnuAddColumn_Click();
  EXPECT_EQ(Run().ColumnCount, 3);
  EXPECT_TRUE(headers.ColumnVisible[3]);
  EXPECT_EQ(headers.SelStartCol, 3);
  EXPECT_EQ(headers.CurrentColumn, 3);
  EXPECT_EQ(headers.ColumnCaption[3], "Species\r\n");
}

TEST_F(GridEventsTest, TheCommandEntriesOpenTheirDialogsModallyOverTheGrid) {
  Lines(1);
  frmHeaders& headers = Activate();
  headers.TDBGrid1_HeadClick(1);
  headers.mnuReplaceAll_Click();
  headers.mnuExcludeContaining_Click();
  headers.mnuExcludeStartingWith_Click();
  EXPECT_EQ(ui.modalDialogs,
            (std::vector<std::string>{"frmReplaceAll", "frmExcludeContaining", "frmExcludeStartingWith"}));
  EXPECT_TRUE(ui.Texts().empty());
  // Each ended as cancelled and the grid came back to the front.
  EXPECT_FALSE(Run().ResumeGridAfterDialog);
  EXPECT_EQ(Commands().CommandCount, 0);
}

// ---------------------------------------------------------------- buttons

TEST_F(GridEventsTest, EditAsksToSaveTheViewThenOpensTheEditor) {
  Lines(1);
  frmHeaders& headers = Activate();
  ui.answers.push_back(Answer::No);
  headers.cmdEditTemplateCommands_Click();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Would you like to save the current view?");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmEditTemplateCommands"});
  EXPECT_TRUE(Run().UseTemplate);
}

TEST_F(GridEventsTest, EditWithYesOpensTheSaveDialogThenTheEditor) {
  Lines(1);
  frmHeaders& headers = Activate();
  ui.answers.push_back(Answer::Yes);
  ui.AnswerDialog<frmTemplateName>([](frmTemplateName& dialog) { dialog.cmdCancel_Click(); });
  headers.cmdEditTemplateCommands_Click();
  EXPECT_EQ(ui.modalDialogs, (std::vector<std::string>{"frmTemplateName", "frmEditTemplateCommands"}));
}

TEST_F(GridEventsTest, HelpOpensTheTopicOfTheGridScreen) {
  PlaceHelpFile();
  Lines(1);
  frmHeaders& headers = Activate();
  headers.cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-24");
}

TEST_F(GridEventsTest, QuitAndTheCloseBoxAskTheQuitQuestionAndNoKeepsTheScreen) {
  Lines(1);
  frmHeaders& headers = Activate();
  ui.answers.push_back(Answer::No);
  headers.cmdQuit_Click();
  ui.answers.push_back(Answer::No);
  EXPECT_TRUE(headers.Form_QueryUnload(CloseReason::ControlMenu));
  EXPECT_FALSE(headers.Form_QueryUnload(CloseReason::ProgramUnload));
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Do you really want to quit?", "Do you really want to quit?"}));
}

TEST_F(GridEventsTest, BackWithoutAnInputFileGoesToTheFirstScreenAndAsksNothing) {
  Lines(1);
  frmHeaders& headers = Activate();
  App().Template().lblInputFile.Caption = NoInputFileMarker;
  headers.Left = 120;
  headers.Top = 80;
  headers.cmdBack_Click();
  EXPECT_FALSE(headers.Visible());
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_EQ(App().Template().Left, 120);
  EXPECT_EQ(App().Template().Top, 80);
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_FALSE(ui.busyPointer);
}

}  // namespace
}  // namespace corvalin
