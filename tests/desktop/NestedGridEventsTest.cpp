// A hurried person's clicks that land while the grid is still inside one of
// its own events: the events let the person's clicks through (the program
// lets pending events run as it works), so a second event may start, open
// dialogs and read the rows again before the first has ended. The cell
// editor whose commit is still on the stack is kept until the program is
// idle, and the grid comes out of it whole.
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QtTest/QtTest>
#include <functional>

#include "DesktopHome.h"
#include "GridDialogs.h"
#include "GridSession.h"
#include "desktop/GridModel.h"

using namespace corvalin;
using namespace corvalin::testing;
using namespace corvalin::desktoptest;

namespace {

// Opens the cell's editor and types into it, as a person's key does.
QLineEdit* TypeWithoutReturn(QTableView* table, const QModelIndex& index, const QString& text) {
  table->setFocus();
  table->setCurrentIndex(index);
  table->edit(index);
  auto* editor = qobject_cast<QLineEdit*>(table->indexWidget(index));
  if (editor == nullptr) return nullptr;
  editor->setFocus();
  QTest::keyClicks(editor, text);
  return editor;
}

// The Edit Template Commands button pressed, the question answered No and
// the editor's dialog cancelled.
void EditCommandsAndCancel(QWidget* grid) {
  WhenBox(QMessageBox::No, nullptr);
  WhenWindowUp(QStringLiteral("frmEditTemplateCommands"), [](QWidget* dialog) {
    QTest::mouseClick(Child<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
  });
  QTest::mouseClick(Child<QPushButton>(grid, "cmdEditTemplateCommands"), Qt::LeftButton);
}

}  // namespace

class NestedGridEventsTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    session_ = new GridSession;
    AssignTrees();
    // Every event lets the pending ones run.
    session_->Toolkit().SetEventInterval(0);
  }
  void cleanup() {
    delete session_;
    session_ = nullptr;
  }

  void RowsReadAgainInsideACellsCommitLeaveTheEditorUntilTheCommitEnds() {
    frmHeadersWindow* window = session_->Open(Trees());
    QTableView* table = window->Table();
    QAbstractItemModel* model = window->Model();
    QPointer<QLineEdit> editor = TypeWithoutReturn(table, model->index(40, 1), QStringLiteral("?S"));
    QVERIFY(editor != nullptr);
    // The typed row is in the table and its event lets pending events run:
    // the person's click on Edit Template Commands comes in there, and the
    // commands read the rows again, letting the editor go, while the
    // editor's commit is still on the stack below.
    bool keptDuringCommit = false;
    QObject::connect(
        model, &QAbstractItemModel::rowsInserted, window,
        [window, &editor, &keptDuringCommit] {
          QTimer::singleShot(0, window, [window, &editor, &keptDuringCommit] {
            QTimer::singleShot(0, window, [window] { EditCommandsAndCancel(window); });
            QCoreApplication::processEvents();
            // The program lets pending events run again before the commit
            // ends: the editor stays.
            QCoreApplication::processEvents();
            keptDuringCommit = editor != nullptr && !editor->isVisible();
          });
        },
        Qt::SingleShotConnection);
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    QVERIFY(keptDuringCommit);
    QVERIFY(Window(QStringLiteral("frmEditTemplateCommands")) == nullptr);
    // Once the program is idle the editor goes.
    QTRY_VERIFY_WITH_TIMEOUT(editor == nullptr, 60000);
    QCOMPARE(model->rowCount(), 42);
    QCOMPARE(model->data(model->index(40, 1)).toString(), QStringLiteral("?S"));
    QCOMPARE(model->data(model->index(40, 0)).toString(), QStringLiteral("41"));
  }

 private:
  GridSession* session_ = nullptr;
};

QTEST_MAIN(NestedGridEventsTest)
#include "NestedGridEventsTest.moc"
