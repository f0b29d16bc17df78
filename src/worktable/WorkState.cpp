#include "worktable/WorkState.h"

#include "columns/SpeciesCodes.h"
#include "input/ColumnFormat.h"
#include "shell/AppUtil.h"
#include "shell/RunState.h"
#include "shell/TextFile.h"
#include "templates/TemplateCommands.h"
#include "worktable/RunInput.h"
#include "worktable/WorkingDatabase.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

void ResetWorkState() {
  ReleaseDatabase();
  TftRecords().reset();
  ForgetPrivateWorkingDatabase();
  ForgetRunInput();
  ResetRunState();
  ResetMarkers();
  ResetCommands();
  ResetSpeciesCodes();
  ForgetFilesLeftOpen();
  SetWorkingDirectoryCaption("");
}

}  // namespace corvalin
