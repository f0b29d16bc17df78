// The stand record dialog's test ground: the stand list screen with a variant
// and its lines, and the dialog driven through its modal door.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"

namespace corvalin::testing {

class StandRecordFixture : public FreshProcess {
 protected:
  // frmSlf showing these lines under this variant, with one line selected;
  // the record dialog is not loaded (the variant list may have loaded it).
  frmSlf& StandList(const std::string& variant, const std::vector<std::string>& lines, int selected = 0) {
    // The first screen is always there before the editors; its load empties
    // the file captions, which unloads the stand list editor.
    App().Template();
    frmSlf& slf = App().Slf();
    slf.cmbVariant.Text = variant;
    slf.lstSlf.Items = lines;
    slf.lstSlf.Select(selected);
    App().UnloadSlfRecord();
    ui.boxes.clear();
    return slf;
  }

  // The working directory is the caption of lblWorkingDirectory on the first
  // screen.
  static void WorkingDirectory(const std::string& folder) {
    App().Template().lblWorkingDirectory.SetCaption(folder);
  }

  // The dialog freshly loaded on a new record of this tab, as the insert
  // buttons of frmSlf open it.
  frmSlfRecord& NewRecord(int tab, const std::string& variant = "BC") {
    StandList(variant, {" *** new record *** "});
    frmSlfRecord& dialog = App().SlfRecord();
    dialog.tabSlfRecords.Tab = tab;
    return dialog;
  }

  // The selected line of lstSlf.
  static std::string SelectedLine() {
    const ListControl& list = App().Slf().lstSlf;
    return list.Items.at(static_cast<std::size_t>(list.ListIndex));
  }

  // Opens the line through EditStandRecord, lets `act` look at and change
  // the open dialog, then presses Ok (when `pressOk`), and gives the line
  // that lstSlf then holds at the selection.
  std::string Edit(const std::string& line, const std::function<void(frmSlfRecord&)>& act = {},
                   bool pressOk = true) {
    ui.AnswerDialog<frmSlfRecord>([&](frmSlfRecord& dialog) {
      if (act) act(dialog);
      if (pressOk) dialog.cmdOk_Click();
    });
    EditStandRecord(line);
    ui.dialogs.clear();
    return SelectedLine();
  }

  // A line of the list, opened and confirmed unchanged.
  std::string RoundTrip(const std::string& variant, const std::string& line) {
    StandList(variant, {line});
    return Edit(line);
  }
};

}  // namespace corvalin::testing
