// The file choices of the stand record dialog: the tree data set of record A
// and the add files of record D.
#include "screens/FileDialogChoice.h"
#include "screens/frmMain.h"
#include "screens/frmSlfRecord.h"
#include "shell/AppUtil.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "standlist/StandLevelFile.h"

namespace corvalin {

namespace {

FileDialogRequest TreeDataSetDialog() {
  FileDialogRequest dialog;
  dialog.title = std::string(ApplicationTitle) + TreeDataSetDialogTitle;
  dialog.filter = Run().DefaultOutputFileExtension + TreeDataSetDialogFilter;
  dialog.filterIndex = 1;
  dialog.flags = kOutputDialogFlags;
  dialog.save = true;
  return dialog;
}

FileDialogRequest AddFileDialog() {
  FileDialogRequest dialog;
  dialog.title = std::string(ApplicationTitle) + AddFileDialogTitle;
  dialog.filter = AddFileDialogFilter;
  dialog.filterIndex = 1;
  dialog.flags = kInputDialogFlags;
  return dialog;
}

// Replaces the selected add file by the one chosen in the dialog. The button
// trims the start folder for the dialog and compares the choice with the old
// file name; the double click does neither and compares with the last name
// of the shared data set dialog, so any choice replaces the entry.
enum class ChangeWay { Button, DoubleClick };
void ChangeAddFile(frmSlfRecord& d, ChangeWay way) {
  ListControl& list = d.lstDataSetNames;
  std::string& entry = list.Items.at(static_cast<std::size_t>(list.ListIndex));
  const std::string path = ExpandWorkPath(entry);
  const std::string oldName = FileNameOf(path);
  FileDialogRequest dialog = AddFileDialog();
  dialog.fileName = oldName;
  dialog.initialFolder = way == ChangeWay::Button ? TrimFolderEnd(FileFolderOf(path)) : FileFolderOf(path);
  const std::string chosen = ChooseFile(dialog);
  const std::string& compared = way == ChangeWay::Button ? oldName : MainForm().cmnDataSetFileDialog.fileName;
  if (chosen.empty() || chosen == compared) return;
  entry = ShortenWorkPath(chosen);
}

}  // namespace

void frmSlfRecord::cmdSelect_Click() {
  RunEvent([&] {
    const std::string old = lblTreeDataSet.Caption;
    FileDialogRequest dialog = TreeDataSetDialog();
    if (old.empty() || old == BareGroundCaption) {
      dialog.initialFolder = TrimFolderEnd(WorkingDirectoryCaption());
    } else {
      dialog.initialFolder = TrimFolderEnd(FileFolderOf(old));
      dialog.fileName = FileNameOf(old);
    }
    const std::string chosen = ChooseFile(dialog);
    if (chosen.empty() || chosen == FileNameOf(old)) return;
    lblTreeDataSet.SetCaption(chosen);
  });
}

void frmSlfRecord::cmdBareGround_Click() {
  RunEvent([&] { lblTreeDataSet.SetCaption(BareGroundCaption); });
}

void frmSlfRecord::cmdAdd_Click() {
  RunEvent([&] {
    FileDialogRequest dialog = AddFileDialog();
    // The working directory caption is that of lblWorkingDirectory on
    // frmTemplate.
    dialog.initialFolder = WorkingDirectoryCaption();
    const std::string chosen = ChooseFile(dialog);
    if (!chosen.empty()) lstDataSetNames.AddItem(ShortenWorkPath(chosen));
  });
}

void frmSlfRecord::cmdDelete_Click() {
  RunEvent([&] {
    ListControl& list = lstDataSetNames;
    if (list.ListIndex < 0) {
      ShowMessage("No Add File selected.");
      return;
    }
    const int removed = list.ListIndex;
    list.Items.erase(list.Items.begin() + removed);
    if (list.ListCount() == 0)
      list.Select(-1);
    else
      list.Select(removed > 0 ? removed - 1 : 0);
  });
}

void frmSlfRecord::cmdSelectDataSetFile_Click() {
  RunEvent([&] {
    if (lstDataSetNames.ListIndex < 0) {
      ShowMessage("No Add file selected.");
      return;
    }
    ChangeAddFile(*this, ChangeWay::Button);
  });
}

void frmSlfRecord::lstDataSetNames_DblClick() {
  RunEvent([&] { ChangeAddFile(*this, ChangeWay::DoubleClick); });
}

}  // namespace corvalin
