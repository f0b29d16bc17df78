#include "screens/frmExcludeRange.h"

#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "shell/Failure.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"

namespace corvalin {

void frmExcludeRange::Form_Load() {
  RunEvent([&] {
    // The range plays no part with columns: the dialog shows none.
    LoadDialog("ExcludeRange", " - Exclude Rows in Range...", kHelpContext, false);
    lblText.Caption = "From line:";
    lblEndLine.Caption = "To line:";
  });
}

void frmExcludeRange::FillCommand(TemplateCommand& command) const {
  command.StartLine = StoredInteger(txtStartLine.Text);
  command.EndLine = StoredInteger(txtEndLine.Text);
}

void frmExcludeRange::Apply(int16_t& k) const { ApplyExcludeRange(k, App().Headers().Adodc1.Recordset); }

void frmExcludeRange::Unload() { App().UnloadExcludeRange(); }

void frmExcludeRange::DescribeControls(StateDigest& digest) const {
  ExclusionDialog::DescribeControls(digest);
  digest << lblEndLine << txtStartLine << txtEndLine;
}

}  // namespace corvalin
