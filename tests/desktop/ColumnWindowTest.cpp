// The column format screen as a real window, clicked: the preview with its
// line numbers and ruler, the column lines of the delimited view, and in
// fixed width mode the markers placed, dragged, merged and deleted with the
// mouse on the preview and on the ruler, their limits, and scrolling.
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest/QtTest>
#include <deque>
#include <optional>

#include "DesktopHome.h"
#include "desktop/ColumnPreview.h"
#include "desktop/QtToolkit.h"
#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmMain.h"
#include "shell/RunState.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

void Send(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
  QMouseEvent event(type, QPointF(at), widget->mapToGlobal(QPointF(at)),
                    type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

}  // namespace

class ColumnWindowTest : public QObject {
  Q_OBJECT

 private:
  QtToolkit toolkit_;
  QWidget* window_ = nullptr;
  ColumnPreview* preview_ = nullptr;
  frmColumns* screen_ = nullptr;

  int X(int position) const { return preview_->XOfPosition(position); }
  int Text() const { return preview_->LineY(2); }
  int Ruler() const { return preview_->RulerY(); }
  void Click(int x, int y) {
    Send(preview_, QEvent::MouseButtonPress, {x, y}, Qt::LeftButton);
    Send(preview_, QEvent::MouseButtonRelease, {x, y}, Qt::NoButton);
  }
  void Drag(int fromX, int toX, int y) {
    Send(preview_, QEvent::MouseButtonPress, {fromX, y}, Qt::LeftButton);
    for (int x = fromX; x != toX; x += (toX > fromX ? 1 : -1)) Send(preview_, QEvent::MouseMove, {x, y}, Qt::LeftButton);
    Send(preview_, QEvent::MouseMove, {toX, y}, Qt::LeftButton);
    Send(preview_, QEvent::MouseButtonRelease, {toX, y}, Qt::NoButton);
  }
  // What Qt sends for a double click: press, release, double click, release.
  void DoubleClick(int x, int y) {
    Click(x, y);
    Send(preview_, QEvent::MouseButtonDblClick, {x, y}, Qt::LeftButton);
    Send(preview_, QEvent::MouseButtonRelease, {x, y}, Qt::NoButton);
  }
  static std::vector<int> Positions() {
    std::vector<int> positions;
    for (int k = 1; k <= Markers().NumMarkers; ++k) positions.push_back(Markers().ColumnMarkers(k));
    return positions;
  }
  QColor PixelAt(int x, int y) { return preview_->grab().toImage().pixelColor(x, y); }
  void FixedWidth() {
    Child<QRadioButton>(window_, "optFixedWidth")->click();
    QVERIFY(screen_->optFixedWidth.Value);
  }

 private slots:
  void initTestCase() { SetToolkit(&toolkit_); }
  void cleanupTestCase() {
    ResetProcessState();
    SetToolkit(nullptr);
  }

  // The survey's first lines, and a longer file of its own with wide lines.
  void init() {
    const QString home = FreshConfiguredHome();
    QFile input(home + QStringLiteral("/wide.csv"));
    QVERIFY(input.open(QIODevice::WriteOnly));
    for (int i = 1; i <= 30; ++i)
      input.write(QByteArray::number(i) + ",ab\tc,x" + QByteArray(300, 'w') + "\r\n");
    input.close();
    MainForm().Form_Load();
    QWidget* setup = Window(QStringLiteral("frmTemplate"));
    QVERIFY(setup != nullptr);
    std::deque<std::string> files{input.fileName().toStdString(), (home + QStringLiteral("/out.tre")).toStdString()};
    toolkit_.AnswerFileDialog = [files](const FileDialogRequest&) mutable -> std::optional<std::string> {
      std::string file = files.front();
      files.pop_front();
      return file;
    };
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    Child<QPushButton>(setup, "cmdNextTrans")->click();
    toolkit_.AnswerFileDialog = nullptr;
    window_ = Window(QStringLiteral("frmColumns"));
    QVERIFY(window_ != nullptr);
    QCOMPARE(window_->windowTitle(), QStringLiteral("Corvalin - Specify Column Format"));
    preview_ = Child<ColumnPreview>(window_, "lblFileView");
    screen_ = &App().Columns();
    Settle();
  }
  void cleanup() {
    ResetProcessState();
    Settle();
  }

  void thePreviewShowsTenNumberedLinesUnderTheRuler() {
    QCOMPARE(screen_->CharacterWidth, double(preview_->CharacterWidth()));
    QCOMPARE(screen_->lblLineNumbers.Caption, std::string("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n"));
    QCOMPARE(screen_->lblFileViewRuler.Caption.substr(0, 21), std::string("0....:....1....:....2"));
    QVERIFY(preview_->font().fixedPitch() || QFontInfo(preview_->font()).fixedPitch());
    // The delimited view: a column line after each column but the last.
    QCOMPARE(screen_->optCharacterDelimited.Value, true);
    const ColumnLine& first = screen_->lneColumnMarker[1];
    QVERIFY(first.Visible);
    QCOMPARE(first.X, 3.0 * preview_->CharacterWidth());  // "10" and a blank
    QVERIFY(screen_->lneColumnMarker[2].Visible);
    QVERIFY(!screen_->lneColumnMarker[3].Visible);
    const QColor background = preview_->palette().color(QPalette::Base);
    QVERIFY(PixelAt(X(3), preview_->LineY(9)) != background);
  }

  void aTabShowsAsABrokenBar() {
    FixedWidth();
    QVERIFY(screen_->lblFileView.Caption.find("1,ab\xA6" "c") == 0);
  }

  void aClickPlacesAMarkerAtTheNearestBoundaryOnTextAndRuler() {
    FixedWidth();
    const int half = preview_->CharacterWidth() / 2;
    Click(X(10) + half - 1, Text());
    Click(X(20) - half + 1, Ruler());
    QCOMPARE(Positions(), (std::vector<int>{10, 20}));
    QVERIFY(screen_->lneColumnMarker[1].Visible);
    QCOMPARE(screen_->lneColumnMarker[2].X, 20.0 * preview_->CharacterWidth());
    QVERIFY(!screen_->lneColumnMarker[2].Grey);
    QVERIFY(Run().ReloadNeeded);
    const QColor background = preview_->palette().color(QPalette::Base);
    QVERIFY(PixelAt(X(20), preview_->LineY(9)) != background);
  }

  void aMarkerDraggedOntoAnotherLeavesOne() {
    FixedWidth();
    Click(X(10), Text());
    Click(X(20), Text());
    Drag(X(20), X(15), Text());
    QCOMPARE(Positions(), (std::vector<int>{10, 15}));
    Drag(X(15), X(10), Ruler());
    QCOMPARE(Positions(), (std::vector<int>{10}));
    QVERIFY(!screen_->lneColumnMarker[2].Visible);
  }

  void aDoubleClickDeletesTheMarkerAndIsNoFurtherPress() {
    FixedWidth();
    Click(X(10), Text());
    Click(X(30), Text());
    DoubleClick(X(30), Text());
    QCOMPARE(Positions(), (std::vector<int>{10}));
    // On an empty place: the first press makes a marker, the double click
    // deletes it, and nothing more comes of it.
    DoubleClick(X(40), Ruler());
    QCOMPARE(Positions(), (std::vector<int>{10}));
    QCOMPARE(screen_->SelectedMarker, int16_t{-1});
  }

  void theThirtiethMarkerIsRefused() {
    FixedWidth();
    for (int k = 1; k <= 29; ++k) Click(X(k * 5), Text());
    QCOMPARE(Markers().NumMarkers, int16_t{29});
    QString message;
    AnswerBox(QMessageBox::Ok, &message);
    Click(X(150), Text());
    QCOMPARE(message, QStringLiteral("Maximum of 30 columns."));
    QCOMPARE(Markers().NumMarkers, int16_t{29});
    // An existing marker is still taken up.
    Send(preview_, QEvent::MouseButtonPress, {X(50), Text()}, Qt::LeftButton);
    QCOMPARE(screen_->SelectedMarker, int16_t{10});
    QVERIFY(screen_->lneColumnMarker[10].Grey);
    Send(preview_, QEvent::MouseButtonRelease, {X(50), Text()}, Qt::NoButton);
    QCOMPARE(screen_->LastMarker, int16_t{10});
  }

  void aClickPast255SelectsNothing() {
    FixedWidth();
    auto* horizontal = Child<QScrollBar>(window_, "scrFileViewHorizontal");
    QVERIFY(horizontal->maximum() > 0);
    horizontal->setValue(horizontal->maximum());
    Settle();
    QCOMPARE(preview_->Shift(), horizontal->maximum());
    QCOMPARE(screen_->fraScrollerLeft, -horizontal->maximum());
    Click(X(256), Text());
    QCOMPARE(Markers().NumMarkers, int16_t{0});
    QCOMPARE(screen_->SelectedMarker, int16_t{-1});
    Click(X(255), Ruler());
    QCOMPARE(Positions(), (std::vector<int>{255}));
  }

  void theCloseBoxAsksTheQuitQuestionAndTheWindowStays() {
    QString question;
    AnswerBox(QMessageBox::No, &question);
    window_->close();
    QCOMPARE(question, QStringLiteral("Do you really want to quit?"));
    QVERIFY(window_->isVisible());
    QVERIFY(screen_->Visible());
  }

  void backShowsTheFirstScreenWhereThisOneStood() {
    window_->move(150, 110);
    Settle();
    Child<QPushButton>(window_, "cmdBack")->click();
    Settle();
    QWidget* setup = Window(QStringLiteral("frmTemplate"));
    QVERIFY(setup != nullptr);
    QCOMPARE(setup->pos(), QPoint(150, 110));
    QVERIFY(!window_->isVisible());
  }

  void theScrollBarsMoveThePreview() {
    auto* vertical = Child<QScrollBar>(window_, "VScroll1");
    QCOMPARE(vertical->minimum(), 1);
    QCOMPARE(vertical->maximum(), 27);
    vertical->setValue(25);
    QCOMPARE(screen_->PreviewFirstLine, int16_t{25});
    QCOMPARE(screen_->lblLineNumbers.Caption, std::string("25\r\n26\r\n27\r\n28\r\n29\r\n30\r\n- end -"));
    auto* horizontal = Child<QScrollBar>(window_, "scrFileViewHorizontal");
    horizontal->setValue(5 * preview_->CharacterWidth());
    QCOMPARE(preview_->Shift(), 5 * preview_->CharacterWidth());
    // A marker placed on the shifted preview stands at its own position.
    FixedWidth();
    Click(X(12), Text());
    QCOMPARE(Positions(), (std::vector<int>{12}));
  }
};

QTEST_MAIN(ColumnWindowTest)
#include "ColumnWindowTest.moc"
