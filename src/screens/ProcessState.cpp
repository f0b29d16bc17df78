#include "screens/ProcessState.h"

#include "columns/SpeciesCodes.h"
#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "shell/AppUtil.h"
#include "shell/RunState.h"
#include "shell/TextFile.h"
#include "templates/TemplateCommands.h"
#include "worktable/RunInput.h"
#include "worktable/WorkingDatabase.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

void ResetProcessState() {
  App().UnloadAll();
  CloseDatabase();
  TftRecords().reset();
  ForgetPrivateWorkingDatabase();
  ForgetRunInput();
  ResetRunState();
  ResetMarkers();
  ResetCommands();
  ResetSpeciesCodes();
  ForgetFilesLeftOpen();
  SetWorkingDirectoryCaption("");
  App().RunModal = nullptr;
}

}  // namespace corvalin
