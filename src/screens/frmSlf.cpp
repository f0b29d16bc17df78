#include "screens/frmSlf.h"

#include "columns/Vocabulary.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/StoredVariant.h"
#include "screens/frmHeaders.h"
#include "screens/frmLocation.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/TextFile.h"
#include "shell/Toolkit.h"
#include "standlist/StandLevelFile.h"
#include "standlist/StandListRules.h"
#include "standlist/VariantTables.h"

namespace corvalin {

namespace {

constexpr const char* kSettingsSection = "Corvalin";
constexpr const char* kDefaultVariant = "BC";
constexpr int kRecordTabs = 4;
// Token 3 of a record A: its tree data set.
constexpr int16_t kTreeDataSetToken = 3;

// The code combo of a record's tab, which a new B, C or D record gets from
// the line above it; record A has none to take.
ListControl* CodeComboOfTab(frmSlfRecord& record, int tab) {
  switch (tab) {
    case 1: return &record.cmbStandIdentificationCode2;
    case 2: return &record.cmbStandIdentificationCode3;
    case 3: return &record.cmbStandIdentificationCode4;
    default: return nullptr;
  }
}

std::string SelectedLineOrEmpty(const ListControl& list) {
  if (list.ListIndex < 0 || list.ListIndex >= list.ListCount()) return "";
  return list.Items[static_cast<std::size_t>(list.ListIndex)];
}

}  // namespace

frmSlf::frmSlf() {
  lblVariant.Caption = "Variant:";
  fraAddRecord.Caption = "Add Record";
  fraEditRecord.Caption = "Edit Record";
  cmdInsertA.Caption = "Record A";
  cmdInsertB.Caption = "Record B";
  cmdInsertC.Caption = "Record C";
  cmdInsertD.Caption = "Record D";
  cmdUp.Caption = "Up";
  cmdDown.Caption = "Down";
  cmdEdit.Caption = "Edit";
  cmdDelete.Caption = "Delete";
  cmdValidate.Caption = "Validate";
  cmdSave.Caption = "Save";
  cmbNext.Caption = "Next >>";
  cmdBack.Caption = "<< Back";
  cmdQuit.Caption = "Quit";
  cmdHelp.Caption = "Help";
  cmdHelp.Visible = false;
  cmdHelp.Enabled = false;
}

RecordLineButtons frmSlf::LineButtons() { return {cmdUp, cmdDown, cmdEdit, cmdDelete}; }

// ---------------------------------------------------------------- load

void frmSlf::Form_Load() {
  Run().CurrentScreen = "Slf";
  Caption = std::string(ApplicationTitle) + SlfCaptionSuffix;
  Run().StandListSaved = true;
  for (const std::string& variant : VariantNames()) cmbVariant.AddItem(variant);
  ChooseVariant();
  // The record A that already points to the file the translation wrote is
  // selected.
  frmTemplate& setup = App().Template();
  LoadRecordLines(lstSlf, setup.lblSlfFile.Caption, kTreeDataSetToken, setup.lblOutputFile.Caption, LineButtons());
}

void frmSlf::ChooseVariant() {
  // After a translation the stand list follows the variant of the grid.
  if (App().Template().chkTranslateFile.Checked()) {
    SelectVariant(App().Headers().cmbVariant.ListIndex);
    return;
  }
  RunState& run = Run();
  run.OrvanVariant = GetSetting(SettingsApplication, kSettingsSection, "OrvanVariant", kDefaultVariant);
  const int row = FindStoredVariant(cmbVariant, run.OrvanVariant);
  if (row >= 0) SelectVariant(row);
}

// ---------------------------------------------------------------- the list

void frmSlf::lstSlf_Click() { EnableRecordLineButtons(lstSlf, LineButtons()); }

void frmSlf::lstSlf_DblClick() { cmdEdit_Click(); }

void frmSlf::cmdEdit_Click() { EditStandRecord(SelectedLineOrEmpty(lstSlf)); }

void frmSlf::cmbVariant_Click() {
  // The variant only chooses the dialog's lists; it is kept in no setting.
  RunEvent([] { FillVariantLists(); });
}

void frmSlf::SelectVariant(int index) {
  cmbVariant.Select(index);
  cmbVariant_Click();
}

void frmSlf::InsertRecord(int tab, const std::string& placeholder) {
  UI().SetBusyPointer(true);
  frmSlfRecord& record = App().SlfRecord();
  UI().SetBusyPointer(false);
  RunNewRecordDialog(lstSlf, placeholder, LineButtons(), record, [&] {
    record.tabSlfRecords.TabEnabled.assign(kRecordTabs, false);
    record.tabSlfRecords.TabEnabled[static_cast<std::size_t>(tab)] = true;
    record.tabSlfRecords.Tab = tab;
    if (tab == 0) {
      // A new record A offers the file that the translation wrote.
      record.lblTreeDataSet.SetCaption(App().Template().lblOutputFile.Caption);
    } else if (lstSlf.ListIndex >= 1) {
      // Where the record lands is for the sequence rules to judge; the code of
      // the line above is only a suggestion.
      const std::string& above = lstSlf.Items[static_cast<std::size_t>(lstSlf.ListIndex - 1)];
      CodeComboOfTab(record, tab)->Text = GetRecordToken(above, 2);
    }
    record.SetActiveRecordTab(tab);
  });
}

void frmSlf::cmdInsertA_Click() { InsertRecord(0, NewRecordAPlaceholder); }
void frmSlf::cmdInsertB_Click() { InsertRecord(1, NewRecordBPlaceholder); }
void frmSlf::cmdInsertC_Click() { InsertRecord(2, NewRecordCPlaceholder); }
void frmSlf::cmdInsertD_Click() { InsertRecord(3, NewRecordDPlaceholder); }

void frmSlf::cmdDelete_Click() {
  DeleteSelectedLine(lstSlf, LineButtons());
  Run().StandListSaved = false;
}

// Moving lines alone is no change of the file: Next does not save it.
void frmSlf::cmdUp_Click() { MoveSelectedLineUp(lstSlf, LineButtons()); }
void frmSlf::cmdDown_Click() { MoveSelectedLineDown(lstSlf, LineButtons()); }

// ---------------------------------------------------------------- the file

void frmSlf::cmdValidate_Click() {
  if (ValidateStandList()) ShowMessage("Stand List File data validated.");
}

// The stand list is validated before each writing.
RecordFileFlow frmSlf::FileFlow() {
  return {ValidateStandList, ValidateStandList, WriteStandListFile, "Stand List File saved.",
          [] { return Run().StandListSaved; }};
}

// No handler: an error here passes on.
void frmSlf::cmdSave_Click() { SaveRecordFile(FileFlow()); }

void frmSlf::cmbNext_Click() {
  RunEvent([&] { SaveIfChangedAndHandOver(FileFlow(), *this, [&]() -> Screen& { return App().Location(); }); });
}

// No handler: an error here passes on.
void frmSlf::cmdBack_Click() {
  // After a translation the way back is to the grid; otherwise to the first
  // screen.
  GoBack(*this, [&]() -> Screen& {
    if (App().Template().chkTranslateFile.Checked()) return App().Headers();
    return App().Template();
  });
}

void frmSlf::cmdQuit_Click() { ConfirmQuit(); }

void frmSlf::cmdHelp_Click() { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); }

bool frmSlf::Form_QueryUnload(CloseReason reason) {
  // No handler: an error here passes on.
  return CloseAsQuit(reason);
}

bool ValidateStandList() {
  frmSlf& slf = App().Slf();
  ListControl& list = slf.lstSlf;
  // The walk moves the selection to the offending line before it shows its
  // message; as a list box's selection does, the move runs the list's click,
  // so the line and its buttons are as they should be while the message is
  // read. A selection that stays where it was runs no click.
  int shown = list.ListIndex;
  return CheckStandListSequence(list.Items, list.ListIndex, [&] {
    if (list.ListIndex == shown) return;
    shown = list.ListIndex;
    SelectRecordLine(list, list.ListIndex, slf.LineButtons());
  });
}

void WriteStandListFile() {
  try {
    WriteLinesInPlace(App().Template().lblSlfFile.Caption, App().Slf().lstSlf.Items);
    Run().StandListSaved = true;
  } catch (const std::exception& error) {
    ReportNamedFailure(WritingSlfFileFailed, AsRuntimeError(error));
  }
}

void frmSlf::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lstSlf << cmbVariant << cmdInsertA << cmdInsertB << cmdInsertC << cmdInsertD << cmdUp << cmdDown << cmdEdit
         << cmdDelete << cmdValidate << cmdSave << cmbNext << cmdBack << cmdQuit << cmdHelp;
}

}  // namespace corvalin
