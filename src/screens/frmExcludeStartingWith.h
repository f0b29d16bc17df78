// frmExcludeStartingWith: excludes the rows whose cell in the chosen column
// begins with the text typed; an empty text excludes every row.
#pragma once

#include "screens/ExclusionDialog.h"

namespace corvalin {

class frmExcludeStartingWith : public ExclusionDialog {
 public:
  const char* Name() const override { return "frmExcludeStartingWith"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 70;
  void Form_Load() override;
  std::vector<Field> Fields() override { return {{"txtStartText", &lblText, &txtStartText}}; }

  TextBox txtStartText;

 protected:
  const char* RecordedKind() const override { return "EXCLUDE_STARTING_WITH"; }
  void FillCommand(TemplateCommand& command) const override;
  void Apply(int16_t& k) const override;
  void Unload() override;
  void DescribeControls(StateDigest& digest) const override;
};

}  // namespace corvalin
