#include "Tour.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

#include "ConfiguredHome.h"
#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "screens/Application.h"
#include "screens/ProcessState.h"
#include "screens/frmMain.h"
#include "shell/EventScope.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/Toolkit.h"

namespace corvalin::tour {

namespace {

std::vector<Scene>& Scenes() {
  static std::vector<Scene> scenes;
  return scenes;
}

[[noreturn]] void Fail(const QString& why) {
  std::fprintf(stderr, "screenshots: %s\n", qPrintable(why));
  std::exit(1);
}

}  // namespace

Registration::Registration(const char* name, std::function<void(Tour&)> run) {
  Scenes().push_back({name, std::move(run)});
}

void Tour::Save(QWidget* window, const QString& name) {
  Settle();
  const QString path = output_ + QLatin1Char('/') + name + QStringLiteral(".png");
  if (!window->grab().save(path)) Fail(QStringLiteral("cannot write ") + path);
  std::printf("screenshots: %s\n", qPrintable(path));
}

QWidget* Tour::Window(const QString& objectName) {
  QElapsedTimer waited;
  waited.start();
  while (waited.elapsed() < 5000) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == objectName && widget->isVisible()) return widget;
    Settle(50);
  }
  Fail(QStringLiteral("no window ") + objectName);
}

void Tour::Settle(int milliseconds) {
  QElapsedTimer waited;
  waited.start();
  while (waited.elapsed() < milliseconds) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void Tour::SaveScreen(const QString& name) {
  Settle(400);
  QScreen* screen = QGuiApplication::primaryScreen();
  const QString path = output_ + QLatin1Char('/') + name + QStringLiteral(".png");
  screen->grabWindow(0).save(path);
  std::printf("screenshots: %s\n", qPrintable(path));
}

void Tour::WhenModal(std::function<void(QWidget*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(50);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    QPointer<QWidget> modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    timer->stop();
    Settle(200);
    // A window that was going as the timer fired (the box before it) is
    // not the one to act on: wait for the next.
    if (modal == nullptr || !modal->isVisible() || QApplication::activeModalWidget() != modal) {
      timer->start();
      return;
    }
    timer->deleteLater();
    act(modal);
  });
  timer->start();
}

QtToolkit& Kit() { return dynamic_cast<QtToolkit&>(UI().Kit()); }

void AnswerFiles(std::deque<QString> files) {
  Kit().AnswerFileDialog = [files](const FileDialogRequest&) mutable -> std::optional<std::string> {
    if (files.empty()) return std::nullopt;
    const QString file = files.front();
    files.pop_front();
    return file.toStdString();
  };
}

QString Tour::SharedData() { return QStringLiteral(CORVALIN_SOURCE_DIR "/../shared/data"); }
QString Tour::SourceDir() { return QStringLiteral(CORVALIN_SOURCE_DIR); }

// A fresh process: no screens, fresh run state, and the desktop's windows for
// the screens to come.
void FreshProcess() {
  ResetProcessState();
  AttachDesktopViews();
}

QString PrepareEmptyHome() {
  FreshProcess();
  return desktoptest::NewHome("tour");
}

QString PrepareConfiguredHome() {
  FreshProcess();
  const QString home = desktoptest::NewHome("tour");
  desktoptest::ConfigureHome(home);
  return home;
}

}  // namespace corvalin::tour

using namespace corvalin::tour;

// screenshot_tour <output folder> [scene name prefix]
int RunTour(int argc, char** argv) {
  // Absolute: the start sequence changes to the program's folder.
  const QString output =
      QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs/screenshots")).absolutePath();
  const QString only = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
  QDir().mkpath(output);
  std::vector<Scene> scenes = Scenes();
  std::sort(scenes.begin(), scenes.end(), [](const Scene& a, const Scene& b) { return std::string(a.name) < b.name; });
  Tour tour(output);
  for (const Scene& scene : scenes) {
    if (!only.isEmpty() && !QString::fromLatin1(scene.name).startsWith(only)) continue;
    std::printf("screenshots: scene %s\n", scene.name);
    scene.run(tour);
    // Every window of the scene goes before the next one starts.
    corvalin::ResetProcessState();
    for (QWidget* widget : QApplication::topLevelWidgets()) widget->close();
    Tour::Settle(100);
  }
  return 0;
}
