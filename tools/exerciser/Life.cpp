#include "Life.h"

#include <unistd.h>

#include <QApplication>
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
#include "Inputs.h"
#include "SavedFiles.h"
#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "screens/frmMain.h"
#include "shell/Error.h"
#include "shell/Process.h"
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

[[noreturn]] void Finding(const std::string& text) {
  Tell("F " + text);
  std::fflush(nullptr);
  std::_Exit(97);
}

// The desktop's Toolkit as the program has it, telling the parent when the
// run-time's box of an unhandled failure comes up and when the program ends.
class WatchedToolkit : public QtToolkit {
 public:
  Answer Message(const MessageRequest& request) override {
    // An error that escaped an event routine: "[" number "] " description
    // under the critical icon, before the program ends.
    if (request.icon == Icon::Critical && !request.text.empty() && request.text[0] == '[')
      Finding("unhandled failure: " + request.text);
    return QtToolkit::Message(request);
  }
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
        saved_(WatchedFiles(options.workFolder)) {
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
    const std::string fault = saved_.Check(saving, removing_ > 0);
    if (!fault.empty()) Finding("saved file: " + fault);
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
        Arm();
        return;
      }
      action = ChooseAction(window, random_, files_);
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
    removing_ += MayRemove(action) ? 1 : 0;
    Perform(action);
    Check();
    saving_.pop_back();
    removing_ -= MayRemove(action) ? 1 : 0;
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
  int removing_ = 0;
  bool finishing_ = false;
};

}  // namespace

int RunLife(int argc, char** argv, const LifeOptions& options) {
  pipeFd = options.pipeFd;
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
  QObject::connect(&heartbeat, &QTimer::timeout, [&toolkit] {
    const QDialog* busy = toolkit.BusyWindow();
    Tell(busy != nullptr && busy->isVisible() ? "H 1" : "H 0");
  });
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
