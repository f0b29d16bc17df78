#include "screens/frmReplaceAll.h"

#include "screens/Application.h"
#include "screens/ExclusionDialog.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"

namespace corvalin {

namespace {

// The busy pointer and the guard of a button's work. The guard is cleared
// however the work ends, so that a failure does not leave the button dead
// for the rest of the dialog; the pointer goes back at the end of the work
// only: after a failure it stays busy until the next routine sets it, as
// after every failure.
class SearchRun {
 public:
  explicit SearchRun(bool& active) : active_(active) {
    active_ = true;
    UI().SetBusyPointer(true);
  }
  ~SearchRun() { active_ = false; }
  void Done() { UI().SetBusyPointer(false); }
  SearchRun(const SearchRun&) = delete;
  SearchRun& operator=(const SearchRun&) = delete;

 private:
  bool& active_;
};

std::shared_ptr<Recordset> CloneOfGrid(const frmHeaders& headers) {
  if (!headers.Adodc1.Recordset) Raise(err::ObjectNotSet);
  return headers.Adodc1.Recordset->Clone();
}

}  // namespace

void frmReplaceAll::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "ReplaceAll";
    HelpContextID = kHelpContext;
    Caption = std::string(ApplicationTitle) + " - Find/Replace";
    lblFind.Caption = "Find:";
    lblReplacement.Caption = "Replace with:";
    cmdFindNext.Caption = "Find Next";
    cmdReplace.Caption = "Replace";
    cmdReplaceAll.Caption = "Replace All";
    cmdCancel.Caption = "Cancel";
    cmdHelp.Caption = "Help";
    lblColumn.Caption = CommandColumnCaption(App().Headers().CurrentColumn);
    // The grid keeps its rows and its place when the dialog goes.
    Run().ResumeGridAfterDialog = true;
  });
}

Recordset::Bookmark frmReplaceAll::FindMatch(bool afterRow) const {
  const frmHeaders& headers = App().Headers();
  auto rows = CloneOfGrid(headers);
  const std::string field = "c" + std::to_string(headers.CurrentColumn);
  rows->MoveFirst();
  while (!rows->IsEOF()) {
    // The grid's Row counts rows on view, yet it is compared with the input
    // line: templates and habits were made with this search.
    const bool pastRow = !afterRow || StoredInteger(rows->Text("LineNum")) > headers.Row;
    const auto cell = rows->Value(field);
    if (pastRow && cell && *cell == txtFind.Text) return rows->GetBookmark();
    rows->MoveNext();
  }
  return -1;
}

void frmReplaceAll::SelectFound(Recordset::Bookmark found) const {
  frmHeaders& headers = App().Headers();
  auto rows = CloneOfGrid(headers);
  rows->SetBookmark(found);
  if (!headers.chkShowExcludedRows.Checked() && rows->TextOrEmpty("Excluded") == "N") headers.SelectGridRow(found);
  headers.SelectGridRow(found);
}

void frmReplaceAll::EndOfSearch(int16_t column) const {
  frmHeaders& headers = App().Headers();
  headers.CurrentColumn = column;
  headers.cmbHeaderChoices.Enabled = true;
  headers.cmbUnitChoices.Enabled = true;
}

void frmReplaceAll::cmdFindNext_Click() {
  RunEvent([&] {
    if (FindActive) return;
    SearchRun run(FindActive);
    const int16_t column = App().Headers().CurrentColumn;
    Recordset::Bookmark found = FindMatch(true);
    if (found < 0) {
      const Answer again =
          UI().Message({"Couldn't find match.  Start from top?", Buttons::YesNo, Icon::Question, "", 1});
      if (again == Answer::Yes) {
        found = FindMatch(false);
        if (found < 0) ShowMessage("No match in column");
      }
    }
    if (found >= 0) SelectFound(found);
    EndOfSearch(column);
    run.Done();
  });
}

void frmReplaceAll::cmdReplace_Click() {
  RunEvent([&] {
    if (ReplaceActive) return;
    SearchRun run(ReplaceActive);
    frmHeaders& headers = App().Headers();
    const int16_t column = headers.CurrentColumn;
    const Recordset::Bookmark found = FindMatch(true);
    if (found >= 0) {
      SelectFound(found);
      auto rows = CloneOfGrid(headers);
      rows->SetBookmark(found);
      rows->SetValue("c" + std::to_string(column), txtReplacement.Text);
      rows->Update();
      headers.RefreshGrid();
      UI().DoEvents();
      // Back to the row at the top of the view; a grid with no rows on view
      // has none to go back to.
      const Recordset::Bookmark top = headers.Geometry().RowBookmark(0);
      if (top >= 0) headers.SelectGridRow(top);
    } else {
      ShowMessage("No match in current cell.");
    }
    EndOfSearch(column);
    run.Done();
  });
}

void frmReplaceAll::cmdReplaceAll_Click() {
  RunEvent([&] {
    TemplateCommandState& state = Commands();
    if (state.CommandCount >= kMaxTemplateCommands) {
      ShowMessage(CommandLimitMessage());
      return;
    }
    frmHeaders& headers = App().Headers();
    const int16_t column = headers.CurrentColumn;
    state.CommandCount = Inc16(state.CommandCount);
    int16_t k = state.CommandCount;
    TemplateCommand& command = TemplateCommandAt(k);
    command = TemplateCommand{};
    command.CommandType = "REPLACE_ALL";
    command.FindString = txtFind.Text;
    command.ReplacementString = txtReplacement.Text;
    command.ColumnNumber = column;
    ApplyReplaceAll(k, headers.Adodc1.Recordset);
    headers.RefreshGrid();
    UI().DoEvents();
    ShowMessage(HitCountText("occurrence", " found and replaced."));
    EndOfSearch(column);
  });
}

void frmReplaceAll::cmdCancel_Click() {
  RunEvent([&] {
    Hide();
    App().UnloadReplaceAll();
  });
}

void frmReplaceAll::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void frmReplaceAll::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lblColumn << lblFind << lblReplacement << txtFind << txtReplacement << cmdFindNext << cmdReplace
         << cmdReplaceAll << cmdCancel << cmdHelp;
}

}  // namespace corvalin
