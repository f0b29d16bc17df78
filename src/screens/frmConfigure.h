// frmConfigure: the screen of the defaults. It opens by itself at the first
// interactive start and from "Change Defaults" on frmTemplate. Its controls
// are filled from the settings store when it loads and saved only by
// "Set Defaults"; Cancel keeps everything as it was. Variant and units set
// here give way to those of a template.
#pragma once

#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

// Whether a file dialog filter ("Text (*.txt)|*.txt|...") can be used: it
// comes in pairs of a description and its patterns, so the number of its
// "|"-separated parts is even and no description is empty.
bool FileDialogFilterValid(const std::string& filter);

class frmConfigure : public Screen {
 public:
  frmConfigure();
  const char* Name() const override { return "frmConfigure"; }

  static constexpr int kHelpContext = 6;

  void Form_Load() override;

  // Events.
  void chkTranslateFile_Click();
  void chkEditStandListFile_Click();
  void cmdSelectInputFile_Click();
  void cmdSelectOutputFile_Click();
  void cmdSelectWorkingDir_Click();
  void cmdSelectStandListFile_Click();
  void cmdSelectLocationFile_Click();
  void cmdClearStandListFile_Click();
  void cmdClearLocationFile_Click();
  void cmdOk_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();
  // The close box: the quit question, and the close itself is cancelled
  // (true); by the program's own unload nothing; any other close ends the
  // program.
  bool Form_QueryUnload(CloseReason reason);
  // A modal dialog left open ends as its Cancel.
  void DismissAsCancelled() override;

  void UpdateConfigureEnabling();

  // Translate group.
  CheckBox chkTranslateFile;
  Control fraTranslate;
  Label Label2;  // "Input Directory:"
  Label lblInputFile;
  Button cmdSelectInputFile;
  Label Label3;  // "Output Directory:"
  Label lblOutputFile;
  Button cmdSelectOutputFile;
  Label Label11;  // "File dialog entries (description|patterns|):"
  Label Label4;   // "Input Files:"
  TextBox txtInputFileExtensions;
  Label Label7;  // "Output Files:"
  TextBox txtOutputFileExtensions;
  Label Label8;  // "Template:"
  ListControl cmbTemplate;
  Label Label9;  // "Variant:"
  ListControl cmbVariant;
  Label Label10;  // "Input Units:"
  OptionButton optMetric;
  OptionButton optImperial;
  Label Label12;  // "Variant and unit defaults are over-ridden by templates."

  // Edit group.
  CheckBox chkEditStandListFile;
  Control fraEditMarlowyn;
  Label Label1;  // "Marlowyn Working Directory:"
  Label lblWorkingDirectory;
  Button cmdSelectWorkingDir;
  Label Label5;  // "Stand List Directory:"
  Label lblStandListFile;
  Button cmdSelectStandListFile;
  Button cmdClearStandListFile;
  Label Label6;  // "Location Directory:"
  Label lblLocationFile;
  Button cmdSelectLocationFile;
  Button cmdClearLocationFile;

  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

 protected:
  void DescribeControls(StateDigest& digest) const override;

 private:
  // A folder pick: the folder dialog starts at startFolder, and a chosen
  // folder replaces the label's caption; a cancelled dialog changes nothing.
  void PickFolder(Label& label, const std::string& title, const std::string& startFolder);
  void PickDefaultFileFolder(Label& label, const std::string& title);
  void SelectDefaultVariant();
  // The filter of one of frmMain's file dialogs with the typed entry in
  // front; false when the filter cannot be used.
  bool TryFilter(const std::string& typed, const std::string& standard, std::string& filter) const;
};

}  // namespace corvalin
