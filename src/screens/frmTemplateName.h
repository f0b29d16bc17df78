// frmTemplateName: asks the name under which the grid's state is saved as a
// template, and holds the naming rules of templates: at most 8 characters,
// lower case, letters, digits and underscore, no device name.
#pragma once

#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

// Names are short because templates travel with old file systems.
inline constexpr std::size_t kMaxTemplateNameLength = 8;

class frmTemplateName : public Screen {
 public:
  const char* Name() const override { return "frmTemplateName"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 40;
  void Form_Load() override;

  ListControl cmbTemplateName;
  Label Label1;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

  // Typing: a text of more than 8 characters is cut back to 8. A view sets
  // the text and calls this; SetText does both.
  void cmbTemplateName_Change();
  void SetText(const std::string& text);
  void cmdOk_Click();
  void cmdCancel_Click();
  // Help on this dialog.
  void cmdHelp_Click();
  // The close box and other unloads: unload mode 1 is the program's own.
  void Form_QueryUnload(int unloadMode);

 protected:
  void DescribeControls(StateDigest& digest) const override;
};

}  // namespace corvalin
