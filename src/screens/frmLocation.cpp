#include "screens/frmLocation.h"

#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmSlf.h"
#include "screens/frmTemplate.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/TextFile.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace {

// Token 4 of a location record: its stand list file.
constexpr int16_t kStandListToken = 4;

}  // namespace

frmLocation::frmLocation() {
  fraAddRecord.Caption = "Add Record";
  fraEditRecord.Caption = "Edit Record";
  cmdInsertA.Caption = "Record A";
  cmdUp.Caption = "Up";
  cmdDown.Caption = "Down";
  cmdEdit.Caption = "Edit";
  cmdDelete.Caption = "Delete";
  cmdSave.Caption = "Save";
  cmdDone.Caption = "Done";
  cmdBack.Caption = "<< Back";
  cmdQuit.Caption = "Quit";
  cmdHelp.Caption = "Help";
  cmdHelp.Visible = false;
  cmdHelp.Enabled = false;
}

RecordLineButtons frmLocation::LineButtons() { return {cmdUp, cmdDown, cmdEdit, cmdDelete}; }

// ---------------------------------------------------------------- load

void frmLocation::Form_Load() {
  Run().CurrentScreen = "Location";
  Caption = std::string(ApplicationTitle) + LocationCaptionSuffix;
  Run().LocationFileSaved = true;
  // The first location whose stand list is the one being edited is selected.
  frmTemplate& setup = App().Template();
  LoadRecordLines(lstLocation, setup.lblLocationsFile.Caption, kStandListToken, setup.lblSlfFile.Caption,
                  LineButtons());
}

// ---------------------------------------------------------------- the list

void frmLocation::lstLocation_Click() {
  RunEvent([&] { EnableRecordLineButtons(lstLocation, LineButtons()); });
}

void frmLocation::lstLocation_DblClick() { cmdEdit_Click(); }

void frmLocation::cmdEdit_Click() {
  RunEvent([&] {
    const int at = lstLocation.ListIndex;
    EditLocationRecord(at >= 0 && at < lstLocation.ListCount() ? lstLocation.Items[static_cast<std::size_t>(at)] : "");
  });
}

void frmLocation::cmdInsertA_Click() {
  RunEvent([&] {
    UI().SetBusyPointer(true);
    frmLocationRecord& record = App().LocationRecord();
    UI().SetBusyPointer(false);
    // A new location offers the stand list being edited.
    RunNewRecordDialog(lstLocation, NewLocationPlaceholder, LineButtons(), record,
                       [&] { record.lblSlf.SetCaption(App().Template().lblSlfFile.Caption); });
  });
}

void frmLocation::cmdDelete_Click() {
  RunEvent([&] {
    DeleteSelectedLine(lstLocation, LineButtons());
    Run().LocationFileSaved = false;
  });
}

// Moving lines alone is no change of the file: Done does not save it.
void frmLocation::cmdUp_Click() {
  RunEvent([&] { MoveSelectedLineUp(lstLocation, LineButtons()); });
}

void frmLocation::cmdDown_Click() {
  RunEvent([&] { MoveSelectedLineDown(lstLocation, LineButtons()); });
}

// ---------------------------------------------------------------- the file

// Location records have no rules of their own: Save writes whatever the
// list holds. Done does not close the editing flow on a stand list in bad
// order.
RecordFileFlow frmLocation::FileFlow() {
  return {nullptr, ValidateStandList, WriteLocationFile, "Location file saved.",
          [] { return Run().LocationFileSaved; }};
}

void frmLocation::cmdSave_Click() {
  RunEvent([] { SaveRecordFile(FileFlow()); });
}

void frmLocation::cmdDone_Click() {
  RunEvent([&] { SaveIfChangedAndHandOver(FileFlow(), *this, [&]() -> Screen& { return App().Template(); }); });
}

void frmLocation::cmdBack_Click() {
  RunEvent([&] { GoBack(*this, [&]() -> Screen& { return App().Slf(); }); });
}

void frmLocation::cmdQuit_Click() {
  RunEvent([] { ConfirmQuit(); });
}

void frmLocation::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

bool frmLocation::Form_QueryUnload(CloseReason reason) {
  bool cancelled = reason == CloseReason::ControlMenu;
  RunEvent([&] { cancelled = CloseAsQuit(reason); });
  return cancelled;
}

void WriteLocationFile() {
  try {
    WriteLinesInPlace(App().Template().lblLocationsFile.Caption, App().Location().lstLocation.Items);
    Run().LocationFileSaved = true;
  } catch (const std::exception& error) {
    ReportNamedFailure(WritingLocationFileFailed, AsRuntimeError(error));
  }
}

void frmLocation::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lstLocation << cmdInsertA << cmdUp << cmdDown << cmdEdit << cmdDelete << cmdSave << cmdDone << cmdBack << cmdQuit
         << cmdHelp;
}

}  // namespace corvalin
