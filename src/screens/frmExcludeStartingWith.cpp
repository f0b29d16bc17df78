#include "screens/frmExcludeStartingWith.h"

#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "shell/Failure.h"
#include "templates/TemplateCommands.h"

namespace corvalin {

void frmExcludeStartingWith::Form_Load() {
  RunEvent([&] {
    LoadDialog("ExcludeStarting", " - Exclude Rows Starting With...", kHelpContext, true);
    lblText.Caption = "Exclude rows starting with:";
  });
}

void frmExcludeStartingWith::FillCommand(TemplateCommand& command) const { command.DeleteString = txtStartText.Text; }

void frmExcludeStartingWith::Apply(int16_t& k) const { ApplyExcludeStartingWith(k, App().Headers().Adodc1.Recordset); }

void frmExcludeStartingWith::Unload() { App().UnloadExcludeStartingWith(); }

void frmExcludeStartingWith::DescribeControls(StateDigest& digest) const {
  ExclusionDialog::DescribeControls(digest);
  digest << txtStartText;
}

}  // namespace corvalin
