#include "screens/frmLocationRecord.h"

#include "location/LocationFile.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/FileDialogChoice.h"
#include "screens/frmLocation.h"
#include "screens/frmMain.h"
#include "shell/AppUtil.h"
#include "shell/Failure.h"
#include "shell/RunState.h"

namespace corvalin {

void frmLocationRecord::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "LocationRecord";
    Caption = std::string(ApplicationTitle) + LocationRecordCaptionSuffix;
    const frmLocation& location = App().Location();
    PlaceLike(location);
    tabLocationRecords.TabCaption = {"Record Type A"};
    tabLocationRecords.TabEnabled = {true};
    lblLocationName1.Caption = "Location Name:";
    lblSlf1.Caption = "Stand List File:";
    cmdSelectSlf.Caption = "Select";
    cmdOk.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    cmdHelp.Caption = "Help";
    cmdHelp.Visible = false;
    cmdHelp.Enabled = false;
    txtLocationName.Text.clear();
    lblSlf.SetCaption("");

    cmnSlfDialog = FileDialogRequest{};
    cmnSlfDialog.title = std::string(ApplicationTitle) + StandListDialogTitle;
    cmnSlfDialog.filter = StandListDialogFilter;
    cmnSlfDialog.filterIndex = 1;
    cmnSlfDialog.flags = kOutputDialogFlags;
    cmnSlfDialog.save = true;
    // The caption of lblWorkingDirectory on frmTemplate.
    cmnSlfDialog.initialFolder = WorkingDirectoryCaption();
  });
}

void frmLocationRecord::cmdSelectSlf_Click() {
  RunEvent([&] {
    const std::string old = lblSlf.Caption;
    if (!old.empty()) {
      cmnSlfDialog.initialFolder = TrimFolderEnd(FileFolderOf(old));
      cmnSlfDialog.fileName = FileNameOf(old);
    } else {
      cmnSlfDialog.initialFolder = TrimFolderEnd(WorkingDirectoryCaption());
      cmnSlfDialog.fileName.clear();
    }
    const std::string chosen = ChooseFile(cmnSlfDialog);
    if (chosen.empty() || chosen == FileNameOf(old)) return;
    lblSlf.SetCaption(chosen);
  });
}

void frmLocationRecord::cmdOk_Click() {
  RunEvent([&] {
    const std::string fault = LocationNameFault(txtLocationName.Text);
    if (!fault.empty()) {
      ShowMessage(fault);
      return;
    }
    const std::string line = BuildLocationRecord({txtLocationName.Text, lblSlf.Caption});
    ListControl& lstLocation = App().Location().lstLocation;
    lstLocation.Items.at(static_cast<std::size_t>(lstLocation.ListIndex)) = line;
    App().UnloadLocationRecord();
    Run().LocationFileSaved = false;
  });
}

void frmLocationRecord::cmdCancel_Click() {
  RunEvent([&] { App().UnloadLocationRecord(); });
}

void EditLocationRecord(const std::string& line) {
  UI().SetBusyPointer(true);
  frmLocationRecord& dialog = App().LocationRecord();
  UI().SetBusyPointer(false);
  if (!IsLocationRecord(line)) {
    ShowMessage(InvalidLocationRecordMessage);
    return;
  }
  const LocationRecord record = ReadLocationRecord(line);
  dialog.txtLocationName.Text = record.name;
  dialog.lblSlf.SetCaption(record.standListFile);
  App().ShowModal(dialog);
}

void frmLocationRecord::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << tabLocationRecords << lblLocationName1 << txtLocationName << lblSlf1 << lblSlf << cmdSelectSlf << cmdOk
         << cmdCancel << cmdHelp;
}

}  // namespace corvalin
