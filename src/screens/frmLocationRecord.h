// frmLocationRecord: the modal dialog for one record of a location file: the
// location's name and its stand list file. cmdOk tests the name, builds the
// line and puts it in the selected line of lstLocation on frmLocation.
#pragma once

#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"
#include "shell/Toolkit.h"

namespace corvalin {

class StateDigest;

inline constexpr const char* LocationRecordCaptionSuffix = " - Edit Location Record";
inline constexpr const char* StandListDialogTitle = " - Select Stand List File";
inline constexpr const char* StandListDialogFilter = "Stand Level Files (*.slf) | *.slf |All Files (*.*) | *.*";

class frmLocationRecord : public Screen {
 public:
  const char* Name() const override { return "frmLocationRecord"; }
  void Form_Load() override;
  void DismissAsCancelled() override { cmdCancel_Click(); }

  TabStrip tabLocationRecords;
  Label lblLocationName1;  // the heading of txtLocationName
  TextBox txtLocationName;
  Label lblSlf1;           // the heading of lblSlf
  Label lblSlf;
  Button cmdSelectSlf;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;
  // The stand list dialog, set up at load.
  FileDialogRequest cmnSlfDialog;

  void cmdSelectSlf_Click();
  void cmdOk_Click();
  void cmdCancel_Click();

 protected:
  void DescribeControls(StateDigest& digest) const override;
};

// Fills frmLocationRecord from a location line and opens it modally; a line
// that does not begin with "A" or "a" gives the message "Invalid Location
// record - should start with 'A'." and nothing opens.
void EditLocationRecord(const std::string& line);

}  // namespace corvalin
