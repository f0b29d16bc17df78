// frmSlf: the stand list editor. The stand list file is shown as its raw
// record lines; records are inserted behind the selection, edited in
// frmSlfRecord, moved, deleted, validated against the sequence rules and
// saved in place. The list is the one working copy of the file and lives as
// long as the screen stays loaded.
#pragma once

#include <string>

#include "screens/Controls.h"
#include "screens/RecordLines.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

inline constexpr const char* SlfCaptionSuffix = " - Edit Stand List File";
// The rows that stand in the list while a new record's dialog is open.
inline constexpr const char* NewRecordAPlaceholder = " *** new record A *** ";
inline constexpr const char* NewRecordBPlaceholder = " *** new record B *** ";
inline constexpr const char* NewRecordCPlaceholder = " *** new record C *** ";
inline constexpr const char* NewRecordDPlaceholder = " *** new record D *** ";

class frmSlf : public Screen {
 public:
  frmSlf();
  const char* Name() const override { return "frmSlf"; }
  void Form_Load() override;

  ListControl lstSlf;
  Label lblVariant;  // the heading of cmbVariant
  ListControl cmbVariant;
  // The captions of the frames around the insert buttons and the four
  // buttons that act on the selected line.
  Label fraAddRecord;
  Label fraEditRecord;
  Button cmdInsertA, cmdInsertB, cmdInsertC, cmdInsertD;
  Button cmdUp, cmdDown, cmdEdit, cmdDelete;
  Button cmdValidate;
  Button cmdSave;
  Button cmbNext;
  Button cmdBack;
  Button cmdQuit;
  Button cmdHelp;

  // Events.
  void lstSlf_Click();
  void lstSlf_DblClick();
  void cmbVariant_Click();
  // A view's choice of a variant row: selects it and runs the click.
  void SelectVariant(int index);
  void cmdInsertA_Click();
  void cmdInsertB_Click();
  void cmdInsertC_Click();
  void cmdInsertD_Click();
  void cmdUp_Click();
  void cmdDown_Click();
  void cmdEdit_Click();
  void cmdDelete_Click();
  void cmdValidate_Click();
  void cmdSave_Click();
  void cmbNext_Click();
  void cmdBack_Click();
  void cmdQuit_Click();
  void cmdHelp_Click();
  // Returns whether the close is cancelled.
  bool Form_QueryUnload(CloseReason reason);

  // The four buttons that act on the selected line.
  RecordLineButtons LineButtons();
  // How the stand list file is saved and left.
  static RecordFileFlow FileFlow();

 protected:
  void DescribeControls(StateDigest& digest) const override;

 private:
  void ChooseVariant();
  // The work of the four insert buttons: the placeholder behind the
  // selection, the record's tab alone enabled and active, then the dialog.
  void InsertRecord(int tab, const std::string& placeholder);
};

// The sequence rules over lstSlf; messages through ShowMessage, and the
// selection moved to the offending line.
bool ValidateStandList();
// Writes every line of lstSlf to the file named by lblSlfFile on frmTemplate,
// with CR LF, and sets StandListSaved. A failure is reported as "Error writing
// .SLF file." with the module and the error, and the routine returns.
void WriteStandListFile();

}  // namespace corvalin
