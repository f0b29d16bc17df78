#include "screens/frmExcludeContaining.h"

#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "shell/Failure.h"
#include "templates/TemplateCommands.h"

namespace corvalin {

void frmExcludeContaining::Form_Load() {
  RunEvent([&] {
    LoadDialog("Exclude Containing", " - Exclude Rows Containing...", kHelpContext, true);
    lblText.Caption = "Exclude rows with:";
  });
}

void frmExcludeContaining::FillCommand(TemplateCommand& command) const { command.DeleteString = txtExcludeText.Text; }

void frmExcludeContaining::Apply(int16_t& k) const { ApplyExcludeContaining(k, App().Headers().Adodc1.Recordset); }

void frmExcludeContaining::Unload() { App().UnloadExcludeContaining(); }

void frmExcludeContaining::DescribeControls(StateDigest& digest) const {
  ExclusionDialog::DescribeControls(digest);
  digest << txtExcludeText;
}

}  // namespace corvalin
