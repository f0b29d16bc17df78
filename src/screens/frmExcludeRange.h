// frmExcludeRange: excludes the rows of a span of input lines at once. The
// command it records is a starting-with command with an empty text, which a
// replay runs as "exclude every row still taking part": templates saved so
// far hold such commands and must keep their effect.
#pragma once

#include "screens/ExclusionDialog.h"

namespace corvalin {

class frmExcludeRange : public ExclusionDialog {
 public:
  const char* Name() const override { return "frmExcludeRange"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 80;
  void Form_Load() override;
  std::vector<Field> Fields() override {
    return {{"txtStartLine", &lblText, &txtStartLine}, {"txtEndLine", &lblEndLine, &txtEndLine}};
  }

  Label lblEndLine;
  TextBox txtStartLine;
  TextBox txtEndLine;

 protected:
  const char* RecordedKind() const override { return "EXCLUDE_STARTING_WITH"; }
  // The two line numbers; text that is no number fails with the type error.
  void FillCommand(TemplateCommand& command) const override;
  void Apply(int16_t& k) const override;
  void Unload() override;
  void DescribeControls(StateDigest& digest) const override;
};

}  // namespace corvalin
