// frmTemplate: the first screen, where the user says what to do in this pass
// and names the files and the template; and the holder of the paths of a
// run: the labels' captions are the paths, and setting one runs its change
// routine, which checks the file. In an unattended run it is loaded, never
// shown, and its load reads the command line.
#pragma once

#include <string>
#include <vector>

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

class frmTemplate : public Screen {
 public:
  frmTemplate();
  const char* Name() const override { return "frmTemplate"; }

  // The screen's help context.
  static constexpr int kHelpContext = 7;

  void Form_Load() override;

  // Events.
  void lblInputFile_Change();
  void lblOutputFile_Change();
  void lblSlfFile_Change();
  void lblLocationsFile_Change();
  void cmbTemplate_Click();
  void chkTranslateFile_Click();
  void chkEditStandListFile_Click();
  void chkNoInput_Click();
  // The file dialogs: a chosen file becomes the label's caption (and is
  // checked by its change routine); a cancelled dialog changes nothing.
  void cmdChangeInput_Click();
  void cmdChangeOutput_Click();
  void cmdSelectSlf_Click();
  void cmdSelectLocations_Click();
  // Deletes the selected template's file after asking.
  void cmdDeleteTemplate_Click();
  // On to the column screen (or the grid without an input file) in the
  // translate path, or to the stand list editor in the edit path.
  void cmdNext_Click();
  void cmdNextTrans_Click();
  // Translates at once with the template.
  void cmdFinish_Click();
  // The defaults screen, modally.
  void cmdConfigure_Click();
  void cmdHelp_Click();
  void cmdQuit_Click();
  // A close by the window's control menu: the quit question, and the close
  // itself does not happen.
  void CloseRequested();

  // Refreshes fileList from the Work folder, fills cmbTemplate with "None"
  // and the templates fileList holds, and selects name (or "None" when it is
  // empty).
  void RefreshTemplateList(const std::string& name);
  // The templates fileList holds, each file's name up to its first ".":
  // cmbTemplate's entries after "None", and the save dialog's list.
  std::vector<std::string> TemplateNames() const;
  void UpdateGroupEnabling();
  void UpdateNextButtons();

  // Translate group.
  CheckBox chkTranslateFile;
  Control fraTranslateFile;
  CheckBox chkNoInput;
  Button cmdChangeInput;
  Button cmdChangeOutput;
  Label lblInputFile1;
  Label lblOutputFile1;
  Label lblInputFile;
  Label lblOutputFile;
  Label lblTemplateFile1;
  ListControl cmbTemplate;
  Button cmdDeleteTemplate;
  Button cmdNextTrans;
  Button cmdFinish;
  Label Label2;

  // Edit group.
  CheckBox chkEditStandListFile;
  Control fraEditStandListFile;
  Button cmdSelectSlf;
  Button cmdSelectLocations;
  Label lblStandListFile1;
  Label lblLocationFile1;
  Label lblSlfFile;
  Label lblLocationsFile;
  Label Label1;
  Label lblWorkingDirectory;
  Button cmdNext;
  Label Label3;

  Button cmdConfigure;
  Button cmdHelp;
  Button cmdQuit;

  // The template files of the Work folder as RefreshTemplateList last found
  // them, in a stable order.
  FileListBox fileList;

 protected:
  void DescribeControls(StateDigest& digest) const override;

 private:
  void ReadCommandLine();
  void LoadDefaultsFromSettings();
  void SetUpFileDialogs();
  void ChooseFileFor(Label& label, FileDialogRequest& dialog, const std::string& startFolder,
                     const std::string& fileName);
};

}  // namespace corvalin
