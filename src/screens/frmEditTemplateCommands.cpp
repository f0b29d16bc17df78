#include "screens/frmEditTemplateCommands.h"

#include <utility>

#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmExcludeContaining.h"
#include "screens/frmExcludeRange.h"
#include "screens/frmExcludeStartingWith.h"
#include "screens/frmHeaders.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "templates/TemplateCommands.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

namespace {

TemplateCommand& EditedCommandAt(int index) {
  if (index < 0 || index >= Commands().EditedCommandCount) Raise(err::SubscriptOutOfRange);
  return Commands().EditedCommands[static_cast<std::size_t>(index)];
}

}  // namespace

void frmEditTemplateCommands::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "EditTemplate";
    HelpContextID = kHelpContext;
    Caption = std::string(ApplicationTitle) + " - Edit Template Commands";
    cmdUp.Caption = "Up";
    cmdDown.Caption = "Down";
    cmdEdit.Caption = "Edit";
    cmdDelete.Caption = "Delete";
    cmdOk.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    cmdHelp.Caption = "Help";
    TemplateCommandState& state = Commands();
    state.EditedCommands = state.TemplateCommands;
    state.EditedCommandCount = state.CommandCount;
    lstTemplateCommands.Clear();
    for (const std::string& line : BuildCommandList(App().Headers().ColumnCaption)) lstTemplateCommands.AddItem(line);
    if (lstTemplateCommands.ListCount() > 0) {
      Choose(0);
    } else {
      EnableEntryButtons(false);
    }
  });
}

void frmEditTemplateCommands::Form_Unload() { Run().EditingCommand = false; }

void frmEditTemplateCommands::RebuildList() {
  const int chosen = lstTemplateCommands.ListIndex;
  lstTemplateCommands.Clear();
  for (const std::string& line : BuildCommandList(App().Headers().ColumnCaption)) lstTemplateCommands.AddItem(line);
  if (chosen >= 0 && chosen < lstTemplateCommands.ListCount()) lstTemplateCommands.Select(chosen);
}

TemplateCommand& frmEditTemplateCommands::SelectedCommand() const {
  return EditedCommandAt(lstTemplateCommands.ListIndex);
}

void frmEditTemplateCommands::Choose(int index) {
  lstTemplateCommands.Select(index);
  lstTemplateCommands_Click();
}

void frmEditTemplateCommands::EnableEntryButtons(bool enabled) {
  cmdUp.Enabled = enabled;
  cmdDown.Enabled = enabled;
  cmdEdit.Enabled = enabled;
  cmdDelete.Enabled = enabled;
}

void frmEditTemplateCommands::lstTemplateCommands_Click() {
  RunEvent([&] {
    const int index = lstTemplateCommands.ListIndex;
    if (index < 0) {
      EnableEntryButtons(false);
      return;
    }
    // Replacements cannot be edited: the cells already hold the new text.
    cmdEdit.Enabled = EditedCommandAt(index).CommandType != "REPLACE_ALL";
    cmdDelete.Enabled = true;
    const int last = lstTemplateCommands.ListCount() - 1;
    cmdUp.Enabled = index > 0;
    cmdDown.Enabled = index < last;
  });
}

void frmEditTemplateCommands::lstTemplateCommands_DblClick() { OpenEditor(); }

void frmEditTemplateCommands::cmdEdit_Click() { OpenEditor(); }

void frmEditTemplateCommands::OpenEditor() {
  RunEvent([&] {
    const TemplateCommand& command = SelectedCommand();
    // The flag is on before the dialog loads: its column is the command's.
    if (command.CommandType == "EXCLUDE_STARTING_WITH") {
      Run().EditingCommand = true;
      frmExcludeStartingWith& dialog = App().ExcludeStartingWith();
      dialog.txtStartText.Text = command.DeleteString;
      App().ShowModal(dialog);
    } else if (command.CommandType == "EXCLUDE_RANGE") {
      Run().EditingCommand = true;
      frmExcludeRange& dialog = App().ExcludeRange();
      dialog.txtStartLine.Text = std::to_string(command.StartLine);
      dialog.txtEndLine.Text = std::to_string(command.EndLine);
      App().ShowModal(dialog);
    } else if (command.CommandType == "EXCLUDE_CONTAINING") {
      Run().EditingCommand = true;
      frmExcludeContaining& dialog = App().ExcludeContaining();
      dialog.txtExcludeText.Text = command.DeleteString;
      App().ShowModal(dialog);
    }
  });
}

void frmEditTemplateCommands::SwapWithNeighbour(int offset) {
  const int index = lstTemplateCommands.ListIndex;
  std::swap(EditedCommandAt(index), EditedCommandAt(index + offset));
  RebuildList();
  Choose(index + offset);
}

void frmEditTemplateCommands::cmdUp_Click() {
  RunEvent([&] { SwapWithNeighbour(-1); });
}

void frmEditTemplateCommands::cmdDown_Click() {
  RunEvent([&] { SwapWithNeighbour(1); });
}

void frmEditTemplateCommands::cmdDelete_Click() {
  RunEvent([&] {
    const int index = lstTemplateCommands.ListIndex;
    Assert(index >= 0);
    TemplateCommandState& state = Commands();
    EditedCommandAt(index);
    for (int k = index; k + 1 < state.EditedCommandCount; ++k)
      state.EditedCommands[static_cast<std::size_t>(k)] = state.EditedCommands[static_cast<std::size_t>(k + 1)];
    state.EditedCommandCount = ToInt16(static_cast<long long>(state.EditedCommandCount) - 1);
    RebuildList();
    if (index < lstTemplateCommands.ListCount()) {
      Choose(index);
    } else {
      // The last entry went: the new last one is shown chosen, but the
      // buttons wait until the person chooses one.
      lstTemplateCommands.Select(lstTemplateCommands.ListCount() - 1);
      EnableEntryButtons(false);
    }
  });
}

void frmEditTemplateCommands::cmdOk_Click() {
  RunEvent([&] {
    UI().SetBusyPointer(true);
    TemplateCommandState& state = Commands();
    state.TemplateCommands = state.EditedCommands;
    state.CommandCount = state.EditedCommandCount;
    // Every row takes part again; the exclusions of the list decide anew.
    // Replacements are not run again: their cells still hold the new text.
    frmHeaders& headers = App().Headers();
    OpenDatabase();
    DatabaseEngine().SQLString("update tft set Excluded = 'N'");
    int32_t affected = 0;
    DatabaseEngine().Execute(affected);
    headers.RebindGrid();
    CloseDatabase();
    for (int16_t k = 1; k <= state.CommandCount; k = Inc16(k)) {
      const std::string& type = TemplateCommandAt(k).CommandType;
      int16_t index = k;
      if (type == "EXCLUDE_CONTAINING") {
        ApplyExcludeContaining(index, headers.Adodc1.Recordset);
      } else if (type == "EXCLUDE_STARTING_WITH") {
        ApplyExcludeStartingWith(index, headers.Adodc1.Recordset);
      } else if (type == "EXCLUDE_RANGE") {
        ApplyExcludeRange(index, headers.Adodc1.Recordset);
      } else {
        Assert(type == "REPLACE_ALL");
      }
    }
    headers.RefreshGrid();
    Run().TranslationDone = false;
    UI().SetBusyPointer(false);
    Hide();
    App().UnloadEditTemplateCommands();
  });
}

void frmEditTemplateCommands::cmdCancel_Click() {
  RunEvent([&] {
    Hide();
    App().UnloadEditTemplateCommands();
  });
}

void frmEditTemplateCommands::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void frmEditTemplateCommands::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lstTemplateCommands << cmdUp << cmdDown << cmdEdit << cmdDelete << cmdOk << cmdCancel << cmdHelp;
}

}  // namespace corvalin
