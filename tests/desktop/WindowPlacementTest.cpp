// Every window wholly on the screen, whatever its size (the tests run on a
// 1366x768 screen and on a 1024x768 one): the wizard's screens open where
// the one before them stood, moved and made smaller just enough to show
// whole, and the grid's buttons are always on the screen.
#include <QApplication>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QtTest/QtTest>
#include <deque>
#include <optional>

#include "DesktopHome.h"
#include "desktop/QtToolkit.h"
#include "screens/frmMain.h"
#include "shell/RunState.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

QRect Area() { return QGuiApplication::primaryScreen()->availableGeometry(); }

// Whether the whole of the window, frame and all, lies on the screen.
bool WhollyOnScreen(QWidget* window) { return Area().contains(window->frameGeometry()); }

// Whether a control of a window shows whole on the screen.
bool ShowsWhole(QWidget* control) {
  const QRect onScreen(control->mapToGlobal(QPoint(0, 0)), control->size());
  return control->isVisible() && Area().contains(onScreen) && control->window()->geometry().contains(onScreen);
}

const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

}  // namespace

class WindowPlacementTest : public QObject, public WizardWindows {
  Q_OBJECT

 private slots:
  void initTestCase() { UseToolkit(); }
  void cleanupTestCase() { LeaveToolkit(); }
  void cleanup() { FreshProcessAfterTest(); }

  void theFirstScreenOpensCentredAndWhole() {
    QWidget* setup = LoloFirstScreen();
    QVERIFY(WhollyOnScreen(setup));
    const QPoint offCentre = setup->frameGeometry().center() - Area().center();
    QVERIFY2(qAbs(offCentre.x()) <= 1 && qAbs(offCentre.y()) <= 1, qPrintable(QString::number(offCentre.x())));
  }

  void theGridOpensWholeWithEveryButtonOnTheScreen() {
    QWidget* setup = LoloFirstScreen();
    setup->move(Area().right() - setup->frameGeometry().width() + 1, Area().top());
    Settle();
    QWidget* grid = Press(Press(setup, "cmdNextTrans", "frmColumns"), "cmdNext", "frmHeaders");
    QVERIFY2(WhollyOnScreen(grid), qPrintable(QStringLiteral("%1,%2 %3x%4")
                                                  .arg(grid->frameGeometry().x())
                                                  .arg(grid->frameGeometry().y())
                                                  .arg(grid->frameGeometry().width())
                                                  .arg(grid->frameGeometry().height())));
    for (const char* name : {"cmdValidate", "cmdFinish", "cmdBack", "cmdNext", "cmdHelp", "cmdQuit", "cmdSaveTemplate",
                             "cmdEditTemplateCommands", "cmbVariant", "optMetric", "optImperial"})
      QVERIFY2(ShowsWhole(Child<QWidget>(grid, name)), name);
    // The table takes what is left: ten rows at least.
    auto* table = Child<QWidget>(grid, "TDBGrid1");
    QVERIFY2(table->height() > 10 * table->fontMetrics().height(), qPrintable(QString::number(table->height())));
  }

  void tenScreensInTurnOpenWhereTheOneBeforeStood() {
    QWidget* setup = LoloFirstScreen();
    // A place where every screen of the wizard fits whole.
    const QPoint place(Area().left() + 37, Area().top() + 2);
    setup->move(place);
    Settle();
    QCOMPARE(setup->frameGeometry().topLeft(), place);
    QWidget* window = setup;
    const std::vector<std::pair<const char*, const char*>> steps{
        {"cmdNextTrans", "frmColumns"}, {"cmdNext", "frmHeaders"},      {"cmdBack", "frmColumns"},
        {"cmdBack", "frmTemplate"},     {"cmdNextTrans", "frmColumns"}, {"cmdNext", "frmHeaders"},
        {"cmdBack", "frmColumns"},      {"cmdBack", "frmTemplate"},     {"cmdNextTrans", "frmColumns"},
        {"cmdBack", "frmTemplate"}};
    const bool gridFits = Area().width() >= 1184;
    for (const auto& [button, next] : steps) {
      window = Press(window, button, next);
      QVERIFY2(WhollyOnScreen(window), next);
      if (gridFits) QCOMPARE(window->frameGeometry().topLeft(), place);
    }
    if (!gridFits) {
      // The grid was made to fit the screen and stood at its left edge: the
      // screens after it opened there, and stay there.
      QCOMPARE(window->frameGeometry().topLeft(), QPoint(Area().left(), place.y()));
    }
  }

  void aScreenMovedPastTheEdgeOpensTheNextWhole() {
    QWidget* setup = LoloFirstScreen();
    setup->move(Area().right() - 100, Area().bottom() - 50);
    Settle();
    QWidget* columns = Press(setup, "cmdNextTrans", "frmColumns");
    QVERIFY(WhollyOnScreen(columns));
    QCOMPARE(columns->frameGeometry().bottomRight(), Area().bottomRight());
  }

  void aMessageBoxOpensCentredOverTheWindowInFront() {
    QWidget* setup = LoloFirstScreen();
    setup->move(Area().left() + 40, Area().top() + 30);
    setup->activateWindow();
    Settle();
    // The active window is the box's owner once the platform says so.
    while (QApplication::activeWindow() != setup) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QPoint offCentre;
    WhenModal([&](QWidget* modal) {
      offCentre = modal->frameGeometry().center() - setup->frameGeometry().center();
      qobject_cast<QMessageBox*>(modal)->button(QMessageBox::Ok)->click();
    });
    toolkit_.Message({"A message over the first screen.", Buttons::OK, Icon::Information, "t", 1});
    QVERIFY2(qAbs(offCentre.x()) <= 2 && qAbs(offCentre.y()) <= 2,
             qPrintable(QStringLiteral("%1,%2").arg(offCentre.x()).arg(offCentre.y())));
  }

  void theBusyWindowAndTheAppendQuestionOpenWhole() {
    QWidget* setup = LoloFirstScreen();
    QWidget* columns = Press(setup, "cmdNextTrans", "frmColumns");
    QFile old(QDir::homePath() + QStringLiteral("/lolo.tre"));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("an older list\r\n");
    old.close();
    toolkit_.SetEventInterval(0);
    bool busySeenWhole = false;
    bool busySeen = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      if (QWidget* busy = Window(QStringLiteral("frmBusyMessage")); busy != nullptr && !busySeen) {
        busySeen = true;
        busySeenWhole = WhollyOnScreen(busy);
      }
    });
    watch.start(0);
    QStringList seen;
    bool appendWhole = false;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr || !modal->isVisible()) return;
      if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        seen << box->text();
        box->button(QMessageBox::Ok)->click();
        return;
      }
      seen << modal->objectName();
      appendWhole = WhollyOnScreen(modal);
      Child<QPushButton>(modal, "cmdOverwrite")->click();
    });
    answer.start(0);
    Child<QPushButton>(columns, "cmdFinish")->click();
    toolkit_.SetEventInterval(QtToolkit::kEventIntervalMs);
    QVERIFY(busySeen);
    QVERIFY(busySeenWhole);
    QCOMPARE(seen, (QStringList{QStringLiteral("frmAppendOverwriteCancel"), QStringLiteral("Translation completed.")}));
    QVERIFY(appendWhole);
  }
};

QTEST_MAIN(WindowPlacementTest)
#include "WindowPlacementTest.moc"
