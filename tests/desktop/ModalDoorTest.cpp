// The one door of modal dialogs, in the desktop: App().ShowModal runs the
// dialog window's own modal loop until the dialog hides itself, whether by
// its OK or by the person closing the window; events in the loop bring the
// views up to date as they end; an unloaded dialog's window goes.
#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest/QtTest>

#include "desktop/QtToolkit.h"
#include "desktop/ScreenWindow.h"
#include "screens/Application.h"
#include "screens/Screen.h"
#include "screens/frmTemplateName.h"
#include "screens/frmTemplate.h"
#include "screens/StateDigest.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"
#include "shell/RunState.h"

using namespace corvalin;

namespace {

// A dialog with a text and two buttons, as the program's small dialogs are.
class AskDialog : public Screen {
 public:
  const char* Name() const override { return "AskDialog"; }
  void cmdOk_Click() {
    RunEvent([&] {
      Answer = "ok";
      Hide();
    });
  }
  void DismissAsCancelled() override {
    Answer = "cancelled";
    Hide();
  }
  std::string Answer;
  Label lblText;

 protected:
  void DescribeControls(StateDigest& digest) const override {
    Screen::DescribeControls(digest);
    digest << lblText;
  }
};

class AskWindow : public ScreenWindow {
 public:
  explicit AskWindow(AskDialog& dialog) : ScreenWindow(dialog), dialog_(dialog) {
    ok = new QPushButton(QStringLiteral("OK"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ok);
    connect(ok, &QPushButton::clicked, this, [this] { Fire([this] { dialog_.cmdOk_Click(); }); });
  }
  QPushButton* ok;
  int redraws = 0;

 protected:
  void Redraw(const ScreenChanges&) override { ++redraws; }

 private:
  AskDialog& dialog_;
};

// A window over the save-template dialog with its Cancel.
class NameWindow : public ScreenWindow {
 public:
  explicit NameWindow(frmTemplateName& dialog) : ScreenWindow(dialog), dialog_(dialog) {
    cancel = new QPushButton(QStringLiteral("Cancel"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(cancel);
    connect(cancel, &QPushButton::clicked, this, [this] { Fire([this] { dialog_.cmdCancel_Click(); }); });
  }
  QPushButton* cancel;
  int redraws = 0;

 protected:
  void Redraw(const ScreenChanges&) override { ++redraws; }

 private:
  frmTemplateName& dialog_;
};

// Once the window is up in its modal loop, does something with it.
void WhenShown(QWidget* window, std::function<void()> act) {
  auto* timer = new QTimer;
  timer->setInterval(10);
  QObject::connect(timer, &QTimer::timeout, [timer, window, act] {
    if (window->isVisible() && window->isModal()) {
      timer->stop();
      timer->deleteLater();
      act();
    }
  });
  timer->start();
}

}  // namespace

class ModalDoorTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    // The first screen, which the name dialog reads its list from, reads
    // the settings: they are the test's own.
    QVERIFY(home_.isValid());
    qputenv("HOME", home_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home_.path() + QStringLiteral("/.config")).toUtf8());
  }
  void init() {
    ResetRunState();
    SetToolkit(&toolkit_);
  }
  void cleanup() {
    App().UnloadAll();
    SetToolkit(nullptr);
  }

  void OkInTheWindowEndsTheModalLoop() {
    AskDialog dialog;
    auto* window = new AskWindow(dialog);
    bool blocksTheOthers = false;
    WhenShown(window, [window, &blocksTheOthers] {
      // Modal in Qt's eyes too, though its Shown put it up first.
      blocksTheOthers = QApplication::activeModalWidget() == window;
      QTest::mouseClick(window->ok, Qt::LeftButton);
    });
    RunEvent([&] { App().ShowModal(dialog); });
    QVERIFY(blocksTheOthers);
    QCOMPARE(QString::fromStdString(dialog.Answer), QStringLiteral("ok"));
    QVERIFY(!window->isVisible());
    QVERIFY(!dialog.Visible());
    delete window;
  }

  void ClosingTheWindowIsTheDialogsCancel() {
    AskDialog dialog;
    auto* window = new AskWindow(dialog);
    WhenShown(window, [window] { window->close(); });
    RunEvent([&] { App().ShowModal(dialog); });
    QCOMPARE(QString::fromStdString(dialog.Answer), QStringLiteral("cancelled"));
    QVERIFY(!window->isVisible());
    delete window;
  }

  void AnEventInTheLoopRedrawsTheWindowWhenItEndsAndTheUnloadedDialogsWindowGoes() {
    NameWindow* window = nullptr;
    // The first screen, loaded for the dialog's list, goes without a window.
    App().ViewFactory = [&window](Screen& screen) {
      if (auto* dialog = dynamic_cast<frmTemplateName*>(&screen)) window = new NameWindow(*dialog);
    };
    frmTemplateName& dialog = App().TemplateName();
    QPointer<NameWindow> watched = window;
    int redrawsAfterTyping = -1;
    WhenShown(window, [&] {
      const int before = window->redraws;
      ScreenWindow::Fire([&] { dialog.SetText("stands"); });
      redrawsAfterTyping = window->redraws - before;
      QTest::mouseClick(window->cancel, Qt::LeftButton);
    });
    RunEvent([&] {
      App().ShowModal(dialog);
      App().UnloadTemplateName();
    });
    QCOMPARE(redrawsAfterTyping, 1);
    QVERIFY(!Run().TemplateSaved);
    App().ViewFactory = nullptr;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(watched == nullptr);
  }

  void ADialogWithoutAWindowEndsAsCancelledAtOnce() {
    AskDialog dialog;
    RunEvent([&] { App().ShowModal(dialog); });
    QCOMPARE(QString::fromStdString(dialog.Answer), QStringLiteral("cancelled"));
  }

  void AWindowGoesWhenItsScreenIsUnloaded() {
    AskDialog dialog;
    QPointer<AskWindow> window = new AskWindow(dialog);
    window->Unloaded();
    QVERIFY(window != nullptr);
    // Deleted once Qt's loop has it back.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window == nullptr);
    QVERIFY(dialog.View() == nullptr);
  }

 private:
  QTemporaryDir home_;
  QtToolkit toolkit_;
};

QTEST_MAIN(ModalDoorTest)
#include "ModalDoorTest.moc"
