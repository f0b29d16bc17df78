// The screenshot tour: the real program's windows, started by the real start
// sequence under a display (Xvfb in `make screenshots`), driven the way a
// person drives them, each window saved as a PNG for people to look at.
// Scenes register themselves by name; they run in the order of their names
// ("10-...", "20-..."), each in a fresh HOME with its own settings.
#pragma once

#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>

namespace corvalin {
class QtToolkit;
}

namespace corvalin::tour {

class Tour {
 public:
  explicit Tour(QString outputFolder) : output_(std::move(outputFolder)) {}

  // Saves the window as <name>.png in the output folder (the window, as the
  // person sees it, without the frame the window manager draws).
  void Save(QWidget* window, const QString& name);
  // Saves the whole screen, every window on it with its frame.
  void SaveScreen(const QString& name);
  // The visible top-level window with this object name; fails the tour when
  // none is up within a few seconds.
  QWidget* Window(const QString& objectName);
  // Lets the event loop run for a while, so windows lay out and paint.
  static void Settle(int milliseconds = 150);
  // Runs act once a modal window is up (a box, a dialog), from inside its
  // loop; act must close it.
  static void WhenModal(std::function<void(QWidget*)> act);

  const QString& Output() const { return output_; }
  // The survey data of the project (../shared/data) and the source tree.
  static QString SharedData();
  static QString SourceDir();

 private:
  QString output_;
};

// A fresh HOME with the settings of a person who has set up the program:
// the Data and Work folders made and configured, and the sample templates in
// the Work folder. Returns the HOME.
QString PrepareConfiguredHome();
// A fresh HOME with nothing in it: the first start.
QString PrepareEmptyHome();

// The desktop's Toolkit the tour runs with.
QtToolkit& Kit();
// A control of a window by its object name, or null.
template <class T>
T* Child(QWidget* window, const char* name) {
  return window->findChild<T*>(QString::fromLatin1(name));
}
// The file dialogs answer with these paths, in turn; Cancel once they run out.
void AnswerFiles(std::deque<QString> files);

struct Scene {
  const char* name;
  std::function<void(Tour&)> run;
};
// Registers a scene at start-up: static Registration r{"10-setup", ...};
struct Registration {
  Registration(const char* name, std::function<void(Tour&)> run);
};

}  // namespace corvalin::tour
