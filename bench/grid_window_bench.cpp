// The grid screen's real window, offscreen, over a 32,767-line table of 30
// columns, eight of them coloured by a cell rule: how long the grid takes to
// appear and paint once the load has ended, how long a page scroll takes to
// repaint with the colours on, and how the Validate button's whole-table
// validation compares with the validation alone as an unattended run does
// it; and how long the command dialogs take from the person's click to the
// grid drawn again: Replace All, an exclusion, and the command editor's OK
// replaying 100 commands. Medians of several runs; the figures go into
// docs/performance.md.
//
// grid_window_bench [lines] [runs]
#include <unistd.h>

#include <QApplication>
#include <QPixmap>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "columns/ValidateTable.h"
#include "desktop/GridModel.h"
#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "desktop/frmHeadersWindow.h"
#include "screens/Application.h"
#include "screens/PrepareDatabase.h"
#include "screens/frmColumns.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmExcludeContaining.h"
#include "screens/frmHeaders.h"
#include "screens/frmReplaceAll.h"
#include "screens/frmTemplate.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "templates/TemplateCommands.h"
#include "worktable/LoadWorkTable.h"
#include "worktable/clsDBEngine.h"

namespace fs = std::filesystem;
using namespace corvalin;
using Clock = std::chrono::steady_clock;

namespace {

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t n = values.size();
  return n % 2 == 1 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Every box is answered at once with its default, and the question of the
// command editor with No: the Validate button's "Data validated" and a
// command's count must not wait for a person. A modal dialog is played by
// the script given, at once, as a person who has typed ahead.
class SilentToolkit : public QtToolkit {
 public:
  Answer Message(const MessageRequest& request) override {
    last = request.text;
    if (request.text == "Would you like to save the current view?") return Answer::No;
    return DefaultAnswer(request);
  }
  void RunModal(ModalWindow& window) override {
    if (!dialog) return QtToolkit::RunModal(window);
    dialog(window);
  }
  void SetBusyPointer(bool busy) override {
    pointer.push_back(busy);
    QtToolkit::SetBusyPointer(busy);
  }
  std::string last;
  std::function<void(ModalWindow&)> dialog;
  std::vector<bool> pointer;
};

// A tree file whose every line passes validation, so that the Validate
// button walks the whole table.
std::string GridFile(int lines) {
  static const char* kSpecies[] = {"PW", "LW", "FD", "BG", "HW", "CW", "PL", "SE", "BL", "PY"};
  std::mt19937 rng(20220601u);
  std::string text;
  for (int n = 1; n <= lines; ++n) {
    const int r = static_cast<int>(rng() % 1000);
    text += std::to_string(1000 + n / 40) + "," + std::to_string(1 + n % 40) + "," + std::to_string(1 + r % 9) + "," +
            kSpecies[r % 10] + "," + std::to_string(5 + r % 80) + "." + std::to_string(r % 10) + "," +
            std::to_string(3 + r % 50) + "," + std::to_string(10 + r % 90) + "," + (r % 4 == 0 ? "12 3" : "") + "," +
            std::to_string(1 + r % 9) + "," + std::to_string(1 + r % 3);
    for (int c = 11; c <= 30; ++c) text += "," + std::to_string((r + c) % 97);
    text += "\r\n";
  }
  return text;
}

void AssignColumns() {
  const std::pair<const char*, const char*> kColumns[] = {
      {"Plot ID", ""},       {"Tree ID", ""},           {"Tree Count", ""},   {"Species", ""},
      {"DBH", "cm"},         {"Total Height", "m"},     {"Crown Ratio", "%"}, {"Damage/Severity - 1", ""},
      {"Tree History", ""},  {"Tree Value Class", ""}};
  for (int i = 0; i < 10; ++i) {
    SaveSetting(SettingsApplication, "Corvalin", "ColumnHeader" + std::to_string(i + 1), kColumns[i].first);
    SaveSetting(SettingsApplication, "Corvalin", "ColumnUnits" + std::to_string(i + 1), kColumns[i].second);
  }
  SaveSetting(SettingsApplication, "Corvalin", "OrvanVariant", "BC");
}

struct Session {
  fs::path home;
  SilentToolkit toolkit;

  explicit Session(int lines) {
    home = fs::temp_directory_path() / ("corvalin-grid-bench-" + std::to_string(::getpid()));
    fs::create_directories(home / "Data");
    fs::create_directories(home / "Work");
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
    SetToolkit(&toolkit);
    AttachDesktopViews();
    Run().DataFolder = (home / "Data").string() + "/";
    Run().WorkFolder = (home / "Work").string() + "/";
    const fs::path program = fs::read_symlink("/proc/self/exe").parent_path();
    Run().InstallFolder = (program.parent_path() / "share" / "corvalin").string() + "/";
    if (!fs::exists(Run().InstallFolder + EmptyDatabaseName)) {
      std::fprintf(stderr, "grid_window_bench: %s%s is missing\n", Run().InstallFolder.c_str(), EmptyDatabaseName);
      std::exit(1);
    }
    AssignColumns();
    const fs::path input = home / "trees.csv";
    std::ofstream(input, std::ios::binary) << GridFile(lines);
    RunEvent([&] {
      App().Template().lblInputFile.SetCaption(input.string());
      App().Template().lblOutputFile.SetCaption((home / "out.tre").string());
      frmColumns& format = App().Columns();
      format.optFixedWidth.Value = false;
      format.optCharacterDelimited.Value = true;
      format.chkComma.Value = 1;
      format.chkComma_Click();
    });
  }
  ~Session() {
    App().UnloadAll();
    CloseDatabase();
    TftRecords().reset();
    std::error_code ec;
    fs::remove_all(home, ec);
  }

  // The load itself, outside the timing: the working table filled anew.
  void Load() {
    App().UnloadHeaders();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Run().ReloadNeeded = true;
    RunEvent([] {
      CloseDatabase();
      ReplaceWorkingDatabase([](const char*) {});
      OpenDatabase();
      CreateColumnsTable();
      CloseDatabase();
      Run().ReloadNeeded = false;
    });
  }

  // From the end of the load to the grid on screen and painted: the grid
  // screen loaded and shown (its activation binds the rows), its window
  // drawn and painted at once.
  frmHeadersWindow* ShowGrid(double& milliseconds) {
    const auto start = Clock::now();
    RunEvent([] {
      PrepareDatabase();
      frmColumns& format = App().Columns();
      format.HandOverTo(App().Headers());
    });
    auto* window = dynamic_cast<frmHeadersWindow*>(App().Headers().View());
    // The person's window size; painted at once into an image, which runs
    // every paint routine whether a display shows it or not.
    window->resize(1180, 760);
    window->grab();
    milliseconds = MillisecondsSince(start);
    return window;
  }
};

// Counts the paints of a widget: a repaint that paints nothing measures
// nothing.
class PaintCounter : public QObject {
 public:
  int paints = 0;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const int lines = argc > 1 ? std::atoi(argv[1]) : 32767;
  const int runs = argc > 2 ? std::atoi(argv[2]) : 7;
  App();
  DatabaseEngine();
  TftRecords();
  Session session(lines);

  std::vector<double> shown;
  frmHeadersWindow* window = nullptr;
  for (int run = 0; run < runs; ++run) {
    session.Load();
    double ms = 0;
    window = session.ShowGrid(ms);
    shown.push_back(ms);
  }
  QTableView* table = window->Table();
  std::printf("grid: %d rows, %d rows and %d columns on view, viewport %dx%d, shown %d\n", window->Model()->rowCount(),
              window->VisibleRows(), window->VisibleColumns(), table->viewport()->width(), table->viewport()->height(),
              window->isVisible() ? 1 : 0);

  // Page scrolls with the colours on.
  frmHeaders& headers = App().Headers();
  if (!headers.chkAutoValidate.Checked()) std::fprintf(stderr, "grid_window_bench: colouring is off\n");
  std::vector<double> scrolls;
  QScrollBar* bar = table->verticalScrollBar();
  PaintCounter counter;
  table->viewport()->installEventFilter(&counter);
  for (int page = 0; page < 60; ++page) {
    const auto start = Clock::now();
    bar->setValue(bar->value() + bar->pageStep());
    table->viewport()->grab();
    scrolls.push_back(MillisecondsSince(start));
  }
  if (counter.paints < 60) {
    std::fprintf(stderr, "grid_window_bench: %d paints for 60 page scrolls\n", counter.paints);
    return 1;
  }

  // The Validate button against the validation alone, in turn. Each takes a
  // few milliseconds, where this machine's slow moments weigh: three times
  // as many runs keep the ratio of the medians steady.
  std::vector<double> button;
  std::vector<double> alone;
  for (int run = 0; run < 3 * runs; ++run) {
    auto start = Clock::now();
    ScreenWindow::Fire([&] { headers.cmdValidate_Click(); });
    button.push_back(MillisecondsSince(start));
    if (session.toolkit.last != "Data validated - ready for translation.") {
      std::fprintf(stderr, "grid_window_bench: validation said \"%s\"\n", session.toolkit.last.c_str());
      return 1;
    }
    start = Clock::now();
    const ValidationResult result =
        ValidateTable({headers.ColumnCaption, headers.cmbVariant.Text, headers.optMetric.Value, headers.Adodc1.Recordset});
    alone.push_back(MillisecondsSince(start));
    if (!result.valid) return 1;
  }

  // The command dialogs, from the person's click to the grid painted again.
  // Replace All swaps two species back and forth, so every run replaces a
  // tenth of the rows; the exclusion takes a species' rows out of a table
  // whose rows all take part again before each run (outside the timing).
  headers.TDBGrid1_HeadClick(4);
  std::vector<double> replaceAll;
  int replaced = 0;
  frmReplaceAll& replace = App().ReplaceAll();
  replace.Show();
  for (int run = 0; run < runs; ++run) {
    replace.txtFind.Text = run % 2 == 0 ? "PW" : "ZZ";
    replace.txtReplacement.Text = run % 2 == 0 ? "ZZ" : "PW";
    const auto start = Clock::now();
    ScreenWindow::Fire([&] { replace.cmdReplaceAll_Click(); });
    window->grab();
    replaceAll.push_back(MillisecondsSince(start));
    replaced = Commands().CommandHitCount;
    if (replaced == 0 || session.toolkit.last != std::to_string(replaced) + " occurrences found and replaced.") {
      std::fprintf(stderr, "grid_window_bench: Replace All said \"%s\"\n", session.toolkit.last.c_str());
      return 1;
    }
  }
  ScreenWindow::Fire([&] { replace.cmdCancel_Click(); });
  std::vector<double> exclusion;
  session.toolkit.dialog = [](ModalWindow& shown) {
    auto& dialog = dynamic_cast<frmExcludeContaining&>(shown);
    dialog.txtExcludeText.Text = "LW";
    dialog.cmdOk_Click();
  };
  for (int run = 0; run < runs; ++run) {
    RunEvent([] {
      DatabaseEngine().SQLString("update tft set Excluded = 'N'");
      int32_t affected = 0;
      DatabaseEngine().Execute(affected);
    });
    ScreenWindow::Fire([&] { headers.chkShowExcludedRows_Click(); });
    const auto start = Clock::now();
    ScreenWindow::Fire([&] { headers.mnuExcludeContaining_Click(); });
    window->grab();
    exclusion.push_back(MillisecondsSince(start));
    if (session.toolkit.last.find(" rows excluded.") == std::string::npos || session.toolkit.last[0] == '0') {
      std::fprintf(stderr, "grid_window_bench: the exclusion said \"%s\"\n", session.toolkit.last.c_str());
      return 1;
    }
  }
  // The editor's OK with the list full: exclusions of each kind and
  // replacements, which it skips.
  const char* kSpecies[] = {"PW", "LW", "FD", "BG", "HW", "CW", "PL", "SE", "BL", "PY"};
  std::vector<double> replay;
  session.toolkit.dialog = [](ModalWindow& shown) { dynamic_cast<frmEditTemplateCommands&>(shown).cmdOk_Click(); };
  bool pointerBusyMeanwhile = true;
  for (int run = 0; run < runs; ++run) {
    TemplateCommandState& state = Commands();
    state.CommandCount = 0;
    for (int k = 1; k <= kMaxTemplateCommands; ++k) {
      TemplateCommand command;
      command.ColumnNumber = 4;
      const char* species = kSpecies[k % 10];
      switch (k % 4) {
        case 0: command.CommandType = "EXCLUDE_CONTAINING"; command.DeleteString = species; break;
        case 1: command.CommandType = "EXCLUDE_STARTING_WITH"; command.DeleteString = std::string(species, 1); break;
        case 2: command.CommandType = "EXCLUDE_RANGE"; command.StartLine = static_cast<int16_t>(k * 300);
                command.EndLine = static_cast<int16_t>(k * 300 + 150); break;
        default: command.CommandType = "REPLACE_ALL"; command.FindString = species; command.ReplacementString = species;
      }
      state.CommandCount = static_cast<int16_t>(k);
      TemplateCommandAt(state.CommandCount) = command;
    }
    session.toolkit.pointer.clear();
    const auto start = Clock::now();
    ScreenWindow::Fire([&] { headers.cmdEditTemplateCommands_Click(); });
    window->grab();
    replay.push_back(MillisecondsSince(start));
    // Busy from the OK's start to its end, and back to the arrow after.
    const std::vector<bool>& pointer = session.toolkit.pointer;
    if (pointer.empty() || !pointer.front() || pointer.back()) pointerBusyMeanwhile = false;
    if (App().EditTemplateCommandsLoaded() || Commands().CommandCount != kMaxTemplateCommands) {
      std::fprintf(stderr, "grid_window_bench: the editor's OK did not end\n");
      return 1;
    }
  }
  if (!pointerBusyMeanwhile) {
    std::fprintf(stderr, "grid_window_bench: the pointer was not busy during the editor's OK\n");
    return 1;
  }

  const double shownMedian = Median(shown);
  const double scrollMedian = Median(scrolls);
  const double buttonMedian = Median(button);
  const double aloneMedian = Median(alone);
  std::printf("grid shown and painted after the load: median %.1f ms of %d runs (limit 300 ms)\n", shownMedian, runs);
  std::printf("page scroll repaint with colours on: median %.2f ms of %zu pages, max %.2f ms (limit 16 ms)\n",
              scrollMedian, scrolls.size(), *std::max_element(scrolls.begin(), scrolls.end()));
  std::printf("Validate button: median %.1f ms; validation alone: median %.1f ms, %zu runs each; ratio %.2f (limit 1.2)\n",
              buttonMedian, aloneMedian, button.size(), buttonMedian / aloneMedian);
  const double replaceMedian = Median(replaceAll);
  const double exclusionMedian = Median(exclusion);
  const double replayMedian = Median(replay);
  std::printf("Replace All of %d cells, click to grid painted: median %.1f ms of %d runs (limit 250 ms)\n", replaced,
              replaceMedian, runs);
  std::printf("Exclude Rows Containing, click to grid painted: median %.1f ms of %d runs (limit 250 ms)\n",
              exclusionMedian, runs);
  std::printf("command editor's OK replaying 100 commands, click to grid painted: median %.1f ms of %d runs "
              "(limit 2000 ms)\n",
              replayMedian, runs);
  return shownMedian <= 300 && scrollMedian < 16 && buttonMedian <= 1.2 * aloneMedian && replaceMedian <= 250 &&
                 exclusionMedian <= 250 && replayMedian <= 2000
             ? 0
             : 2;
}
