#include "screens/frmTemplateName.h"

#include <algorithm>
#include <array>
#include <vector>

#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmTemplate.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace {

bool IsReservedDeviceName(const std::string& name) {
  static constexpr std::array<const char*, 9> kReserved = {"prn",  "lpt1", "lpt2", "lpt3", "lpt4",
                                                           "com1", "com2", "com3", "com4"};
  return std::any_of(kReserved.begin(), kReserved.end(), [&](const char* r) { return name == r; });
}

bool IsNameCharacter(unsigned char c) {
  return (c >= 48 && c <= 57) || (c >= 65 && c <= 90) || c == 95 || (c >= 97 && c <= 122);
}

}  // namespace

void frmTemplateName::Form_Load() {
  RunEvent([&] {
    // The first screen's list of templates, so that both leave out the same
    // files. Taken first: a first screen loaded only now has its own load
    // run, which names itself the current screen.
    const std::vector<std::string> templates = App().Template().TemplateNames();
    Run().CurrentScreen = "templateName";
    HelpContextID = kHelpContext;
    Caption = std::string(ApplicationTitle) + " - Save Template As...";
    Label1.Caption = "Template Name:";
    cmdOk.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    cmdHelp.Caption = "Help";
    Run().TemplateSaved = false;
    for (const std::string& name : templates) cmbTemplateName.AddItem(name);
  });
}

void frmTemplateName::cmbTemplateName_Change() {
  if (cmbTemplateName.Text.size() > kMaxTemplateNameLength) cmbTemplateName.Text.resize(kMaxTemplateNameLength);
}

void frmTemplateName::SetText(const std::string& text) {
  cmbTemplateName.Text = text;
  cmbTemplateName_Change();
}

void frmTemplateName::cmdOk_Click() {
  RunEvent([&] {
    std::string& name = cmbTemplateName.Text;
    name = ToLower(name);
    cmbTemplateName_Change();
    if (name.size() > kMaxTemplateNameLength) {
      ShowMessage("Template name must be 8 characters or less");
      return;
    }
    if (IsReservedDeviceName(name)) {
      ShowMessage("Invalid name - reserved by system.");
      return;
    }
    for (unsigned char c : name) {
      if (!IsNameCharacter(c)) {
        ShowMessage("Template name may contain only alpha-numeric or underscore characters.");
        return;
      }
    }
    for (const std::string& existing : cmbTemplateName.Items) {
      if (name != existing) continue;
      const Answer answer =
          UI().Message({"Save over existing template?", Buttons::YesNo, Icon::Question, "", 1});
      if (answer == Answer::No) return;
    }
    Run().TemplateSaved = true;
    Hide();
  });
}

void frmTemplateName::cmdCancel_Click() {
  Run().TemplateSaved = false;
  Hide();
}

void frmTemplateName::Form_QueryUnload(int unloadMode) {
  if (unloadMode == 1) return;
  Run().TemplateSaved = false;
  Hide();
}

void frmTemplateName::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void frmTemplateName::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << cmbTemplateName << Label1 << cmdOk << cmdCancel << cmdHelp;
}

}  // namespace corvalin
