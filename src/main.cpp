// corvalin: with no arguments the wizard; with "input output template" the
// unattended run, which leaves one line in result.txt of the Work folder and
// ends with status 0 exactly when that line is "TRANSLATION SUCCESSFUL".
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "screens/BatchRun.h"
#include "screens/frmMain.h"
#include "shell/Error.h"
#include "shell/Process.h"
#include "shell/Toolkit.h"
#include "shell/UnattendedToolkit.h"

#ifdef CORVALIN_WITH_DESKTOP
#include <QApplication>

#include "desktop/QtToolkit.h"
#include "desktop/frmTemplateWindow.h"
#endif

namespace {

bool DisplayAvailable() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

// Runs the start sequence; an ended process gives its status. An unattended
// run that comes back without having written its result (a box reported a
// failure of the start sequence, or the result file could not be written)
// has failed.
int StartSequence(bool interactive, int (*eventLoop)()) {
  using namespace corvalin;
  MainForm().ContinueBatchRun = ContinueBatchRun;
  try {
    MainForm().Form_Load();
    if (interactive && eventLoop != nullptr) return eventLoop();
  } catch (const ProcessEnded& ended) {
    return ended.exitCode;
  }
  return interactive ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace corvalin;
  // Numbers in cells are read, and tree list numbers written, in the user's
  // own format (the decimal mark), in both run modes.
  std::setlocale(LC_ALL, "");
  SetStartFolder(StartFolder());
  SetCommandLine(JoinArguments(argc, argv));
  const bool interactive = CommandLine().empty();

#ifdef CORVALIN_WITH_DESKTOP
  if (interactive || DisplayAvailable()) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvalin"));
    QtToolkit toolkit;
    SetToolkit(&toolkit);
    AttachDesktopViews();
    return StartSequence(interactive, [] { return QApplication::exec(); });
  }
#else
  if (interactive) {
    std::fprintf(stderr, "corvalin: this build has no desktop; give input, output and template to run unattended\n");
    return 1;
  }
#endif
  UnattendedToolkit toolkit;
  SetToolkit(&toolkit);
  return StartSequence(false, nullptr);
}
