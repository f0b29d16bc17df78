#include "screens/BatchRun.h"

#include <filesystem>
#include <system_error>

#include "columns/ValidateTable.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Toolkit.h"
#include "translation/RunTranslation.h"
#include "screens/PrepareDatabase.h"

namespace corvalin {

namespace {

// Deletes a file as the platform's Kill does: a file that is not there is
// the error "File not found".
void Kill(const std::string& path) {
  std::error_code ec;
  if (std::filesystem::remove(path, ec)) return;
  if (ec) Raise(err::PermissionDenied, "frmMain");
  Raise(err::FileNotFound, "frmMain");
}

}  // namespace

void ContinueBatchRun() {
  // 4. The column format of the template, read by the screen's load.
  App().Columns();
  // 5. The working table, filled and with the template's commands replayed.
  PrepareDatabase();
  // 6. The grid. Its activation takes the columns, units and variant from the
  // template; nothing brings the screen to the front here, so the run asks
  // for it, and validation then sees the template's assignments.
  frmHeaders& headers = App().Headers();
  headers.Form_Activate();
  // 7.
  if (headers.Validate()) {
    // 8. Whether the translation itself went through is not looked at.
    RunTranslation(headers.TranslationOf());
    UI().SetBusyPointer(false);
    UI().HideBanner();
    WriteResult(ResultSuccess);
  } else {
    // 9. No output file to delete is an error of the run, reported in the
    // start sequence's box, and no result file comes of it.
    Kill(App().Template().lblOutputFile.Caption);
    UI().HideBanner();
    WriteResult("FAILED: Invalid format.");
  }
}

}  // namespace corvalin
