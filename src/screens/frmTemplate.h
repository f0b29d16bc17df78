// frmTemplate: the first screen, and the holder of the paths of a run. The
// labels' captions are the paths; setting one runs its change routine.
#pragma once

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class frmTemplate : public Screen {
 public:
  const char* Name() const override { return "frmTemplate"; }

  CheckBox chkTranslateFile;
  CheckBox chkEditStandListFile;
  CheckBox chkNoInput;
  Label lblInputFile;
  Label lblOutputFile;
  Label lblSlfFile;
  Label lblLocationsFile;
  Label lblWorkingDirectory;
  ListControl cmbTemplate;
};

}  // namespace corvalin
