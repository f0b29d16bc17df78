// The desktop Toolkit with real widgets, offscreen: message boxes, the busy
// window and its Cancel, the append question.
#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QtTest>
#include <functional>

#include "UrlCatcher.h"
#include "desktop/QtToolkit.h"
#include "shell/RunState.h"

using namespace corvalin;

namespace {

// Once the modal window is up, does something with it.
void WhenModalIsUp(std::function<void(QWidget*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(20);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    if (QWidget* modal = QApplication::activeModalWidget()) {
      timer->stop();
      timer->deleteLater();
      act(modal);
    }
  });
  timer->start();
}

void PressButton(QWidget* window, const QString& text) {
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
    if (button->text().remove(QLatin1Char('&')) == text) {
      button->click();
      return;
    }
  }
  QFAIL(qPrintable(QStringLiteral("no button ") + text));
}

}  // namespace

class QtToolkitTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { ResetRunState(); }

  void MessageBoxShowsTextTitleAndGivesTheButtonPressed() {
    QtToolkit toolkit;
    QString seenText;
    QString seenTitle;
    WhenModalIsUp([&](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      QVERIFY(box != nullptr);
      seenText = box->text();
      seenTitle = box->windowTitle();
      PressButton(box, QStringLiteral("No"));
    });
    const Answer answer =
        toolkit.Message({"Do you really want to quit?", Buttons::YesNo, Icon::Question, "", 1});
    QCOMPARE(answer, Answer::No);
    QCOMPARE(seenText, QStringLiteral("Do you really want to quit?"));
    QCOMPARE(seenTitle, QStringLiteral("Corvalin"));
  }

  void MessageBoxLineBreaksAreShownAsLines() {
    QtToolkit toolkit;
    QString seenText;
    WhenModalIsUp([&](QWidget* modal) {
      seenText = qobject_cast<QMessageBox*>(modal)->text();
      PressButton(modal, QStringLiteral("OK"));
    });
    QCOMPARE(toolkit.Message({"Error in form: frmMain\r\n76: Path not found", Buttons::OK, Icon::None,
                              "Orvanta - Corvalin", 1}),
             Answer::OK);
    QCOMPARE(seenText, QStringLiteral("Error in form: frmMain\n76: Path not found"));
  }

  void RetryBoxGivesRetry() {
    QtToolkit toolkit;
    WhenModalIsUp([](QWidget* modal) { PressButton(modal, QStringLiteral("Retry")); });
    QCOMPARE(toolkit.Message({"Try again?", Buttons::RetryCancel, Icon::Question, "t", 1}), Answer::Retry);
  }

  void BusyWindowCancelSetsBusyCancelledAndTheWindowStays() {
    QtToolkit toolkit;
    toolkit.ShowBusyWindow("Loading", "Line 1");
    QVERIFY(toolkit.BusyWindow() != nullptr);
    QCOMPARE(toolkit.BusyWindow()->windowTitle(), QStringLiteral("Loading"));
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("Line 1"));
    QCOMPARE(QString::fromStdString(Run().CurrentScreen), QStringLiteral("BusyMessage"));
    QVERIFY(!Run().BusyCancelled);
    QTest::mouseClick(toolkit.BusyCancelButton(), Qt::LeftButton);
    QVERIFY(Run().BusyCancelled);
    QVERIFY(toolkit.BusyWindow()->isVisible());
  }

  void BusyTextOfALineBetweenTwoRunsOfEventsIsSetWhenTheyRunNext() {
    QtToolkit toolkit;
    // The test's own clock: it moves only when the test moves it.
    qint64 now = 1000;
    toolkit.Clock = [&now] { return now; };
    QVERIFY(toolkit.EventsDueNow());
    toolkit.ShowBusyWindow("Loading", "Line 1");
    toolkit.DoEvents();
    QVERIFY(!toolkit.EventsDueNow());
    now += QtToolkit::kEventIntervalMs - 1;
    QVERIFY(!toolkit.EventsDueNow());
    toolkit.ShowBusyWindow("Loading", "Line 2");
    toolkit.ShowBusyWindow("Loading", "Line 3");
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("Line 1"));
    toolkit.DoEvents();
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("Line 3"));
    now += QtToolkit::kEventIntervalMs;
    QVERIFY(toolkit.EventsDueNow());
    toolkit.ShowBusyWindow("Loading", "Line 4");
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("Line 4"));
  }

  void WithAnIntervalOfNoneEveryLineRunsTheEventsAndShowsItsText() {
    QtToolkit toolkit;
    qint64 now = 1000;
    toolkit.Clock = [&now] { return now; };
    toolkit.SetEventInterval(0);
    toolkit.ShowBusyWindow("Loading", "Line 1");
    toolkit.DoEvents();
    QVERIFY(toolkit.EventsDueNow());
    toolkit.ShowBusyWindow("Loading", "Line 2");
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("Line 2"));
  }

  void BusyWindowWithAnUnchangedTitleOnlyChangesTheText() {
    QtToolkit toolkit;
    toolkit.ShowBusyWindow("Loading", "Line 1");
    QDialog* first = toolkit.BusyWindow();
    toolkit.ShowBusyWindow("Loading", "Line 2");
    QCOMPARE(toolkit.BusyWindow(), first);
    QCOMPARE(toolkit.BusyWindow()->windowTitle(), QStringLiteral("Loading"));
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("Line 2"));
  }

  void ClosingTheBusyWindowByItsCloseBoxSetsBusyCancelledAndTheWindowGoes() {
    QtToolkit toolkit;
    toolkit.ShowBusyWindow("Loading", "x");
    QVERIFY(toolkit.BusyWindow()->isVisible());
    toolkit.BusyWindow()->close();
    QVERIFY(Run().BusyCancelled);
    QVERIFY(!toolkit.BusyWindow()->isVisible());
    // A loop that goes on (a translation ignores the flag) shows it again.
    toolkit.ShowBusyWindow("Loading", "y");
    QVERIFY(toolkit.BusyWindow()->isVisible());
    QCOMPARE(toolkit.BusyMessageLabel()->text(), QStringLiteral("y"));
  }

  void EscapeInTheBusyWindowIsItsCancel() {
    QtToolkit toolkit;
    toolkit.ShowBusyWindow("Loading", "x");
    QTest::keyClick(toolkit.BusyWindow(), Qt::Key_Escape);
    QVERIFY(Run().BusyCancelled);
    QVERIFY(toolkit.BusyWindow()->isVisible());
  }

  void HidingTheBusyWindowByTheProgramIsNoCancel() {
    QtToolkit toolkit;
    toolkit.ShowBusyWindow("Loading", "x");
    toolkit.HideBusyWindow();
    QVERIFY(toolkit.BusyWindow() == nullptr);
    QVERIFY(!Run().BusyCancelled);
  }

  void AppendQuestionGivesTheButtonPressed() {
    QtToolkit toolkit;
    QString title;
    WhenModalIsUp([&](QWidget* modal) {
      title = modal->windowTitle();
      PressButton(modal, QStringLiteral("Append"));
    });
    QCOMPARE(toolkit.AskAppendOverwriteCancel("File already exists.  Append to file, overwrite, or cancel?"),
             AppendChoice::Append);
    QCOMPARE(title, QStringLiteral("App.Title"));
  }

  void ClosingTheAppendQuestionIsNoAnswer() {
    QtToolkit toolkit;
    WhenModalIsUp([](QWidget* modal) { modal->close(); });
    QCOMPARE(toolkit.AskAppendOverwriteCancel("File already exists."), AppendChoice::Closed);
  }

  void BannerShowsTheTranslatingText() {
    QtToolkit toolkit;
    toolkit.ShowBanner("Corvalin", "Translating file ...");
    QVERIFY(toolkit.Banner() != nullptr);
    QCOMPARE(toolkit.Banner()->windowTitle(), QStringLiteral("Corvalin"));
    QCOMPARE(toolkit.Banner()->findChild<QLabel*>(QStringLiteral("Label1"))->text(),
             QStringLiteral("Translating file ..."));
    toolkit.HideBanner();
    QVERIFY(toolkit.Banner() == nullptr);
  }

  void FilterTextBecomesQtFilters() {
    QCOMPARE(QtFilterOf("Tree List (*.tre)|*.tre|All Files (*.*)|*.*"),
             QStringLiteral("Tree List (*.tre);;All Files (*)"));
    QCOMPARE(QtFilterOf("Text (*.txt; *.out; *.prn)|*.txt;*.out;*.prn"),
             QStringLiteral("Text (*.txt *.out *.prn)"));
    QCOMPARE(QtFilterOf("Location (*.loc) | *.loc |All Files (*.*) | *.*"),
             QStringLiteral("Location (*.loc);;All Files (*)"));
  }

  void HelpGoesToTheBrowserAsTheFileAtItsTopic() {
    QtToolkit toolkit;
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "Open");
    const bool shown = toolkit.OpenHelp("/opt/corvalin/share/corvalin/Help/Orvanta.html", "context-7");
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QVERIFY(shown);
    QCOMPARE(catcher.opened.size(), 1);
    QCOMPARE(catcher.opened[0].toString(), QStringLiteral("file:///opt/corvalin/share/corvalin/Help/Orvanta.html#context-7"));
  }
};

QTEST_MAIN(QtToolkitTest)
#include "QtToolkitTest.moc"
