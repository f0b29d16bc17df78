// The wizard's screens in turn on the whole screen, frames included: each
// screen opens where the one before it stood and lies wholly on the screen.
// Under a window manager (make screenshots runs one on a 1366x768 screen)
// these are what a person sees, title bars and all.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <cstdio>
#include <deque>
#include <optional>

#include "Tour.h"
#include "desktop/QtToolkit.h"
#include "screens/frmMain.h"
#include "shell/Toolkit.h"

namespace corvalin::tour {
namespace {

void Report(QWidget* window) {
  const QRect frame = window->frameGeometry();
  const QRect inner = window->geometry();
  std::printf("placement: %s frame %d,%d %dx%d inside %d,%d %dx%d\n", qPrintable(window->objectName()), frame.x(),
              frame.y(), frame.width(), frame.height(), inner.x(), inner.y(), inner.width(), inner.height());
}

const Registration placement{"40-wizard-placement", [](Tour& tour) {
  const QString home = PrepareConfiguredHome();
  MainForm().Form_Load();
  QWidget* setup = tour.Window(QStringLiteral("frmTemplate"));
  auto* templates = Child<QComboBox>(setup, "cmbTemplate");
  const int lolo = templates->findText(QStringLiteral("lolo"));
  templates->setCurrentIndex(lolo);
  emit templates->activated(lolo);
  AnswerFiles({QDir::cleanPath(Tour::SharedData() + QStringLiteral("/lolo-2022/tree.csv")),
               home + QStringLiteral("/Documents/Orvanta/lolo.tre")});
  Child<QPushButton>(setup, "cmdChangeInput")->click();
  Child<QPushButton>(setup, "cmdChangeOutput")->click();
  Kit().AnswerFileDialog = nullptr;
  Tour::Settle(300);
  Report(setup);
  tour.SaveScreen(QStringLiteral("desktop-setup"));
  // Moved to the top left corner, as a person may.
  setup->move(0, 0);
  Tour::Settle(300);
  Report(setup);
  for (int round = 0; round < 2; ++round) {
    Child<QPushButton>(tour.Window(QStringLiteral("frmTemplate")), "cmdNextTrans")->click();
    QWidget* columns = tour.Window(QStringLiteral("frmColumns"));
    Tour::Settle(300);
    Report(columns);
    if (round == 0) tour.SaveScreen(QStringLiteral("desktop-columns"));
    Child<QPushButton>(columns, "cmdNext")->click();
    QWidget* grid = tour.Window(QStringLiteral("frmHeaders"));
    Tour::Settle(300);
    Report(grid);
    if (round == 0) tour.SaveScreen(QStringLiteral("desktop-grid"));
    Child<QPushButton>(grid, "cmdBack")->click();
    Report(tour.Window(QStringLiteral("frmColumns")));
    Child<QPushButton>(tour.Window(QStringLiteral("frmColumns")), "cmdBack")->click();
    Tour::Settle(300);
    Report(tour.Window(QStringLiteral("frmTemplate")));
  }
}};

}  // namespace
}  // namespace corvalin::tour
