// frmEditTemplateCommands: the template's commands, one line each, to put in
// another order, change or delete. It works on a copy; OK makes the copy the
// list in force and runs its exclusions again on the working table, Cancel
// leaves the list as it was.
#pragma once

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;
struct TemplateCommand;

class frmEditTemplateCommands : public Screen {
 public:
  const char* Name() const override { return "frmEditTemplateCommands"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 100;
  void Form_Load() override;
  // The exclusion dialogs opened from here add commands again.
  void Form_Unload() override;
  void DismissAsCancelled() override { cmdCancel_Click(); }

  ListControl lstTemplateCommands;
  Button cmdUp;
  Button cmdDown;
  Button cmdEdit;
  Button cmdDelete;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

  // Refills the list from the copy, keeping the entry chosen.
  void RebuildList();
  // The copy of the command chosen in the list (the subscript error when
  // none is).
  TemplateCommand& SelectedCommand() const;

  // An entry chosen (the view selects it first): the buttons follow it.
  void lstTemplateCommands_Click();
  void lstTemplateCommands_DblClick();
  void cmdUp_Click();
  void cmdDown_Click();
  void cmdEdit_Click();
  void cmdDelete_Click();
  void cmdOk_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

 protected:
  void DescribeControls(StateDigest& digest) const override;

 private:
  void Choose(int index);
  void EnableEntryButtons(bool enabled);
  void SwapWithNeighbour(int offset);
  void OpenEditor();
};

}  // namespace corvalin
