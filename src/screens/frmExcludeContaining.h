// frmExcludeContaining: excludes the rows whose cell in the chosen column is
// the text typed, the whole cell and case alike.
#pragma once

#include "screens/ExclusionDialog.h"

namespace corvalin {

class frmExcludeContaining : public ExclusionDialog {
 public:
  const char* Name() const override { return "frmExcludeContaining"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 60;
  void Form_Load() override;
  std::vector<Field> Fields() override { return {{"txtExcludeText", &lblText, &txtExcludeText}}; }

  TextBox txtExcludeText;

 protected:
  const char* RecordedKind() const override { return "EXCLUDE_CONTAINING"; }
  void FillCommand(TemplateCommand& command) const override;
  void Apply(int16_t& k) const override;
  void Unload() override;
  void DescribeControls(StateDigest& digest) const override;
};

}  // namespace corvalin
