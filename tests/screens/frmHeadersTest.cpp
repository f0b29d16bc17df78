// The grid screen as a controller: load and activation from a template or
// the settings, the assign lists, the options, the row menus, validation
// from its buttons and the saving of a template.
#include "GridFixture.h"
#include "columns/ValidateTable.h"
#include "input/ColumnFormat.h"
#include "screens/frmColumns.h"
#include "screens/frmTemplate.h"
#include "screens/frmTemplateName.h"
#include "shell/FileReplace.h"
#include "shell/ProfileFile.h"
#include "shell/Settings.h"
#include "templates/TemplateFile.h"

namespace corvalin {
namespace {

class frmHeadersTest : public testing::GridFixture {
 protected:
  void UseTemplateText(const std::string& text) {
    // The first screen chooses its own template at its load; the test's
    // choice comes after it.
    App().Template();
    testing::WriteFile(TemplatePathOf("plots"), text);
    Run().UseTemplate = true;
    Run().TemplateFilePath = TemplatePathOf("plots");
  }
  frmHeaders& LoadAndActivate() {
    App().Template().lblInputFile.Caption = "trees.txt";
    frmHeaders& headers = LoadHeaders();
    headers.Form_Activate();
    return headers;
  }
  static std::string FiveColumns() {
    return "[FORMAT_INFO]\r\nOrvanVariant=BC\r\nColumnHeader1=Plot ID\r\nColumnUnits1=\r\nColumnHeader2=Tree ID\r\n"
           "ColumnUnits2=\r\nColumnHeader3=Tree Count\r\nColumnUnits3=\r\nColumnHeader4=Species\r\n"
           "ColumnUnits4=\r\nColumnHeader5=DBH\r\nColumnUnits5=cm\r\n";
  }
};

TEST_F(frmHeadersTest, LoadWithoutActivationLeavesPlainFieldNamesAndValidationFailsSilently) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  frmHeaders& headers = LoadHeaders();
  EXPECT_EQ(headers.ColumnCaption[1], "c1");
  EXPECT_EQ(headers.cmbVariant.ListIndex, -1);
  EXPECT_EQ(headers.Caption, "Corvalin - Identify Columns, Create Template and Treelist");
  EXPECT_FALSE(headers.Validate());
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(frmHeadersTest, ActivationTakesHeadingsVariantAndOptionsFromTheTemplate) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  UseTemplateText(FiveColumns() + "MeasurementSystem=IMPERIAL\r\nShowExcludedRows=NO\r\nAutoValidateGridData=NO\r\n"
                                  "ShowUnassignedColumns=NO\r\n");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(headers.ColumnCaption[1], "Plot ID\r\n");
  EXPECT_EQ(headers.ColumnCaption[5], "DBH\r\ncm");
  EXPECT_EQ(headers.ColumnCaption[6], "? column\r\n? units");
  EXPECT_EQ(headers.cmbVariant.Text, "BC");
  EXPECT_TRUE(headers.optImperial.Value);
  EXPECT_FALSE(headers.optMetric.Value);
  EXPECT_EQ(headers.chkShowExcludedRows.Value, 0);
  EXPECT_EQ(headers.chkAutoValidate.Value, 0);
  EXPECT_EQ(headers.chkShowAllColumns.Value, 0);
  EXPECT_FALSE(headers.ColumnVisible[frmHeaders::kExcludedColumn]);
  EXPECT_TRUE(headers.ColumnButton[4]);
  EXPECT_FALSE(headers.ColumnButton[5]);
}

TEST_F(frmHeadersTest, ActivationReadsTheSettingsStoreWithoutATemplate) {
  MakeTable({{1, {"1"}}});
  SaveSetting(SettingsApplication, "Corvalin", "OrvanVariant", "NI");
  SaveSetting(SettingsApplication, "Corvalin", "ColumnHeader1", "Plot ID");
  SaveSetting(SettingsApplication, "Corvalin", "ColumnUnits1", "");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(headers.cmbVariant.Text, "NI");
  EXPECT_EQ(SpeciesCodes()[10], "MH");
  EXPECT_EQ(headers.ColumnCaption[1], "Plot ID\r\n");
  EXPECT_TRUE(headers.optMetric.Value);
}

TEST_F(frmHeadersTest, StoredVariantAkGivesTheUnknownVariantMessageAndNoSelection) {
  MakeTable({{1, {"1"}}});
  UseTemplateText("[FORMAT_INFO]\r\nOrvanVariant=AK\r\n");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Unknown Orvan Variant specified: AK"});
  EXPECT_EQ(headers.cmbVariant.ListIndex, -1);
  EXPECT_EQ(headers.cmbVariant.Text, "");
}

TEST_F(frmHeadersTest, NoInputFileAndNumberOfColumnsZeroHidesAllColumnsButLoadsHeadings) {
  MakeTable({});
  UseTemplateText("[FORMAT_INFO]\r\nNumberOfColumns=0\r\nColumnHeader3=Species\r\n");
  App().Template().lblInputFile.Caption = NoInputFileMarker;
  frmHeaders& headers = LoadHeaders();
  headers.Form_Activate();
  EXPECT_EQ(Run().ColumnCount, 0);
  for (int i = 1; i <= 30; ++i) EXPECT_FALSE(headers.ColumnVisible[static_cast<std::size_t>(i)]) << i;
  EXPECT_EQ(headers.ColumnCaption[3], "Species\r\n? units");
}

TEST_F(frmHeadersTest, NumberOfColumnsIsIgnoredWithAnInputFileAndStaleHeadersShowInHigherColumns) {
  MakeTable({{1, {"1", "2", "3", "4"}}});
  UseTemplateText("[FORMAT_INFO]\r\nNumberOfColumns=2\r\nColumnHeader1=Plot ID\r\nColumnHeader4=Tree ID\r\n");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(Run().ColumnCount, 4);
  EXPECT_TRUE(headers.ColumnVisible[4]);
  EXPECT_FALSE(headers.ColumnVisible[5]);
  EXPECT_EQ(headers.ColumnCaption[4], "Tree ID\r\n? units");
}

TEST_F(frmHeadersTest, BothOptionsClearStillTurnTheColourCallbackOnAtActivation) {
  MakeTable({{1, {"1"}}});
  UseTemplateText("[FORMAT_INFO]\r\nShowExcludedRows=NO\r\nAutoValidateGridData=NO\r\n");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_TRUE(headers.ColumnFetchStyle[1]);
  headers.chkAutoValidate_Click();
  EXPECT_FALSE(headers.ColumnFetchStyle[1]);
}

TEST_F(frmHeadersTest, HiddenExcludedRowsLeaveThemOutOfTheGridsRowSet) {
  MakeTable({{1, {"a"}}, {2, {"b"}, "Y"}, {3, {"c"}}});
  UseTemplateText("[FORMAT_INFO]\r\nShowExcludedRows=NO\r\n");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 2);
  headers.chkShowExcludedRows.Value = 1;
  headers.chkShowExcludedRows_Click();
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 3);
}

TEST_F(frmHeadersTest, ClickOnLineNumColumnHidesTheAssignLists) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = LoadAndActivate();
  headers.SelectGridColumn(0);
  EXPECT_EQ(headers.CurrentColumn, -1);
  EXPECT_FALSE(headers.cmbHeaderChoices.Visible);
  EXPECT_FALSE(headers.cmbUnitChoices.Visible);
}

TEST_F(frmHeadersTest, UnassignedColumnShowsQuestionColumnAndAnEmptyUnitsList) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = LoadAndActivate();
  headers.SelectGridColumn(1);
  EXPECT_EQ(headers.CurrentColumn, 1);
  EXPECT_EQ(headers.cmbHeaderChoices.Text, "? column");
  EXPECT_EQ(headers.cmbUnitChoices.ListCount(), 0);
  EXPECT_TRUE(headers.cmbHeaderChoices.Visible);
  EXPECT_EQ(headers.ColumnCaption[1], "? column\r\n? units");
}

TEST_F(frmHeadersTest, TypeWithoutUnitsGetsAnEmptySecondLine) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = LoadAndActivate();
  headers.SelectGridColumn(1);
  headers.SelectHeaderChoice(1);
  EXPECT_EQ(headers.ColumnCaption[1], "Plot ID\r\n");
  EXPECT_EQ(GetSetting(SettingsApplication, "Corvalin", "ColumnHeader1", ""), "Plot ID");
  EXPECT_EQ(GetSetting(SettingsApplication, "Corvalin", "ColumnUnits1", "x"), "");
}

TEST_F(frmHeadersTest, LengthTypeStartsWithQuestionUnitsAndTakesTheChosenUnits) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = LoadAndActivate();
  headers.SelectGridColumn(1);
  headers.SelectHeaderChoice(6);
  EXPECT_EQ(headers.ColumnCaption[1], "DBH\r\n? units");
  EXPECT_EQ(headers.cmbUnitChoices.Items, (std::vector<std::string>{"m", "dm", "cm", "mm"}));
  headers.SelectUnitChoice(2);
  EXPECT_EQ(headers.ColumnCaption[1], "DBH\r\ncm");
  EXPECT_EQ(GetSetting(SettingsApplication, "Corvalin", "ColumnUnits1", ""), "cm");
}

TEST_F(frmHeadersTest, ImperialAfterChoosingCmKeepsTheHeadingAndValidationReportsIncorrectUnits) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  UseTemplateText(FiveColumns());
  frmHeaders& headers = LoadAndActivate();
  headers.optImperial_Click();
  EXPECT_EQ(headers.ColumnCaption[5], "DBH\r\ncm");
  headers.cmdValidate_Click();
  EXPECT_EQ(ui.Texts().back(), "Incorrect units (metric/imperial).");
  EXPECT_EQ(headers.SelStartCol, 5);
}

TEST_F(frmHeadersTest, GoingFromDbhToPlotSlopeKeepsTheOldUnits) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  UseTemplateText(FiveColumns());
  frmHeaders& headers = LoadAndActivate();
  headers.SelectGridColumn(5);
  headers.SelectHeaderChoice(17);
  EXPECT_EQ(headers.ColumnCaption[5], "Plot Slope\r\ncm");
  headers.cmdValidate_Click();
  EXPECT_EQ(ui.Texts().back(), "Invalid units for Plot Slope column.");
}

TEST_F(frmHeadersTest, EmptyTableSaysNoDataToValidateAndNoDataToTranslate) {
  MakeTable({});
  frmHeaders& headers = LoadAndActivate();
  headers.cmdValidate_Click();
  headers.cmdFinish_Click();
  headers.cmdNext_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"No data to validate.", "No data to translate.",
                                                  "No data to translate."}));
}

TEST_F(frmHeadersTest, ValidTableSaysReadyForTranslation) {
  MakeTable({{1, {"1", "1", "1", "fd", "20"}}});
  UseTemplateText(FiveColumns());
  frmHeaders& headers = LoadAndActivate();
  headers.cmdValidate_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Data validated - ready for translation."});
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(frmHeadersTest, SpeciesCellXxIsRedAndYellowWhenTheRowIsExcluded) {
  MakeTable({{1, {"1", "1", "1", "xx", "20"}}, {2, {"1", "1", "1", "xx", "20"}, "Y"}});
  UseTemplateText(FiveColumns());
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(headers.CellColour(4, BookmarkOfLine(headers, 1)), 255);
  EXPECT_EQ(headers.CellColour(4, BookmarkOfLine(headers, 2)), 65535);
  EXPECT_EQ(headers.CellColour(5, BookmarkOfLine(headers, 1)), 0);
  EXPECT_EQ(headers.CellColour(1, BookmarkOfLine(headers, 2)), 65535);
}

TEST_F(frmHeadersTest, TopographicCellNineIsNeverRedButFailsValidation) {
  MakeTable({{1, {"1", "1", "1", "FD", "20", "9"}}});
  UseTemplateText(FiveColumns() + "ColumnHeader6=Plot Topographic Position\r\nColumnUnits6=\r\n");
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(headers.CellColour(6, BookmarkOfLine(headers, 1)), 0);
  EXPECT_FALSE(headers.Validate());
  EXPECT_EQ(ui.Texts().back(), "Invalid Plot Topographical Code.");
}

TEST_F(frmHeadersTest, TreeCountAndDbhAreColouredByTheDecimalRuleAlone) {
  MakeTable({{1, {"1", "1", "0", "FD", ""}}, {2, {"1", "1", "x", "FD", "1,5"}}});
  UseTemplateText(FiveColumns());
  frmHeaders& headers = LoadAndActivate();
  EXPECT_EQ(headers.CellColour(3, BookmarkOfLine(headers, 1)), 0);
  EXPECT_EQ(headers.CellColour(5, BookmarkOfLine(headers, 1)), 0);
  EXPECT_EQ(headers.CellColour(3, BookmarkOfLine(headers, 2)), 255);
  EXPECT_EQ(headers.CellColour(5, BookmarkOfLine(headers, 2)), 255);
}

class RowMenusTest : public frmHeadersTest {
 protected:
  void SetUp() override {
    frmHeadersTest::SetUp();
    std::vector<testing::TableRow> rows;
    for (int line = 1; line <= 25; ++line) rows.push_back({line, {std::to_string(line)}});
    MakeTable(rows);
  }
  void SelectLines(frmHeaders& headers, std::initializer_list<int> lines) {
    headers.SelBookmarks.clear();
    for (int line : lines) headers.SelBookmarks.push_back(BookmarkOfLine(headers, line));
  }
};

TEST_F(RowMenusTest, ExcludeSelectedRowsAddsARangeFromLowestToHighestLine) {
  frmHeaders& headers = LoadAndActivate();
  headers.CurrentColumn = 1;
  SelectLines(headers, {20, 5});
  headers.mnuExcludeRows_Click();
  ASSERT_EQ(Commands().CommandCount, 1);
  EXPECT_EQ(TemplateCommandAt(1).CommandType, "EXCLUDE_RANGE");
  EXPECT_EQ(TemplateCommandAt(1).StartLine, 5);
  EXPECT_EQ(TemplateCommandAt(1).EndLine, 20);
  EXPECT_EQ(TemplateCommandAt(1).ColumnNumber, 1);
  EXPECT_EQ(ExcludedLines(), "5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 ");
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(RowMenusTest, IncludingInsideARangeSplitsItAndAddsTheSecondPartLast) {
  frmHeaders& headers = LoadAndActivate();
  SelectLines(headers, {5, 20});
  headers.mnuExcludeRows_Click();
  AddCommand({"EXCLUDE_CONTAINING", "", "", 1, 0, 0, "99"});
  SelectLines(headers, {10, 12});
  headers.mnuIncludeRows_Click();
  ASSERT_EQ(Commands().CommandCount, 3);
  EXPECT_EQ(TemplateCommandAt(1).StartLine, 5);
  EXPECT_EQ(TemplateCommandAt(1).EndLine, 9);
  EXPECT_EQ(TemplateCommandAt(3).CommandType, "EXCLUDE_RANGE");
  EXPECT_EQ(TemplateCommandAt(3).StartLine, 13);
  EXPECT_EQ(TemplateCommandAt(3).EndLine, 20);
  EXPECT_EQ(ExcludedLines(), "5 6 7 8 9 13 14 15 16 17 18 19 20 ");
}

TEST_F(RowMenusTest, IncludingTheWholeRangeLeavesItEmptyTwentyOneToFour) {
  frmHeaders& headers = LoadAndActivate();
  SelectLines(headers, {5, 20});
  headers.mnuExcludeRows_Click();
  headers.mnuIncludeRows_Click();
  EXPECT_EQ(Commands().CommandCount, 1);
  EXPECT_EQ(TemplateCommandAt(1).StartLine, 21);
  EXPECT_EQ(TemplateCommandAt(1).EndLine, 4);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(RowMenusTest, IncludingTheLowEndRaisesTheStart) {
  frmHeaders& headers = LoadAndActivate();
  SelectLines(headers, {5, 20});
  headers.mnuExcludeRows_Click();
  SelectLines(headers, {1, 8});
  headers.mnuIncludeRows_Click();
  EXPECT_EQ(TemplateCommandAt(1).StartLine, 9);
  EXPECT_EQ(TemplateCommandAt(1).EndLine, 20);
  EXPECT_EQ(ExcludedLines(), "9 10 11 12 13 14 15 16 17 18 19 20 ");
}

TEST_F(RowMenusTest, HundredFirstCommandIsRefusedWithTheLimitMessage) {
  frmHeaders& headers = LoadAndActivate();
  for (int k = 0; k < 100; ++k) AddCommand({"EXCLUDE_RANGE", "", "", 1, 30, 30, ""});
  SelectLines(headers, {2, 3});
  headers.mnuExcludeRows_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Maximum of 100 template commands."});
  EXPECT_EQ(Commands().CommandCount, 100);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(RowMenusTest, SplitAtTheLimitShowsTheMessageAndLeavesTheRange) {
  frmHeaders& headers = LoadAndActivate();
  SelectLines(headers, {5, 20});
  headers.mnuExcludeRows_Click();
  for (int k = 0; k < 99; ++k) AddCommand({"EXCLUDE_RANGE", "", "", 1, 30, 30, ""});
  SelectLines(headers, {10, 12});
  headers.mnuIncludeRows_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Maximum of 100 template commands."});
  EXPECT_EQ(TemplateCommandAt(1).StartLine, 5);
  EXPECT_EQ(TemplateCommandAt(1).EndLine, 20);
  EXPECT_EQ(ExcludedLines(), "5 6 7 8 9 13 14 15 16 17 18 19 20 ");
}

TEST_F(RowMenusTest, CommandListShowsEachKindInItsOwnWords) {
  frmHeaders& headers = LoadAndActivate();
  headers.ColumnCaption[2] = "Species\r\n";
  TemplateCommandState& state = Commands();
  state.EditedCommandCount = 5;
  state.EditedCommands[0] = {"REPLACE_ALL", "fd", "FD", 2, 0, 0, ""};
  state.EditedCommands[1] = {"EXCLUDE_CONTAINING", "", "", 2, 0, 0, "X"};
  state.EditedCommands[2] = {"EXCLUDE_STARTING_WITH", "", "", 2, 0, 0, "P"};
  state.EditedCommands[3] = {"EXCLUDE_RANGE", "", "", 2, 5, 20, ""};
  state.EditedCommands[4] = {"ODD", "", "", 2, 0, 0, ""};
  EXPECT_EQ(BuildCommandList(headers.ColumnCaption), (std::vector<std::string>{
                            "1/  Replace all \"fd\" with \"FD\" in column 2 (Species)",
                            "2/  Exclude rows with \"X\" in column 2 (Species)",
                            "3/  Exclude rows starting with \"P\" in column 2 (Species)",
                            "4/  Exclude rows in range \"5\" to \"20\"",
                            "4/  Exclude rows in range \"5\" to \"20\"",
                        }));
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"error:  unknown template command type"});
}

TEST_F(frmHeadersTest, SavedTemplateComesBackWithEveryKeyExceptTheMarkers) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  UseTemplateText(FiveColumns() + "MeasurementSystem=IMPERIAL\r\nShowExcludedRows=NO\r\n");
  App().Template().cmbTemplate.Text = "plots";
  frmHeaders& headers = LoadAndActivate();
  Run().InputPreviewLoaded = true;  // no input file to preview here
  frmColumns& format = App().Columns();
  format.optFixedWidth.Value = true;
  format.chkTab.Value = 1;
  format.txtOtherCharacter.Text = "#";
  Markers().NumMarkers = 1;
  Markers().ColumnMarkers(1) = 7;
  AddCommand({"REPLACE_ALL", "fd", "FD", 4, 0, 0, ""});
  AddCommand({"EXCLUDE_RANGE", "", "", 1, 3, 4, ""});
  headers.ColumnCaption[5] = "DBH\r\ninches";
  headers.SelectVariant(8);
  ASSERT_EQ(headers.cmbVariant.Text, "NI");
  std::string offered;
  ui.AnswerDialog<frmTemplateName>([&](frmTemplateName& dialog) {
    offered = dialog.cmbTemplateName.Text;
    dialog.SetText("Stands");
    dialog.cmdOk_Click();
  });
  headers.cmdSaveTemplate_Click();
  EXPECT_EQ(offered, "plots");
  const std::string path = TemplatePathOf("stands");
  const ColumnDelimiterKeys keys = ReadColumnDelimiters(path);
  EXPECT_TRUE(keys.FixedWidth);
  EXPECT_TRUE(keys.Tab);
  EXPECT_EQ(keys.OtherChars, "#");
  EXPECT_EQ(ReadProfileString(path, "COLUMN_DELIMITERS", "NumMarkers", ""), "1");
  EXPECT_EQ(ReadProfileString(path, "COLUMN_DELIMITERS", "FixedMarker1", ""), "7");

  ResetCommands();
  Markers() = ColumnMarkerList{};
  App().UnloadAll();
  App().Template();
  Run().UseTemplate = true;
  Run().TemplateFilePath = path;
  frmHeaders& again = LoadAndActivate();
  EXPECT_EQ(again.cmbVariant.Text, "NI");
  EXPECT_TRUE(again.optImperial.Value);
  EXPECT_EQ(again.chkShowExcludedRows.Value, 0);
  EXPECT_EQ(again.chkShowAllColumns.Value, 1);
  EXPECT_EQ(again.ColumnCaption[4], "Species\r\n");
  EXPECT_EQ(again.ColumnCaption[5], "DBH\r\ninches");
  ASSERT_EQ(Commands().CommandCount, 2);
  EXPECT_EQ(TemplateCommandAt(1).FindString, "fd");
  EXPECT_EQ(TemplateCommandAt(1).ReplacementString, "FD");
  EXPECT_EQ(TemplateCommandAt(1).ColumnNumber, 4);
  EXPECT_EQ(TemplateCommandAt(2).CommandType, "EXCLUDE_RANGE");
  EXPECT_EQ(TemplateCommandAt(2).StartLine, 3);
  EXPECT_EQ(TemplateCommandAt(2).EndLine, 4);
  EXPECT_EQ(Markers().NumMarkers, 0);
}

TEST_F(frmHeadersTest, ASavedTemplateIsReplacedOnceAndStaysWholeUntilThen) {
  MakeTable({{1, {"1", "1", "1", "FD", "20"}}});
  UseTemplateText(FiveColumns());
  frmHeaders& headers = LoadAndActivate();
  Run().InputPreviewLoaded = true;  // no input file to preview here
  AddCommand({"REPLACE_ALL", "fd", "FD", 4, 0, 0, ""});
  const std::string path = TemplatePathOf("plots");
  const std::string before = testing::ReadFile(path);
  int replaced = 0;
  bool oldUntilReplaced = true;
  SetFileReplaceHook([&](const std::string& target, ReplaceMoment moment, std::size_t) {
    if (target != path) return;
    if (moment == ReplaceMoment::Replaced) ++replaced;
    if (moment == ReplaceMoment::Written && testing::ReadFile(path) != before) oldUntilReplaced = false;
  });
  ui.AnswerDialog<frmTemplateName>([](frmTemplateName& dialog) {
    dialog.SetText("plots");
    dialog.cmdOk_Click();
  });
  ui.answers.push_back(Answer::Yes);  // save over the template
  headers.cmdSaveTemplate_Click();
  SetFileReplaceHook({});
  EXPECT_EQ(replaced, 1);
  EXPECT_TRUE(oldUntilReplaced);
  EXPECT_EQ(testing::ReadFile(path),
            "[FORMAT_INFO]\r\nOrvanVariant=BC\r\nColumnHeader1=Plot ID\r\nColumnUnits1=\r\nColumnHeader2=Tree ID\r\n"
            "ColumnUnits2=\r\nColumnHeader3=Tree Count\r\nColumnUnits3=\r\nColumnHeader4=Species\r\n"
            "ColumnUnits4=\r\nColumnHeader5=DBH\r\nColumnUnits5=cm\r\n"
            "MeasurementSystem=METRIC\r\nShowUnassignedColumns=YES\r\nShowExcludedRows=YES\r\n"
            "AutoValidateGridData=YES\r\nNumberOfColumns=5\r\n"
            "[COLUMN_DELIMITERS]\r\nFixedWidth=NO\r\nComma=YES\r\nTab=NO\r\nSemicolon=NO\r\nSpace=NO\r\n"
            "Other=NO\r\nOtherChars=\r\nTreatConsecutiveAsOne=NO\r\nTextQualifier=None\r\n"
            "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=1\r\nCommandType1=REPLACE_ALL\r\nFindString1=fd\r\n"
            "ReplacementString1=FD\r\nColumnNumber1=4\r\nStartLine1=0\r\nEndLine1=0\r\nDeleteString1=\r\n");
}

TEST_F(frmHeadersTest, CancelledSaveWritesNothing) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = LoadAndActivate();
  ui.AnswerDialog<frmTemplateName>([](frmTemplateName& dialog) {
    dialog.SetText("abc");
    dialog.cmdCancel_Click();
  });
  headers.cmdSaveTemplate_Click();
  EXPECT_FALSE(std::filesystem::exists(TemplatePathOf("abc")));
  EXPECT_FALSE(Run().TemplateSaved);
  EXPECT_FALSE(App().TemplateNameLoaded());
}

TEST_F(frmHeadersTest, SaveThatNobodyAnswersEndsAsCancelledAndWritesNothing) {
  MakeTable({{1, {"1"}}});
  frmHeaders& headers = LoadAndActivate();
  headers.cmdSaveTemplate_Click();
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmTemplateName"});
  EXPECT_FALSE(Run().TemplateSaved);
  EXPECT_FALSE(App().TemplateNameLoaded());
  EXPECT_TRUE(std::filesystem::is_empty(Run().WorkFolder));
}

}  // namespace
}  // namespace corvalin
