// frmLocation: the location file editor, the last step of the editing flow.
// The file is shown as its raw record lines; records are inserted behind the
// selection, edited in frmLocationRecord, moved, deleted and saved. Done
// saves pending changes (when the stand list is in order) and returns to the
// first screen.
#pragma once

#include "screens/Controls.h"
#include "screens/RecordLines.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

inline constexpr const char* LocationCaptionSuffix = " - Edit Location File";
inline constexpr const char* NewLocationPlaceholder = " *** new record A *** ";

class frmLocation : public Screen {
 public:
  frmLocation();
  const char* Name() const override { return "frmLocation"; }
  void Form_Load() override;

  ListControl lstLocation;
  // The captions of the frames around the insert button and the four
  // buttons that act on the selected line.
  Label fraAddRecord;
  Label fraEditRecord;
  Button cmdInsertA;
  Button cmdUp, cmdDown, cmdEdit, cmdDelete;
  Button cmdSave;
  Button cmdDone;
  Button cmdBack;
  Button cmdQuit;
  Button cmdHelp;

  void lstLocation_Click();
  void lstLocation_DblClick();
  void cmdInsertA_Click();
  void cmdUp_Click();
  void cmdDown_Click();
  void cmdEdit_Click();
  void cmdDelete_Click();
  void cmdSave_Click();
  void cmdDone_Click();
  void cmdBack_Click();
  void cmdQuit_Click();
  void cmdHelp_Click();
  // Returns whether the close is cancelled.
  bool Form_QueryUnload(CloseReason reason);

  // The four buttons that act on the selected line.
  RecordLineButtons LineButtons();
  // How the location file is saved and left.
  static RecordFileFlow FileFlow();

 protected:
  void DescribeControls(StateDigest& digest) const override;
};

// Writes every line of lstLocation to the file named by lblLocationsFile on
// frmTemplate, with CR LF, and sets LocationFileSaved. A failure is reported
// as "Error writing Location file." with the module and the error.
void WriteLocationFile();

}  // namespace corvalin
