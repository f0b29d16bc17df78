// The busy window never stays on the screen with nothing behind it: a load
// or a translation that fails half way takes it down with its report, and
// the person can close it by its close box at any time.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QtTest>
#include <deque>
#include <optional>

#include "DesktopHome.h"
#include "desktop/QtToolkit.h"
#include "screens/Application.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "shell/RunState.h"
#include "worktable/Recordset.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

void Write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

// Every box that comes up is answered with OK and its text kept, and the
// busy window is looked at each time the program runs pending events.
class Watcher {
 public:
  QStringList boxes;
  bool busySeen = false;

  Watcher() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      if (Window(QStringLiteral("frmBusyMessage")) != nullptr) busySeen = true;
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      boxes << box->text();
      box->button(QMessageBox::Ok)->click();
    });
    timer_.start(0);
  }

 private:
  QTimer timer_;
};

const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

}  // namespace

class BusyWindowTest : public QObject, public WizardWindows {
  Q_OBJECT

 private:
  // The column screen over the input, with the template chosen.
  QWidget* Columns(const QString& input, const QString& output, const QString& templateName) {
    return Press(ReadyFirstScreen(toolkit_, input, output, templateName), "cmdNextTrans", "frmColumns");
  }

 private slots:
  void initTestCase() {
    UseToolkit();
    // Pending events run at every line: the busy window is seen, whatever
    // the machine's speed.
    toolkit_.SetEventInterval(0);
  }
  void cleanupTestCase() { LeaveToolkit(); }
  void cleanup() { FreshProcessAfterTest(); }

  void aLoadThatFailsLeavesNoBusyWindow() {
    const QString home = QDir::homePath();
    QByteArray lines;
    for (int i = 1; i <= 40; ++i) lines += QByteArray::number(i) + (i == 30 ? QByteArray(",a\0b", 4) : ",ab") + "\r\n";
    Write(QDir::tempPath() + QStringLiteral("/corvalin-busy-nul.csv"), lines);
    QWidget* columns = Columns(QDir::tempPath() + QStringLiteral("/corvalin-busy-nul.csv"),
                               QDir::tempPath() + QStringLiteral("/corvalin-busy-nul.tre"), QStringLiteral("None"));
    Watcher person;
    Child<QPushButton>(columns, "cmdNext")->click();
    Settle();
    QVERIFY(person.busySeen);
    QCOMPARE(person.boxes.size(), 1);
    QVERIFY2(person.boxes[0].contains(QStringLiteral("Input line 30 holds a null character")),
             qPrintable(person.boxes[0]));
    QVERIFY(Window(QStringLiteral("frmBusyMessage")) == nullptr);
    QVERIFY(!Run().BusyWindowLoaded);
    // The load reported its failure and the wizard went on to the grid with
    // the rows read before it.
    QVERIFY(Window(QStringLiteral("frmHeaders")) != nullptr);
  }

  void aTranslationThatFailsLeavesNoBusyWindow() {
    const QString folder = QDir::homePath() + QStringLiteral("/gone");
    QVERIFY(QDir().mkpath(folder));
    QWidget* columns = Columns(kSurvey, folder + QStringLiteral("/lolo.tre"), QStringLiteral("lolo"));
    // The output's folder goes before the translation writes into it.
    QVERIFY(QDir(folder).removeRecursively());
    Watcher person;
    Child<QPushButton>(columns, "cmdFinish")->click();
    Settle();
    QVERIFY(person.busySeen);
    // The translation reports its failure, then goes on as if all were well.
    QCOMPARE(person.boxes, (QStringList{QStringLiteral("Error translating file.Module = "
                                                       "BusyMessage\n76: Path not found"),
                                        QStringLiteral("Translation completed.")}));
    QVERIFY(Window(QStringLiteral("frmBusyMessage")) == nullptr);
    QVERIFY(!Run().BusyWindowLoaded);
  }

  void theCloseBoxDuringALoadStopsItAndTheWindowGoes() {
    QByteArray lines;
    for (int i = 1; i <= 100; ++i) lines += QByteArray::number(i) + ",ab\r\n";
    Write(QDir::tempPath() + QStringLiteral("/corvalin-busy-close.csv"), lines);
    QWidget* columns = Columns(QDir::tempPath() + QStringLiteral("/corvalin-busy-close.csv"),
                               QDir::tempPath() + QStringLiteral("/corvalin-busy-close.tre"), QStringLiteral("None"));
    int events = 0;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&] {
      QWidget* busy = Window(QStringLiteral("frmBusyMessage"));
      if (busy == nullptr || ++events < 5) return;
      closer.stop();
      busy->close();
      QVERIFY(!busy->isVisible());
    });
    closer.start(0);
    Child<QPushButton>(columns, "cmdNext")->click();
    Settle();
    QVERIFY(Run().BusyCancelled);
    QCOMPARE(App().Headers().Adodc1.Recordset->RecordCount(), 5L);
    QVERIFY(Window(QStringLiteral("frmBusyMessage")) == nullptr);
  }
};

QTEST_MAIN(BusyWindowTest)
#include "BusyWindowTest.moc"
