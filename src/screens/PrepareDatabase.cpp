#include "screens/PrepareDatabase.h"

#include <string>

#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmTemplate.h"
#include "shell/Busy.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "templates/TemplateCommands.h"
#include "worktable/LoadWorkTable.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

void CreateColumnsTable() {
  frmColumns& columns = App().Columns();
  if (columns.optFixedWidth.Value) {
    Markers().Sort();
    columns.RefreshColumnPreview();
  }
  LoadInputLines(App().Template().lblInputFile.Caption, columns.Format());
  HideBusy();
}

void PrepareDatabase() {
  RunState& run = Run();
  try {
    if (!run.CommandLineMode) UI().SetBusyPointer(true);
    bool replay = false;
    run.BusyCancelled = false;
    if (run.ReloadNeeded) {
      // The grid lets go of its rows and of the working database, whose file
      // is replaced next.
      App().UnloadHeaders();
      UI().DoEvents();
      CloseDatabase();
      ReplaceWorkingDatabase([&run](const char* step) { run.TraceStep = step; });
      run.TraceStep = "OpenDatabase";
      OpenDatabase();
      run.TraceStep = "CreateColumnsTable";
      CreateColumnsTable();
      run.TraceStep = "Call CloseDatabase";
      CloseDatabase();
      run.TraceStep = "Call CloseDatabase-END";
      if (run.BusyCancelled) {
        // The rows so far stay; the next Next loads everything again.
        if (!run.CommandLineMode) UI().SetBusyPointer(false);
        return;
      }
      run.ReloadNeeded = false;
      replay = true;
    }
    run.TraceStep = "Load frmHeaders";
    App().Headers();
    run.TraceStep = "Load frmHeaders-END";
    UI().DoEvents();
    if (replay) {
      // Named anew after the pending events: a person's click among them may
      // have unloaded the grid (a new output file does), and naming it loads
      // it again, rows and all.
      frmHeaders& headers = App().Headers();
      ReplayTemplateCommands(headers.Adodc1.Recordset);
      headers.RefreshGrid();
    }
    if (!run.CommandLineMode) UI().SetBusyPointer(false);
  } catch (const std::exception& failure) {
    ShowMessage(PrepareDatabaseReportText(AsRuntimeError(failure)));
  }
}

}  // namespace corvalin
