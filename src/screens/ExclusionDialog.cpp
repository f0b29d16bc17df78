#include "screens/ExclusionDialog.h"

#include "columns/Vocabulary.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmHeaders.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "templates/TemplateCommands.h"

namespace corvalin {

std::string CommandColumnCaption(int16_t column) {
  // A command read from a template may name a column the grid does not
  // have; its number is shown all the same.
  const auto& captions = App().Headers().ColumnCaption;
  const bool known = column >= 0 && static_cast<std::size_t>(column) < captions.size();
  const std::string type = known ? HeadingType(captions[static_cast<std::size_t>(column)]) : std::string();
  return std::to_string(column) + "  (" + type + ")";
}

std::string HitCountText(const char* noun, const char* rest) {
  const int16_t hits = Commands().CommandHitCount;
  return std::to_string(hits) + " " + noun + (hits == 1 ? "" : "s") + rest;
}

void ExclusionDialog::LoadDialog(const char* screenWord, const char* titleEnding, int helpContext,
                                 bool showsColumn) {
  Run().CurrentScreen = screenWord;
  Caption = std::string(ApplicationTitle) + titleEnding;
  HelpContextID = helpContext;
  cmdOk.Caption = "OK";
  cmdCancel.Caption = "Cancel";
  cmdHelp.Caption = "Help";
  lblColumn.Visible = showsColumn;
  if (!showsColumn) return;
  // The column of the command being edited, else the one chosen on the grid.
  int16_t column = App().Headers().CurrentColumn;
  if (Run().EditingCommand) column = App().EditTemplateCommands().SelectedCommand().ColumnNumber;
  lblColumn.Caption = CommandColumnCaption(column);
}

void ExclusionDialog::cmdOk_Click() {
  RunEvent([&] {
    TemplateCommandState& state = Commands();
    if (Run().EditingCommand) {
      frmEditTemplateCommands& editor = App().EditTemplateCommands();
      FillCommand(editor.SelectedCommand());
      Hide();
      Unload();
      editor.RebuildList();
      return;
    }
    if (state.CommandCount >= kMaxTemplateCommands) {
      ShowMessage(CommandLimitMessage());
      return;
    }
    state.CommandCount = Inc16(state.CommandCount);
    int16_t k = state.CommandCount;
    TemplateCommand& command = TemplateCommandAt(k);
    command = TemplateCommand{};
    command.CommandType = RecordedKind();
    FillCommand(command);
    frmHeaders& headers = App().Headers();
    command.ColumnNumber = headers.CurrentColumn;
    Apply(k);
    headers.RefreshGrid();
    ShowMessage(HitCountText("row", " excluded."));
    Hide();
    Unload();
  });
}

void ExclusionDialog::cmdCancel_Click() {
  RunEvent([&] {
    Hide();
    Unload();
  });
}

void ExclusionDialog::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void ExclusionDialog::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lblColumn << lblText << cmdOk << cmdCancel << cmdHelp;
}

}  // namespace corvalin
