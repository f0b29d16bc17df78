// What the desktop tests of the wizard's windows share: a fresh process in a
// fresh HOME (empty, or with the Data and Work folders set up and the
// sample templates in place), the desktop's windows for the screens, and a
// way to answer the modal window that comes up next.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>

#include "ConfiguredHome.h"
#include "desktop/ViewFactory.h"
#include "screens/ProcessState.h"
#include "shell/Process.h"
#include "shell/Settings.h"

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

// The visible top-level window with this object name, or null.
inline QWidget* Window(const QString& name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name && widget->isVisible()) return widget;
  return nullptr;
}

}  // namespace corvalin::desktoptest
