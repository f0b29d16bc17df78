// The grid's command dialogs driven as their windows drive them: the three
// exclusion dialogs, Find/Replace and the command editor, over a working
// table and the grid screen, with the person played by the scripted Toolkit.
#include "FakeGrid.h"
#include "GridFixture.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmExcludeContaining.h"
#include "screens/frmExcludeRange.h"
#include "screens/frmExcludeStartingWith.h"
#include "screens/frmReplaceAll.h"
#include "shell/Error.h"
#include "templates/TemplateFile.h"

namespace corvalin {
namespace {

class CommandDialogsTest : public testing::GridFixture {
 protected:
  testing::FakeGrid grid;

  // Lines 1.. with these cells in column 2 (column 1 holds the plot).
  void Species(const std::vector<std::string>& cells) {
    std::vector<testing::TableRow> rows;
    int line = 1;
    for (const std::string& cell : cells) rows.push_back({line++, {"1", cell}});
    MakeTable(rows);
  }
  // The grid shown, with the species heading on column 2 and column 2
  // chosen.
  frmHeaders& Grid(bool showExcluded = true) {
    App().Template();
    testing::WriteFile(TemplatePathOf("grid"),
                       "[FORMAT_INFO]\r\nOrvanVariant=BC\r\nColumnHeader2=Species\r\nColumnUnits2=\r\n"
                       "ShowExcludedRows=" +
                           std::string(showExcluded ? "YES" : "NO") + "\r\n");
    Run().UseTemplate = true;
    Run().TemplateFilePath = TemplatePathOf("grid");
    App().Template().lblInputFile.Caption = "trees.txt";
    frmHeaders& headers = LoadHeaders();
    headers.Form_Activate();
    grid.rowCount = headers.Adodc1.Recordset->RecordCount();
    headers.SetGridGeometry(&grid);
    headers.TDBGrid1_HeadClick(2);
    return headers;
  }
  static TemplateCommand Command(const std::string& kind, int16_t column, const std::string& text = "") {
    TemplateCommand command;
    command.CommandType = kind;
    command.ColumnNumber = column;
    command.DeleteString = text;
    return command;
  }
  static TemplateCommand Range(int16_t first, int16_t last) {
    TemplateCommand command = Command("EXCLUDE_RANGE", 2);
    command.StartLine = first;
    command.EndLine = last;
    return command;
  }
  static TemplateCommand Replace(const std::string& find, const std::string& replacement) {
    TemplateCommand command = Command("REPLACE_ALL", 2);
    command.FindString = find;
    command.ReplacementString = replacement;
    return command;
  }
  void FillTo(int16_t count) {
    while (Commands().CommandCount < count) AddCommand(Range(500, 600));
  }
  // Opens the Exclude Rows Containing dialog from the grid's menu, types
  // the text and presses OK.
  void ExcludeContaining(frmHeaders& headers, const std::string& text) {
    ui.AnswerDialog<frmExcludeContaining>([text](frmExcludeContaining& dialog) {
      dialog.txtExcludeText.Text = text;
      dialog.cmdOk_Click();
    });
    headers.mnuExcludeContaining_Click();
  }
  std::vector<int> SelectedLines(frmHeaders& headers) {
    std::vector<int> lines;
    for (Recordset::Bookmark bookmark : headers.SelBookmarks)
      lines.push_back(std::stoi(std::string(headers.Adodc1.Recordset->CellAt(bookmark, 0).value_or("0"))));
    return lines;
  }
};

// ---------------------------------------------------------------- loads

TEST_F(CommandDialogsTest, EachDialogNamesItselfAndItsColumnWhenItLoads) {
  Species({"FD"});
  frmHeaders& headers = Grid();
  frmExcludeContaining& containing = App().ExcludeContaining();
  EXPECT_EQ(Run().CurrentScreen, "Exclude Containing");
  EXPECT_EQ(containing.Caption, "Corvalin - Exclude Rows Containing...");
  EXPECT_EQ(containing.lblColumn.Caption, "2  (Species)");
  EXPECT_TRUE(containing.lblColumn.Visible);
  EXPECT_FALSE(containing.Placed);
  frmExcludeStartingWith& starting = App().ExcludeStartingWith();
  EXPECT_EQ(Run().CurrentScreen, "ExcludeStarting");
  EXPECT_EQ(starting.Caption, "Corvalin - Exclude Rows Starting With...");
  EXPECT_EQ(starting.lblColumn.Caption, "2  (Species)");
  frmExcludeRange& range = App().ExcludeRange();
  EXPECT_EQ(Run().CurrentScreen, "ExcludeRange");
  EXPECT_EQ(range.Caption, "Corvalin - Exclude Rows in Range...");
  EXPECT_FALSE(range.lblColumn.Visible);
  EXPECT_FALSE(Run().ResumeGridAfterDialog);
  frmReplaceAll& replace = App().ReplaceAll();
  EXPECT_EQ(Run().CurrentScreen, "ReplaceAll");
  EXPECT_EQ(replace.Caption, "Corvalin - Find/Replace");
  EXPECT_EQ(replace.lblColumn.Caption, "2  (Species)");
  EXPECT_TRUE(Run().ResumeGridAfterDialog);
  frmEditTemplateCommands& editor = App().EditTemplateCommands();
  EXPECT_EQ(Run().CurrentScreen, "EditTemplate");
  EXPECT_EQ(editor.Caption, "Corvalin - Edit Template Commands");
  EXPECT_EQ(headers.CurrentColumn, 2);
}

TEST_F(CommandDialogsTest, AnUnassignedColumnShowsItsQuestionType) {
  Species({"FD"});
  frmHeaders& headers = Grid();
  headers.TDBGrid1_HeadClick(1);
  EXPECT_EQ(App().ExcludeStartingWith().lblColumn.Caption, "1  (? column)");
}

// ---------------------------------------------------------------- exclusions

TEST_F(CommandDialogsTest, ExcludeContainingComparesTheWholeCellAndCase) {
  Species({"PINE", "WHITE PINE", "pine", "PINE"});
  frmHeaders& headers = Grid();
  ExcludeContaining(headers, "PINE");
  EXPECT_EQ(ExcludedLines(), "1 4 ");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"2 rows excluded."});
  ASSERT_EQ(Commands().CommandCount, 1);
  const TemplateCommand& command = TemplateCommandAt(1);
  EXPECT_EQ(command.CommandType, "EXCLUDE_CONTAINING");
  EXPECT_EQ(command.DeleteString, "PINE");
  EXPECT_EQ(command.ColumnNumber, 2);
  EXPECT_FALSE(App().ExcludeContainingLoaded());
}

TEST_F(CommandDialogsTest, OneRowExcludedIsSaidInTheSingular) {
  Species({"PINE", "FD"});
  frmHeaders& headers = Grid();
  ExcludeContaining(headers, "FD");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"1 row excluded."});
}

TEST_F(CommandDialogsTest, AnExclusionWithNoHitSaysZeroRowsAndStaysRecorded) {
  Species({"PINE", "FD"});
  frmHeaders& headers = Grid();
  ExcludeContaining(headers, "LP");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"0 rows excluded."});
  EXPECT_EQ(Commands().CommandCount, 1);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(CommandDialogsTest, ExcludingARowTwiceCountsItOnce) {
  Species({"PINE", "FD"});
  frmHeaders& headers = Grid();
  ExcludeContaining(headers, "FD");
  ExcludeContaining(headers, "FD");
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"1 row excluded.", "0 rows excluded."}));
  EXPECT_EQ(Commands().CommandCount, 2);
}

TEST_F(CommandDialogsTest, ExcludeStartingWithTakesTheCellsThatBeginWithTheText) {
  Species({"PINE", "P", "pine", "FD"});
  frmHeaders& headers = Grid();
  ui.AnswerDialog<frmExcludeStartingWith>([](frmExcludeStartingWith& dialog) {
    dialog.txtStartText.Text = "P";
    dialog.cmdOk_Click();
  });
  headers.mnuExcludeStartingWith_Click();
  EXPECT_EQ(ExcludedLines(), "1 2 ");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"2 rows excluded."});
  EXPECT_EQ(TemplateCommandAt(1).CommandType, "EXCLUDE_STARTING_WITH");
  EXPECT_EQ(TemplateCommandAt(1).DeleteString, "P");
}

TEST_F(CommandDialogsTest, HiddenExcludedRowsLeaveTheGridWhenTheDialogCloses) {
  Species({"PINE", "FD", "FD", "PINE"});
  frmHeaders& headers = Grid(false);
  ASSERT_EQ(headers.Adodc1.Recordset->RecordCount(), 4);
  ExcludeContaining(headers, "FD");
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 2);
}

TEST_F(CommandDialogsTest, ShownExcludedRowsStayInTheGridAndAreColouredYellow) {
  Species({"FD", "PL"});
  frmHeaders& headers = Grid(true);
  ExcludeContaining(headers, "PL");
  ASSERT_EQ(headers.Adodc1.Recordset->RecordCount(), 2);
  EXPECT_EQ(headers.CellColour(2, BookmarkOfLine(headers, 2)), kCellColourExcluded);
  EXPECT_EQ(headers.CellColour(2, BookmarkOfLine(headers, 1)), kCellColourNone);
}

TEST_F(CommandDialogsTest, TheHundredAndFirstCommandIsRefusedAndTheDialogStays) {
  Species({"PINE", "FD"});
  frmHeaders& headers = Grid();
  FillTo(100);
  bool stillOpen = false;
  ui.AnswerDialog<frmExcludeContaining>([&](frmExcludeContaining& dialog) {
    dialog.txtExcludeText.Text = "FD";
    dialog.cmdOk_Click();
    stillOpen = dialog.Visible();
    dialog.cmdCancel_Click();
  });
  headers.mnuExcludeContaining_Click();
  EXPECT_TRUE(stillOpen);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Maximum of 100 template commands."});
  EXPECT_EQ(Commands().CommandCount, 100);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(CommandDialogsTest, CancelAddsNothing) {
  Species({"PINE", "FD"});
  frmHeaders& headers = Grid();
  ui.AnswerDialog<frmExcludeStartingWith>([](frmExcludeStartingWith& dialog) {
    dialog.txtStartText.Text = "F";
    dialog.cmdCancel_Click();
  });
  headers.mnuExcludeStartingWith_Click();
  EXPECT_EQ(Commands().CommandCount, 0);
  EXPECT_EQ(ExcludedLines(), "");
  EXPECT_FALSE(App().ExcludeStartingWithLoaded());
}

TEST_F(CommandDialogsTest, ADialogLeftOpenEndsAsCancelled) {
  Species({"PINE", "FD"});
  frmHeaders& headers = Grid();
  ui.AnswerDialog<frmExcludeContaining>([](frmExcludeContaining& dialog) { dialog.txtExcludeText.Text = "FD"; });
  headers.mnuExcludeContaining_Click();
  EXPECT_EQ(Commands().CommandCount, 0);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(CommandDialogsTest, HelpOpensTheHelpAndLeavesTheDialogOpen) {
  PlaceHelpFile();
  Species({"FD"});
  Grid();
  frmExcludeRange& range = App().ExcludeRange();
  range.Show();
  range.cmdHelp_Click();
  EXPECT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_TRUE(range.Visible());
}

// Each dialog has a section of its own in the help.
TEST_F(CommandDialogsTest, ExcludeRowsContainingHelpOpensItsSection) {
  PlaceHelpFile();
  Species({"FD"});
  Grid();
  App().ExcludeContaining().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-60");
}

TEST_F(CommandDialogsTest, ExcludeRowsStartingWithHelpOpensItsSection) {
  PlaceHelpFile();
  Species({"FD"});
  Grid();
  App().ExcludeStartingWith().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-70");
}

TEST_F(CommandDialogsTest, ExcludeRowsInRangeHelpOpensItsSection) {
  PlaceHelpFile();
  Species({"FD"});
  Grid();
  App().ExcludeRange().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-80");
}

TEST_F(CommandDialogsTest, FindReplaceHelpOpensItsSection) {
  PlaceHelpFile();
  Species({"FD"});
  Grid();
  App().ReplaceAll().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-90");
}

TEST_F(CommandDialogsTest, EditTemplateCommandsHelpOpensItsSection) {
  PlaceHelpFile();
  Species({"FD"});
  Grid();
  App().EditTemplateCommands().cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-100");
}

// The range dialog runs the range at once but records a starting-with
// command with an empty text: a replay excludes every row still in.
TEST_F(CommandDialogsTest, TheRangeDialogExcludesItsLinesButRecordsAnEmptyStartingWith) {
  Species({"A", "B", "C", "D", "E"});
  frmHeaders& headers = Grid();
  frmExcludeRange& range = App().ExcludeRange();
  range.txtStartLine.Text = "2";
  range.txtEndLine.Text = "3";
  range.cmdOk_Click();
  EXPECT_EQ(ExcludedLines(), "2 3 ");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"2 rows excluded."});
  const TemplateCommand& command = TemplateCommandAt(1);
  EXPECT_EQ(command.CommandType, "EXCLUDE_STARTING_WITH");
  EXPECT_EQ(command.DeleteString, "");
  EXPECT_EQ(command.StartLine, 2);
  EXPECT_EQ(command.EndLine, 3);
  EXPECT_EQ(command.ColumnNumber, 2);
  ReplayTemplateCommands(headers.Adodc1.Recordset);
  EXPECT_EQ(ExcludedLines(), "1 2 3 4 5 ");
}

TEST_F(CommandDialogsTest, ARangeThatIsNoNumberFailsAfterTheCountWentUp) {
  Species({"A", "B"});
  Grid();
  frmExcludeRange& range = App().ExcludeRange();
  range.txtStartLine.Text = "two";
  range.txtEndLine.Text = "3";
  range.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"[13] Type mismatch"});
  ASSERT_EQ(Commands().CommandCount, 1);
  EXPECT_EQ(TemplateCommandAt(1).CommandType, "EXCLUDE_STARTING_WITH");
  EXPECT_EQ(TemplateCommandAt(1).StartLine, 0);
  EXPECT_EQ(TemplateCommandAt(1).EndLine, 0);
  EXPECT_EQ(ExcludedLines(), "");
}

TEST_F(CommandDialogsTest, ARangeWhoseStartIsAboveItsEndExcludesNothing) {
  Species({"A", "B", "C"});
  Grid();
  frmExcludeRange& range = App().ExcludeRange();
  range.txtStartLine.Text = "3";
  range.txtEndLine.Text = "1";
  range.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"0 rows excluded."});
  EXPECT_EQ(ExcludedLines(), "");
}

// ---------------------------------------------------------------- find and replace

TEST_F(CommandDialogsTest, FindNextSelectsTheFirstMatchPastTheGridsRow) {
  Species({"FD", "PL", "FD", "FD"});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  headers.Row = 1;
  dialog.cmdFindNext_Click();
  // The grid's Row (1) is compared with the input line: line 1 is passed.
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{3});
  EXPECT_EQ(headers.CurrentColumn, 2);
  EXPECT_FALSE(dialog.FindActive);
  EXPECT_FALSE(ui.busyPointer);
  EXPECT_TRUE(headers.cmbHeaderChoices.Enabled);
  EXPECT_TRUE(headers.cmbUnitChoices.Enabled);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(CommandDialogsTest, BackFromFindReplaceTheGridKeepsTheRowFound) {
  Species({"FD", "PL", "LP", "PL"});
  frmHeaders& headers = Grid(false);
  ui.AnswerDialog<frmReplaceAll>([](frmReplaceAll& dialog) {
    dialog.txtFind.Text = "LP";
    dialog.cmdFindNext_Click();
    dialog.cmdCancel_Click();
  });
  headers.mnuReplaceAll_Click();
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{3});
  EXPECT_FALSE(Run().ResumeGridAfterDialog);
}

TEST_F(CommandDialogsTest, FindNextWithNothingPastTheRowAsksToStartFromTheTop) {
  Species({"FD", "PL", "PL"});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  headers.Row = 1;
  ui.answers.push_back(Answer::Yes);
  dialog.cmdFindNext_Click();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Couldn't find match.  Start from top?");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.boxes[0].icon, Icon::Question);
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{1});
}

TEST_F(CommandDialogsTest, AMatchAboveTheRowsOnViewIsFoundInTheFirstPass) {
  Species({"PL", "PL", "FD", "PL", "PL", "PL", "PL", "PL", "PL", "PL", "PL", "PL"});
  frmHeaders& headers = Grid();
  // Scrolled down: lines 9 to 12 on view, the fourth of them current.
  grid.firstOnView = 8;
  headers.Row = 2;
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  dialog.cmdFindNext_Click();
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{3});
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(CommandDialogsTest, NoToStartingFromTheTopSelectsNothing) {
  Species({"FD", "PL", "PL"});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  headers.Row = 1;
  ui.answers.push_back(Answer::No);
  dialog.cmdFindNext_Click();
  EXPECT_TRUE(headers.SelBookmarks.empty());
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Couldn't find match.  Start from top?"});
  EXPECT_EQ(headers.CurrentColumn, 2);
}

TEST_F(CommandDialogsTest, NoMatchAnywhereSaysSoAfterTheQuestion) {
  Species({"FD", "PL"});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "LP";
  ui.answers.push_back(Answer::Yes);
  dialog.cmdFindNext_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Couldn't find match.  Start from top?", "No match in column"}));
  EXPECT_TRUE(headers.SelBookmarks.empty());
}

TEST_F(CommandDialogsTest, AnEmptyFindTextFindsTheFirstEmptyCell) {
  Species({"FD", "", "PL", ""});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.cmdFindNext_Click();
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{2});
}

TEST_F(CommandDialogsTest, FindNextWhileOneRunsDoesNothing) {
  Species({"FD"});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  dialog.FindActive = true;
  dialog.cmdFindNext_Click();
  EXPECT_TRUE(headers.SelBookmarks.empty());
  EXPECT_TRUE(dialog.FindActive);
}

TEST_F(CommandDialogsTest, AFailedFindLeavesThePointerBusyAndTheButtonReady) {
  Species({"FD"});
  frmHeaders& headers = Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  headers.CurrentColumn = 31;
  dialog.cmdFindNext_Click();
  ASSERT_EQ(ui.Texts().size(), 1u);
  EXPECT_EQ(ui.Texts()[0].substr(0, 7), "[3265] ");
  EXPECT_TRUE(ui.busyPointer);
  EXPECT_FALSE(dialog.FindActive);
  headers.CurrentColumn = 2;
  dialog.txtFind.Text = "FD";
  dialog.cmdFindNext_Click();
  EXPECT_EQ(SelectedLines(headers), std::vector<int>{1});
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(CommandDialogsTest, ReplaceWritesTheCellFoundAndRecordsNoCommand) {
  Species({"FD", "PL", "FD"});
  Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  dialog.txtReplacement.Text = "LP";
  dialog.cmdReplace_Click();
  EXPECT_EQ(CellOf(1, "c2"), "LP");
  EXPECT_EQ(CellOf(3, "c2"), "FD");
  EXPECT_EQ(Commands().CommandCount, 0);
  EXPECT_FALSE(dialog.ReplaceActive);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(CommandDialogsTest, ReplaceWithNoMatchSaysSo) {
  Species({"FD"});
  Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "PL";
  dialog.cmdReplace_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"No match in current cell."});
}

TEST_F(CommandDialogsTest, ReplaceAllRecordsTheCommandCountsAndKeepsTheDialogOpen) {
  Species({"108.0", "FD", "108.0", "1080"});
  frmHeaders& headers = Grid();
  ui.AnswerDialog<frmReplaceAll>([](frmReplaceAll& dialog) {
    dialog.txtFind.Text = "108.0";
    dialog.txtReplacement.Text = "LP";
    dialog.cmdReplaceAll_Click();
    EXPECT_TRUE(dialog.Visible());
    dialog.cmdCancel_Click();
  });
  headers.mnuReplaceAll_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"2 occurrences found and replaced."});
  EXPECT_EQ(CellOf(1, "c2"), "LP");
  EXPECT_EQ(CellOf(3, "c2"), "LP");
  EXPECT_EQ(CellOf(4, "c2"), "1080");
  ASSERT_EQ(Commands().CommandCount, 1);
  const TemplateCommand& command = TemplateCommandAt(1);
  EXPECT_EQ(command.CommandType, "REPLACE_ALL");
  EXPECT_EQ(command.FindString, "108.0");
  EXPECT_EQ(command.ReplacementString, "LP");
  EXPECT_EQ(command.ColumnNumber, 2);
  EXPECT_EQ(headers.CurrentColumn, 2);
  EXPECT_FALSE(Run().ResumeGridAfterDialog);
}

TEST_F(CommandDialogsTest, ReplaceAllOfOneCellAndOfNoneUseTheirOwnWords) {
  Species({"FD", "PL"});
  Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  dialog.txtReplacement.Text = "F";
  dialog.cmdReplaceAll_Click();
  dialog.cmdReplaceAll_Click();
  EXPECT_EQ(ui.Texts(),
            (std::vector<std::string>{"1 occurrence found and replaced.", "0 occurrences found and replaced."}));
  EXPECT_EQ(Commands().CommandCount, 2);
}

TEST_F(CommandDialogsTest, ReplaceAllOfTheEmptyTextFillsBlankCellsAndAnEmptyReplacementClears) {
  Species({"FD", "", "PL"});
  Grid();
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtReplacement.Text = "XX";
  dialog.cmdReplaceAll_Click();
  EXPECT_EQ(CellOf(2, "c2"), "XX");
  dialog.txtFind.Text = "PL";
  dialog.txtReplacement.Text = "";
  dialog.cmdReplaceAll_Click();
  EXPECT_EQ(CellOf(3, "c2"), "");
}

TEST_F(CommandDialogsTest, ReplaceAllPastTheLimitIsRefused) {
  Species({"FD"});
  Grid();
  FillTo(100);
  frmReplaceAll& dialog = App().ReplaceAll();
  dialog.txtFind.Text = "FD";
  dialog.txtReplacement.Text = "PL";
  dialog.cmdReplaceAll_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Maximum of 100 template commands."});
  EXPECT_EQ(CellOf(1, "c2"), "FD");
  EXPECT_EQ(Commands().CommandCount, 100);
}

// ---------------------------------------------------------------- the editor

class CommandEditorTest : public CommandDialogsTest {
 protected:
  frmEditTemplateCommands& Editor() { return App().EditTemplateCommands(); }
  struct Enabled {
    bool up, down, edit, del;
    bool operator==(const Enabled&) const = default;
  };
  static Enabled Buttons(const frmEditTemplateCommands& editor) {
    return {editor.cmdUp.Enabled, editor.cmdDown.Enabled, editor.cmdEdit.Enabled, editor.cmdDelete.Enabled};
  }
  void Choose(frmEditTemplateCommands& editor, int index) {
    editor.lstTemplateCommands.Select(index);
    editor.lstTemplateCommands_Click();
  }
};

TEST_F(CommandEditorTest, TheListShowsEachKindInItsOwnWords) {
  Species({"FD"});
  Grid();
  AddCommand(Replace("108.0", "LP"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "PINE"));
  AddCommand(Command("EXCLUDE_STARTING_WITH", 1, "P"));
  AddCommand(Range(5, 20));
  frmEditTemplateCommands& editor = Editor();
  EXPECT_EQ(editor.lstTemplateCommands.Items, (std::vector<std::string>{
                                                  "1/  Replace all \"108.0\" with \"LP\" in column 2 (Species)",
                                                  "2/  Exclude rows with \"PINE\" in column 2 (Species)",
                                                  "3/  Exclude rows starting with \"P\" in column 1 (? column)",
                                                  "4/  Exclude rows in range \"5\" to \"20\"",
                                              }));
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, 0);
  EXPECT_EQ(Buttons(editor), (Enabled{false, true, false, true}));
}

TEST_F(CommandEditorTest, AnEmptyListHasNothingChosenAndItsEntryButtonsOff) {
  Species({"FD"});
  Grid();
  frmEditTemplateCommands& editor = Editor();
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, -1);
  EXPECT_EQ(Buttons(editor), (Enabled{false, false, false, false}));
  EXPECT_TRUE(editor.cmdOk.Enabled);
}

TEST_F(CommandEditorTest, TheButtonsFollowTheEntryChosen) {
  Species({"FD"});
  Grid();
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "A"));
  AddCommand(Replace("B", "C"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "D"));
  frmEditTemplateCommands& editor = Editor();
  Choose(editor, 1);
  EXPECT_EQ(Buttons(editor), (Enabled{true, true, false, true}));
  Choose(editor, 2);
  EXPECT_EQ(Buttons(editor), (Enabled{true, false, true, true}));
  Choose(editor, 0);
  EXPECT_EQ(Buttons(editor), (Enabled{false, true, true, true}));
}

TEST_F(CommandEditorTest, ASingleEntryCanMoveNeitherWay) {
  Species({"FD"});
  Grid();
  AddCommand(Range(1, 2));
  EXPECT_EQ(Buttons(Editor()), (Enabled{false, false, true, true}));
}

TEST_F(CommandEditorTest, UpAndDownSwapWithTheNeighbourAndKeepTheEntryChosen) {
  Species({"FD"});
  Grid();
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "A"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "B"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "C"));
  frmEditTemplateCommands& editor = Editor();
  Choose(editor, 2);
  editor.cmdUp_Click();
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, 1);
  EXPECT_EQ(editor.lstTemplateCommands.Items[1], "2/  Exclude rows with \"C\" in column 2 (Species)");
  EXPECT_EQ(editor.lstTemplateCommands.Items[2], "3/  Exclude rows with \"B\" in column 2 (Species)");
  EXPECT_EQ(Buttons(editor), (Enabled{true, true, true, true}));
  Choose(editor, 0);
  editor.cmdDown_Click();
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, 1);
  EXPECT_EQ(Commands().EditedCommands[0].DeleteString, "C");
  EXPECT_EQ(Commands().EditedCommands[1].DeleteString, "A");
  // Only the editor's copy moved.
  EXPECT_EQ(TemplateCommandAt(1).DeleteString, "A");
}

TEST_F(CommandEditorTest, EditOpensTheDialogOfTheKindFilledFromTheCopy) {
  Species({"FD"});
  Grid();
  AddCommand(Command("EXCLUDE_STARTING_WITH", 2, "P"));
  AddCommand(Range(5, 20));
  AddCommand(Command("EXCLUDE_CONTAINING", 1, "PINE"));
  frmEditTemplateCommands& editor = Editor();
  std::string seen;
  ui.AnswerDialog<frmExcludeStartingWith>([&](frmExcludeStartingWith& dialog) {
    seen = dialog.txtStartText.Text + "|" + dialog.lblColumn.Caption;
    dialog.txtStartText.Text = "PI";
    dialog.cmdOk_Click();
  });
  editor.cmdEdit_Click();
  EXPECT_EQ(seen, "P|2  (Species)");
  EXPECT_EQ(editor.lstTemplateCommands.Items[0], "1/  Exclude rows starting with \"PI\" in column 2 (Species)");
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, 0);
  ui.AnswerDialog<frmExcludeRange>([&](frmExcludeRange& dialog) {
    seen = dialog.txtStartLine.Text + "-" + dialog.txtEndLine.Text;
    dialog.txtEndLine.Text = "25";
    dialog.cmdOk_Click();
  });
  Choose(editor, 1);
  editor.lstTemplateCommands_DblClick();
  EXPECT_EQ(seen, "5-20");
  EXPECT_EQ(editor.lstTemplateCommands.Items[1], "2/  Exclude rows in range \"5\" to \"25\"");
  ui.AnswerDialog<frmExcludeContaining>([&](frmExcludeContaining& dialog) {
    seen = dialog.txtExcludeText.Text + "|" + dialog.lblColumn.Caption;
    dialog.cmdOk_Click();
  });
  Choose(editor, 2);
  editor.cmdEdit_Click();
  EXPECT_EQ(seen, "PINE|1  (? column)");
  EXPECT_EQ(ui.modalDialogs,
            (std::vector<std::string>{"frmExcludeStartingWith", "frmExcludeRange", "frmExcludeContaining"}));
  // Nothing ran on the table, nothing changed in the list in force.
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_EQ(ExcludedLines(), "");
  EXPECT_EQ(TemplateCommandAt(1).DeleteString, "P");
  EXPECT_EQ(Commands().CommandCount, 3);
  EXPECT_TRUE(Run().EditingCommand);
}

TEST_F(CommandEditorTest, DeleteMovesTheLaterEntriesUpAndChoosesTheOneNowInPlace) {
  Species({"FD"});
  Grid();
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "A"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "B"));
  AddCommand(Replace("C", "D"));
  frmEditTemplateCommands& editor = Editor();
  Choose(editor, 1);
  editor.cmdDelete_Click();
  EXPECT_EQ(Commands().EditedCommandCount, 2);
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, 1);
  EXPECT_EQ(editor.lstTemplateCommands.Items[1], "2/  Replace all \"C\" with \"D\" in column 2 (Species)");
  EXPECT_EQ(Buttons(editor), (Enabled{true, false, false, true}));
}

TEST_F(CommandEditorTest, DeletingTheLastEntryChoosesTheNewLastWithItsButtonsOff) {
  Species({"FD"});
  Grid();
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "A"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "B"));
  frmEditTemplateCommands& editor = Editor();
  Choose(editor, 1);
  editor.cmdDelete_Click();
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, 0);
  EXPECT_EQ(Buttons(editor), (Enabled{false, false, false, false}));
  Choose(editor, 0);
  editor.cmdDelete_Click();
  EXPECT_EQ(editor.lstTemplateCommands.ListIndex, -1);
  EXPECT_EQ(editor.lstTemplateCommands.ListCount(), 0);
  EXPECT_EQ(Buttons(editor), (Enabled{false, false, false, false}));
}

TEST_F(CommandEditorTest, CancelLeavesTheCommandsInForceAsTheyWere) {
  Species({"FD"});
  frmHeaders& headers = Grid();
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "A"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "B"));
  ui.answers.push_back(Answer::No);
  ui.AnswerDialog<frmEditTemplateCommands>([](frmEditTemplateCommands& editor) {
    editor.cmdDelete_Click();
    editor.cmdCancel_Click();
  });
  headers.cmdEditTemplateCommands_Click();
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Would you like to save the current view?"});
  EXPECT_EQ(Commands().CommandCount, 2);
  EXPECT_EQ(TemplateCommandAt(1).DeleteString, "A");
  EXPECT_TRUE(Run().UseTemplate);
  EXPECT_FALSE(Run().EditingCommand);
  EXPECT_FALSE(App().EditTemplateCommandsLoaded());
}

// OK takes the copy and lets the exclusions decide again from a table whose
// rows all take part; replacements are not run again.
TEST_F(CommandEditorTest, OkRunsTheExclusionsAgainAndSkipsTheReplacements) {
  Species({"FD", "PL", "FD", "PINE", "AT"});
  frmHeaders& headers = Grid();
  Sql("UPDATE tft SET Excluded = 'Y' WHERE LineNum = 5");
  Sql("UPDATE tft SET c2 = 'LP' WHERE LineNum = 2");
  AddCommand(Replace("PL", "LP"));
  AddCommand(Command("EXCLUDE_CONTAINING", 2, "FD"));
  AddCommand(Command("EXCLUDE_STARTING_WITH", 2, "PI"));
  AddCommand(Range(2, 2));
  Run().TranslationDone = true;
  ui.answers.push_back(Answer::No);
  ui.AnswerDialog<frmEditTemplateCommands>([](frmEditTemplateCommands& editor) {
    editor.lstTemplateCommands.Select(3);
    editor.lstTemplateCommands_Click();
    editor.cmdDelete_Click();
    editor.cmdOk_Click();
  });
  headers.cmdEditTemplateCommands_Click();
  EXPECT_EQ(ExcludedLines(), "1 3 4 ");
  EXPECT_EQ(CellOf(2, "c2"), "LP");
  EXPECT_EQ(Commands().CommandCount, 3);
  EXPECT_FALSE(Run().TranslationDone);
  EXPECT_FALSE(ui.busyPointer);
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Would you like to save the current view?"});
}

TEST_F(CommandEditorTest, AnUnknownKindAtOkIsAnAssertionFailure) {
  Species({"FD"});
  Grid();
  AddCommand(Command("SORT", 2));
  frmEditTemplateCommands& editor = Editor();
  EXPECT_THROW(editor.cmdOk_Click(), ProcessEnded);
  EXPECT_EQ(ui.Texts().back(), "Assertion failure!");
}

TEST_F(CommandEditorTest, TheEditorsOkTakesTheRangeDialogsCommandAsExcludingEveryRow) {
  Species({"A", "B", "C"});
  frmHeaders& headers = Grid();
  frmExcludeRange& range = App().ExcludeRange();
  range.txtStartLine.Text = "2";
  range.txtEndLine.Text = "2";
  range.cmdOk_Click();
  EXPECT_EQ(ExcludedLines(), "2 ");
  ui.answers.push_back(Answer::No);
  ui.AnswerDialog<frmEditTemplateCommands>([](frmEditTemplateCommands& editor) { editor.cmdOk_Click(); });
  headers.cmdEditTemplateCommands_Click();
  EXPECT_EQ(ExcludedLines(), "1 2 3 ");
}

}  // namespace
}  // namespace corvalin
