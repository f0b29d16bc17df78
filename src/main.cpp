// corvalin: with no arguments the wizard; with "input output template" the
// unattended run, which leaves one line in result.txt of the Work folder and
// ends with status 0 exactly when that line is "TRANSLATION SUCCESSFUL" and no
// failure was reported on the way.
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "screens/BatchRun.h"
#include "screens/frmMain.h"
#include "shell/DesktopModule.h"
#include "shell/Error.h"
#include "shell/Process.h"
#include "shell/Toolkit.h"
#include "shell/UnattendedToolkit.h"

namespace {

bool Set(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

// An X or Wayland display: an unattended run shows its banner and boxes there.
bool DisplayAvailable() { return Set("DISPLAY") || Set("WAYLAND_DISPLAY"); }

// What "corvalin --help" prints.
constexpr const char* kUsage =
    "Usage: corvalin                           start the wizard (needs a display)\n"
    "       corvalin INPUT OUTPUT TEMPLATE     translate INPUT into the tree list OUTPUT unattended\n"
    "       corvalin --help | --version\n"
    "\n"
    "INPUT and OUTPUT are file paths without blanks, relative to the folder you\n"
    "start in; TEMPLATE is a template's name as the wizard lists it (a .cnv file\n"
    "of the Work folder, without the extension, in the same case).\n"
    "\n"
    "An unattended run writes one line to result.txt in the Work folder (chosen\n"
    "at the first start; [Common] WorkDir in ~/.config/Orvanta/Orvanta.ini) and\n"
    "ends with status 0 exactly when that line is \"TRANSLATION SUCCESSFUL\".\n"
    "A file named \"--help\" or \"--version\" is given as ./--help.\n"
    "\n"
    "The manual page tells more: man corvalin\n";

// "--help" or "--version" alone on the command line: answered at once, with
// nothing read or written of the settings or the Work folder.
bool AnsweredOption(int argc, char** argv) {
  if (argc != 2) return false;
  const std::string option = argv[1];
  if (option == "--help") {
    std::fputs(kUsage, stdout);
    return true;
  }
  if (option == "--version") {
    std::printf("corvalin %s\n", CORVALIN_VERSION);
    return true;
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
  if (AnsweredOption(argc, argv)) return 0;
  std::setlocale(LC_ALL, "");
  SetStartFolder(StartFolder());
  SetCommandLine(JoinArguments(argc, argv));
  const bool interactive = CommandLine().empty();

#ifdef CORVALIN_WITH_DESKTOP
  // The wizard also runs on a Qt platform named outright (offscreen, say).
  if (interactive && !DisplayAvailable() && !Set("QT_QPA_PLATFORM")) {
    // Without a window system the toolkit would only abort; say why instead.
    std::fprintf(stderr,
                 "corvalin: the wizard needs a display (DISPLAY or WAYLAND_DISPLAY is not set); "
                 "give input, output and template to run unattended\n");
    return 1;
  }
  if (interactive || DisplayAvailable()) {
    std::string why;
    if (const DesktopEntry desktop = LoadDesktopModule(why)) return desktop(&argc, argv, interactive, StartSequence);
    if (interactive) {
      std::fprintf(stderr, "corvalin: the windows cannot be shown: %s\n", why.c_str());
      return 1;
    }
    // An unattended run goes on without its banner and boxes: its result
    // and its reasons on standard error are the same.
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
