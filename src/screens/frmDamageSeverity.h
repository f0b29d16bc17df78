// frmDamageSeverity: edits a damage/severity pair cell. The damage list shows
// the families; the severity list is built for the family of the damage code
// when it gets the focus. OK writes the two codes, the severity right-
// justified, into the grid cell whose button was pressed; no check is made
// here, the red marking and the validation judge the cell.
#pragma once

#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

class frmDamageSeverity : public Screen {
 public:
  const char* Name() const override { return "frmDamageSeverity"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 50;
  void Form_Load() override;
  void DismissAsCancelled() override { cmdCancel_Click(); }

  Label lblDamage;
  Label lblSeverity;
  ListControl cmbDamage;
  ListControl cmbSeverity;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

  // Preloads the two texts from a pair cell.
  void Preload(const std::string& cellText);
  // Picking an entry (the view selects it first).
  void cmbDamage_Click();
  void cmbSeverity_Click();
  // Typing in the severity field.
  void cmbSeverity_Change();
  void SetSeverityText(const std::string& text);
  // The focus enters the severity field: its list is rebuilt.
  void cmbSeverity_GotFocus();
  // The text OK puts in the cell.
  std::string CellText() const;
  // Both end the dialog: it is unloaded.
  void cmdOk_Click();
  void cmdCancel_Click();
  // Help on this dialog.
  void cmdHelp_Click();

 protected:
  void DescribeControls(StateDigest& digest) const override;
};

}  // namespace corvalin
