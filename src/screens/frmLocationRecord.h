// frmLocationRecord: the modal dialog for one record of a location file: the
// location's name and its stand list file. cmdOk tests the name, builds the
// line and puts it in the selected line of lstLocation on frmLocation.
#pragma once

#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

inline constexpr const char* LocationRecordCaptionSuffix = " - Edit Location Record";

class frmLocationRecord : public Screen {
 public:
  const char* Name() const override { return "frmLocationRecord"; }
  void Form_Load() override;
  void DismissAsCancelled() override { cmdCancel_Click(); }

  TabStrip tabLocationRecords;
  TextBox txtLocationName;
  Label lblSlf;
  Button cmdSelectSlf;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

  void cmdSelectSlf_Click();
  void cmdOk_Click();
  void cmdCancel_Click();
};

// Fills frmLocationRecord from a location line and opens it modally; a line
// that does not begin with "A" or "a" gives the message "Invalid Location
// record - should start with 'A'." and nothing opens.
void EditLocationRecord(const std::string& line);

}  // namespace corvalin
