// The load between the column screen and the grid, in the wizard against an
// unattended run: the same file of 32,767 lines and 30 columns, the same
// PrepareDatabase, once with the real windows offscreen (the column screen
// shown, the busy window drawn with its text of every line) and once as an
// unattended run loads (no windows, pending events only). Prints the median
// of each and their ratio, and for comparison the wizard's load with the
// pending events run at every line, as the Qt Toolkit did before it spaced
// them.
// Usage: wizard_load [lines] [runs]; run from the build tree (it finds the
// installation files beside bin/).
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "screens/Application.h"
#include "screens/PrepareDatabase.h"
#include "screens/Screen.h"
#include "screens/frmColumns.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "shell/UnattendedToolkit.h"
#include "tree_file.h"
#include "worktable/clsDBEngine.h"

namespace fs = std::filesystem;
using namespace corvalin;

namespace {

// The Qt Toolkit as it was before its events were spaced: every line's
// pending events run, and the views catch up, at once.
class EveryLineToolkit : public QtToolkit {
 public:
  bool EventsDueNow() override { return true; }
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// One load of the file: the working table copied anew and filled.
double TimedLoad() {
  Run().ReloadNeeded = true;
  QElapsedTimer timer;
  timer.start();
  PrepareDatabase();
  const double ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  if (Run().ReloadNeeded) {
    std::fprintf(stderr, "wizard_load: the load did not finish\n");
    std::exit(1);
  }
  return ms;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const int lines = argc > 1 ? std::atoi(argv[1]) : 32767;
  const int runs = argc > 2 ? std::atoi(argv[2]) : 7;

  const fs::path home = fs::temp_directory_path() / ("corvalin-wizard-bench-" + std::to_string(::getpid()));
  fs::create_directories(home / "Data");
  fs::create_directories(home / "Work");
  ::setenv("HOME", home.c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
  Run().DataFolder = (home / "Data").string() + "/";
  Run().WorkFolder = Run().DefaultInputFileDirectory = Run().DefaultOutputFileDirectory =
      (home / "Work").string() + "/";
  Run().InputFileFilter = "All Files (*.*)|*.*";
  Run().OutputFileFilter = "All Files (*.*)|*.*";
  const fs::path program = fs::read_symlink("/proc/self/exe").parent_path();
  Run().InstallFolder = (program.parent_path() / "share" / "corvalin").string() + "/";
  const fs::path input = home / "trees.csv";
  std::ofstream(input, std::ios::binary) << bench::TreeFile(lines, 30);

  UnattendedToolkit unattended;
  QtToolkit wizard;
  EveryLineToolkit everyLine;

  // The real windows, the column screen shown, the load started from it as
  // its Next starts it.
  AttachDesktopViews();
  SetToolkit(&wizard);
  frmTemplate& setup = App().Template();
  setup.lblInputFile.SetCaption(input.string());
  setup.lblOutputFile.SetCaption((home / "out.tre").string());
  setup.cmdNextTrans_Click();
  if (!App().Columns().Visible()) {
    std::fprintf(stderr, "wizard_load: the column screen is not up\n");
    return 1;
  }

  // The runs take turns, so that a change in the machine's load falls on
  // both alike. The unattended run's load has the same screens loaded and
  // nothing drawing them, as a run without a display has them.
  std::vector<double> wizardMs;
  std::vector<double> unattendedMs;
  std::vector<double> everyLineMs;
  for (int i = 0; i < runs; ++i) {
    Run().CommandLineMode = false;
    SetToolkit(&wizard);
    wizardMs.push_back(TimedLoad());

    std::vector<std::pair<Screen*, ScreenView*>> views;
    // The grid screen is made anew by each load.
    for (Screen* screen : std::initializer_list<Screen*>{&App().Template(), &App().Columns()}) {
      views.emplace_back(screen, screen->View());
      screen->Attach(nullptr);
    }
    Run().CommandLineMode = true;
    SetToolkit(&unattended);
    unattendedMs.push_back(TimedLoad());
    for (auto [screen, view] : views) screen->Attach(view);
    Run().CommandLineMode = false;

    if (i < 3) {
      SetToolkit(&everyLine);
      everyLineMs.push_back(TimedLoad());
    }
  }
  const double w = Median(wizardMs);
  const double u = Median(unattendedMs);
  std::printf("load of %d lines, 30 columns, median of %d runs\n", lines, runs);
  std::printf("  unattended run:                     %8.1f ms\n", u);
  std::printf("  wizard, busy window, real windows:  %8.1f ms  (%.2f x the unattended load)\n", w, w / u);
  std::printf("  wizard, events at every line:       %8.1f ms  (%.2f x, median of %zu)\n", Median(everyLineMs),
              Median(everyLineMs) / u, everyLineMs.size());

  SetToolkit(&unattended);
  CloseDatabase();
  TftRecords().reset();
  App().UnloadAll();
  std::error_code ec;
  fs::remove_all(home, ec);
  SetToolkit(nullptr);
  return 0;
}
