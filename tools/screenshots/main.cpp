// screenshot_tour: runs every scene of the tour; see Tour.h.
#include <QApplication>

#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "shell/Toolkit.h"

int RunTour(int argc, char** argv);

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Corvalin"));
  corvalin::QtToolkit toolkit;
  corvalin::SetToolkit(&toolkit);
  corvalin::AttachDesktopViews();
  return RunTour(argc, argv);
}
