#include "Life.h"

#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <functional>
#include <random>
#include <vector>

#include "Action.h"
#include "Actions.h"
#include "Confine.h"
#include "Inputs.h"
#include "SavedFiles.h"
#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "screens/Application.h"
#include "screens/frmMain.h"
#include "screens/frmSlf.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/Process.h"
#include "shell/RunState.h"
#include "shell/Toolkit.h"

namespace corvalin::exerciser {

namespace {

int pipeFd = -1;

void Tell(const std::string& line) {
  std::string text = line;
  for (char& c : text)
    if (c == '\n') c = ' ';
  text += '\n';
  const char* at = text.data();
  std::size_t left = text.size();
  while (left > 0) {
    const ssize_t n = ::write(pipeFd, at, left);
    if (n <= 0) return;
    at += n;
    left -= static_cast<std::size_t>(n);
  }
}

// The program's own windows, all hidden, and the screen it takes for
// current: where the person was left with nothing to act on.
std::string HiddenWindows() {
  std::string names;
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (!widget->isVisible() && !widget->objectName().isEmpty() &&
        widget->objectName().startsWith(QLatin1String("frm")))
      names += (names.empty() ? "" : ", ") + widget->objectName().toStdString();
  return "screen " + Run().CurrentScreen + "; hidden windows: " + (names.empty() ? "none" : names);
}

[[noreturn]] void Finding(const std::string& text) {
  Tell("F " + text);
  std::fflush(nullptr);
  std::_Exit(97);
}

// The stand list editor's Delete has no handler of its own, and a cancelled
// first new record leaves it enabled with no line selected: pressing it then
// ends the program through the run-time's box. That is the editor's answer,
// not a fault, and only there is the box taken as one.
const char* const kDeleteWithNothingSelected = "[5] Invalid procedure call or argument";

bool StandListDeleteWithNothingSelected(const Action& action) {
  if (action.window != "frmSlf" || !App().SlfLoaded()) return false;
  const frmSlf& slf = App().Slf();
  return slf.lstSlf.ListIndex == -1 && slf.cmdDelete.Enabled && slf.cmdDelete.Visible;
}

// The desktop's Toolkit as the program has it, telling the parent when the
// run-time's box of an unhandled failure comes up and when the program ends.
class WatchedToolkit : public QtToolkit {
 public:
  Answer Message(const MessageRequest& request) override {
    // An error that escaped an event routine: "[" number "] " description
    // under the critical icon, before the program ends.
    if (request.icon == Icon::Critical && !request.text.empty() && request.text[0] == '[') {
      if (!(deleteWithNothingSelected && request.text == kDeleteWithNothingSelected))
        Finding("unhandled failure: " + request.text);
      Tell("P " + request.text);
    }
    return QtToolkit::Message(request);
  }
  // Set while an action runs on the stand list editor with Delete enabled
  // and no line selected.
  bool deleteWithNothingSelected = false;
  [[noreturn]] void EndProcess(int exitCode) override {
    Tell("E " + std::to_string(exitCode));
    QtToolkit::EndProcess(exitCode);
  }
};

// The person: one action per turn on the window on top. Each turn arms the
// next before it acts, so that a modal window the action opens gets its
// turns from inside its own loop.
class Person {
 public:
  Person(const LifeOptions& options, WatchedToolkit& toolkit)
      : options_(options),
        toolkit_(toolkit),
        random_(options.seed * 1000003ULL + options.life),
        saved_(WatchedFiles(options.workFolder), CORVALIN_BINARY_DIR "/share/corvalin/Work") {
    files_.paths = {options.inputPath,
                    options.workFolder + "/stands.slf",
                    options.workFolder + "/places.loc",
                    options.workFolder + "/lolo.cnv",
                    "$RUN/out.tre",
                    "$RUN/missing/none.csv",
                    "/proc/x",
                    "$RUN"};
    for (std::string& path : files_.paths)
      if (path.rfind(options.runFolder, 0) == 0) path = "$RUN" + path.substr(options.runFolder.size());
    SetRunFolder(options.runFolder);
    if (!options.replayFile.empty()) {
      replay_ = ReadActions(options.replayFile);
      next_ = options.replayStart;
    }
  }

  void Start() { Arm(); }

 private:
  void Arm() {
    QTimer::singleShot(options_.replayFile.empty() ? 0 : 5, [this] { Turn(); });
  }

  void Check() {
    const bool saving = std::find(saving_.begin(), saving_.end(), true) != saving_.end();
    Removal removal = Removal::None;
    for (const Removal running : removals_) removal = std::max(removal, running);
    NoteListFiles();
    const std::string fault = saved_.Check(saving, removal, listFiles_);
    if (!fault.empty()) Finding("saved file: " + fault);
  }

  // The files the first screen names as the stand list and the location
  // file, at any time of this life: the editors write lines into them, even
  // into a template chosen there, and a save may end with the first screen
  // loaded afresh.
  void NoteListFiles() {
    if (!App().TemplateLoaded()) return;
    for (const std::string* caption :
         {&App().Template().lblSlfFile.Caption, &App().Template().lblLocationsFile.Caption})
      if (!caption->empty() && std::find(listFiles_.begin(), listFiles_.end(), *caption) == listFiles_.end())
        listFiles_.push_back(*caption);
  }

  void Turn() {
    Check();
    if (done_ >= options_.budget || (!options_.replayFile.empty() && next_ >= static_cast<long>(replay_.size()))) {
      if (!finishing_) Finish();
      return;
    }
    Action action;
    if (options_.replayFile.empty()) {
      QWidget* window = TopWindow(random_);
      if (window == nullptr) {
        // The program runs on with no window for the person: nothing can
        // end it but the process's death.
        if (!idle_.isValid()) idle_.start();
        if (idle_.elapsed() > kIdleLimitMs)
          Finding("idle: no window to act on for 10 s while the program runs (" + HiddenWindows() + ")");
        Arm();
        return;
      }
      idle_.invalidate();
      action = ChooseAction(window, random_, files_, GoalOfLife(options_.life));
      if (action.kind.empty()) {
        Arm();
        return;
      }
    } else {
      action = replay_[next_++];
    }
    ++done_;
    Tell("A " + Serialize(action));
    Arm();
    // A save pressed in a dialog (Save Template's OK) is written by the
    // routine that opened the dialog, once it closes: every action still
    // running under the save may change the files until it ends.
    if (MaySave(action)) std::fill(saving_.begin(), saving_.end(), true);
    saving_.push_back(MaySave(action));
    removals_.push_back(MayRemove(action));
    NoteListFiles();
    const bool outer = toolkit_.deleteWithNothingSelected;
    toolkit_.deleteWithNothingSelected = outer || StandListDeleteWithNothingSelected(action);
    const bool performed = Perform(action);
    toolkit_.deleteWithNothingSelected = outer;
    if (!performed) Tell("S");
    Check();
    saving_.pop_back();
    removals_.pop_back();
  }

  // The budget is spent: the files are checked once more after the events
  // the last actions posted, and the life ends.
  void Finish() {
    finishing_ = true;
    QTimer::singleShot(300, [] {
      Tell("D");
      std::fflush(nullptr);
      std::_Exit(0);
    });
  }

  const LifeOptions& options_;
  WatchedToolkit& toolkit_;
  std::mt19937_64 random_;
  SavedFiles saved_;
  FileChoices files_;
  std::vector<Action> replay_;
  long next_ = 0;
  long done_ = 0;
  // Whether each action running, the outermost first, may write a save.
  std::vector<bool> saving_;
  std::vector<std::string> listFiles_;
  static constexpr qint64 kIdleLimitMs = 10000;
  QElapsedTimer idle_;
  // Which files each action running may remove, the outermost first.
  std::vector<Removal> removals_;
  bool finishing_ = false;
};

}  // namespace

int RunLife(int argc, char** argv, const LifeOptions& options) {
  pipeFd = options.pipeFd;
  std::string why;
  if (ConfineWrites({options.runFolder}, why))
    Tell("C 1");
  else
    Tell("C 0 " + why);
  std::setlocale(LC_ALL, "");
  SetStartFolder(StartFolder());
  SetCommandLine("");
  SetProgramFileFolder(CORVALIN_BINARY_DIR "/bin/");
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Corvalin"));
  WatchedToolkit toolkit;
  SetToolkit(&toolkit);
  AttachDesktopViews();
  if (options.input == "growing") GrowWhileRunning(options.inputPath, 64L * 1024 * 1024);

  QTimer heartbeat;
  heartbeat.setInterval(100);
  const auto beat = [&toolkit] {
    const QDialog* busy = toolkit.BusyWindow();
    Tell(busy != nullptr && busy->isVisible() ? "H 1" : "H 0");
  };
  QObject::connect(&heartbeat, &QTimer::timeout, beat);
  SetPaceHook(beat);
  heartbeat.start();
  Person person(options, toolkit);
  person.Start();
  int status = 0;
  try {
    MainForm().Form_Load();
    status = QApplication::exec();
  } catch (const ProcessEnded& ended) {
    status = ended.exitCode;
  }
  Tell("E " + std::to_string(status));
  std::fflush(nullptr);
  std::_Exit(status);
}

}  // namespace corvalin::exerciser
