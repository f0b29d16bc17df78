// What the desktop tests of the wizard's windows share: a fresh process in a
// fresh HOME (empty, or with the Data and Work folders set up and the
// sample templates in place), the desktop's windows for the screens, and a
// way to answer the modal window that comes up next.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "ConfiguredHome.h"
#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "screens/ProcessState.h"
#include "screens/frmMain.h"
#include "shell/Process.h"
#include "shell/Settings.h"
#include "shell/Toolkit.h"

namespace corvalin::desktoptest {

// A fresh process and an empty HOME; the program's folder is the build's,
// so the installation files beside it are found.
inline QString FreshEmptyHome() {
  ResetProcessState();
  AttachDesktopViews();
  SetProgramFileFolder(CORVALIN_BINARY_DIR "/bin");
  SetCommandLine("");
  return NewHome();
}

inline QString FreshConfiguredHome() {
  const QString home = FreshEmptyHome();
  ConfigureHome(home);
  return home;
}

// Runs the events posted so far and those they post in turn, and destroys
// the windows let go of: every effect of the last click is done when it
// returns, on any machine. No event of these tests comes from outside the
// process (the platform is offscreen), so none is still to come.
inline void Settle() {
  for (int round = 0; round < 8; ++round) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
  }
}

// Runs act on the next modal window (a box, a modal screen) once it is up,
// from inside its loop.
inline void WhenModal(std::function<void(QWidget*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(10);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    act(modal);
  });
  timer->start();
}

// Answers the next message box with a button, and keeps its text.
inline void AnswerBox(QMessageBox::StandardButton button, QString* text = nullptr) {
  WhenModal([button, text](QWidget* modal) {
    auto* box = qobject_cast<QMessageBox*>(modal);
    if (box == nullptr) {
      modal->close();
      return;
    }
    if (text != nullptr) *text = box->text();
    box->button(button)->click();
  });
}

// The control of a window with this object name; the test ends when there
// is none, saying which window it looked in.
template <class T>
T* Child(QWidget* window, const char* name) {
  T* child = window->findChild<T*>(QString::fromLatin1(name));
  if (child == nullptr)
    qFatal("no control %s in %s \"%s\" titled \"%s\"%s", name, window->metaObject()->className(),
           qPrintable(window->objectName()), qPrintable(window->windowTitle()),
           window->isVisible() ? "" : ", hidden");
  return child;
}

// The visible top-level window with this object name, or null.
inline QWidget* Window(const QString& name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name && widget->isVisible()) return widget;
  return nullptr;
}

// The first screen of a new configured HOME, with the template chosen in its
// list and the input and output chosen through its Browse buttons (the
// output's name in the HOME unless it is a full path).
inline QWidget* ReadyFirstScreen(QtToolkit& toolkit, const QString& input, const QString& output,
                                 const QString& templateName) {
  const QString home = FreshConfiguredHome();
  MainForm().Form_Load();
  Settle();
  QWidget* setup = Window(QStringLiteral("frmTemplate"));
  if (setup == nullptr) qFatal("the first screen is not up");
  auto* templates = Child<QComboBox>(setup, "cmbTemplate");
  const int index = templates->findText(templateName);
  templates->setCurrentIndex(index);
  emit templates->activated(index);
  const QString outputPath = output.startsWith(QLatin1Char('/')) ? output : home + QLatin1Char('/') + output;
  std::deque<std::string> files{input.toStdString(), outputPath.toStdString()};
  toolkit.AnswerFileDialog = [files](const FileDialogRequest&) mutable -> std::optional<std::string> {
    std::string file = files.front();
    files.pop_front();
    return file;
  };
  Child<QPushButton>(setup, "cmdChangeInput")->click();
  Child<QPushButton>(setup, "cmdChangeOutput")->click();
  toolkit.AnswerFileDialog = nullptr;
  Settle();
  return setup;
}

// The window named that a press of the window's button brings up.
inline QWidget* Press(QWidget* window, const char* button, const char* next) {
  Child<QPushButton>(window, button)->click();
  Settle();
  QWidget* shown = Window(QString::fromLatin1(next));
  if (shown == nullptr) qFatal("no window %s after %s", next, button);
  return shown;
}

// What a test program of the wizard's windows holds: the desktop's Toolkit,
// in use from its first test to its last, and a fresh process after each.
class WizardWindows {
 protected:
  QtToolkit toolkit_;

  void UseToolkit() { SetToolkit(&toolkit_); }
  static void LeaveToolkit() {
    ResetProcessState();
    SetToolkit(nullptr);
  }
  static void FreshProcessAfterTest() {
    ResetProcessState();
    Settle();
  }
  // The first screen over the survey, with the lolo template and an output
  // in the HOME.
  QWidget* LoloFirstScreen() {
    return ReadyFirstScreen(toolkit_, QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv"),
                            QStringLiteral("lolo.tre"), QStringLiteral("lolo"));
  }
};

}  // namespace corvalin::desktoptest
