#include "screens/frmDamageSeverity.h"

#include "columns/DamageSeverity.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Text.h"

namespace corvalin {

void frmDamageSeverity::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "DamageSeverity";
    HelpContextID = kHelpContext;
    Caption = std::string(ApplicationTitle) + " - Edit Damage/Severity Pair";
    lblDamage.Caption = "Damage Code:";
    lblSeverity.Caption = "Severity Code:";
    cmdOk.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    cmdHelp.Caption = "Help";
    cmbDamage.Clear();
    for (const std::string& item : DamageItems()) cmbDamage.AddItem(item);
    cmbSeverity.Clear();
  });
}

void frmDamageSeverity::Preload(const std::string& cellText) {
  cmbDamage.Text = cellText.substr(0, 2);
  cmbSeverity.Text = cellText.size() > 2 ? TrimBlanks(cellText.substr(2, 2)) : std::string();
}

void frmDamageSeverity::cmbDamage_Click() {
  // Every item carries the code's two digits at characters 3 and 4; an item
  // for a range gives the first code of the range.
  if (cmbDamage.ListIndex < 0) return;
  cmbDamage.Text = cmbDamage.Items[static_cast<std::size_t>(cmbDamage.ListIndex)].substr(2, 2);
}

void frmDamageSeverity::cmbSeverity_Click() {
  if (cmbSeverity.ListIndex < 0) return;
  cmbSeverity.Text = cmbSeverity.Items[static_cast<std::size_t>(cmbSeverity.ListIndex)].substr(2, 1);
}

void frmDamageSeverity::cmbSeverity_Change() {
  if (cmbSeverity.Text.size() > 2) cmbSeverity.Text.resize(2);
}

void frmDamageSeverity::SetSeverityText(const std::string& text) {
  cmbSeverity.Text = text;
  cmbSeverity_Change();
}

void frmDamageSeverity::cmbSeverity_GotFocus() {
  RunEvent([&] {
    const std::string text = cmbSeverity.Text;
    cmbSeverity.Items.clear();
    cmbSeverity.ListIndex = -1;
    cmbSeverity.Text = text;
    const std::string dmg = cmbDamage.Text.substr(0, 2);
    const int d = CodeValue(dmg);
    if (d < 1) return;
    if (d < 10 && !dmg.empty() && dmg[0] != ' ' && dmg[0] != '0') return;
    const DamageFamily* family = DamageFamilyOf(d);
    if (family == nullptr) return;
    for (const std::string& item : family->severityItems) cmbSeverity.AddItem(item);
  });
}

std::string frmDamageSeverity::CellText() const {
  std::string sev = TrimBlanks(cmbSeverity.Text).substr(0, 2);
  if (sev.size() < 2) sev = " " + sev;
  return cmbDamage.Text.substr(0, 2) + sev;
}

void frmDamageSeverity::cmdOk_Click() {
  RunEvent([&] {
    frmHeaders& headers = App().Headers();
    if (!headers.Adodc1.Recordset) Raise(err::ObjectNotSet);
    Recordset& rows = *headers.Adodc1.Recordset;
    rows.SetValue("c" + std::to_string(headers.ButtonColumn), CellText());
    rows.Update();
    headers.RefreshGrid();
    Hide();
    App().UnloadDamageSeverity();
  });
}

void frmDamageSeverity::cmdCancel_Click() {
  RunEvent([&] {
    Hide();
    App().UnloadDamageSeverity();
  });
}

void frmDamageSeverity::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void frmDamageSeverity::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lblDamage << lblSeverity << cmbDamage << cmbSeverity << cmdOk << cmdCancel << cmdHelp;
}

}  // namespace corvalin
