// The grid screen's real window, offscreen: the table model checked by Qt's
// model tester, two-line headings, heading clicks, the assign lists and their
// labels shown only for a selected column, presses and shift-presses in the
// strip of row selectors, cells coloured as they are typed, rows typed into
// the insert row, the pick list opened on its entry beside the cell (to the
// left near the right edge), the context menus' enabled entries, the damage
// dialog from a cell's button, validation's failure brought into view, and
// the save dialog's list of templates.
#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QTableView>

#include "GridSession.h"
#include "desktop/GridModel.h"
#include "desktop/frmDamageSeverityWindow.h"
#include "desktop/frmTemplateNameWindow.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmTemplate.h"
#include "shell/EventScope.h"
#include "worktable/clsDBEngine.h"

using namespace corvalin;
using corvalin::testing::AssignTrees;
using corvalin::testing::GridSession;
using corvalin::testing::Trees;

namespace {

QColor Background(QAbstractItemModel* model, int row, int column) {
  return model->data(model->index(row, column), Qt::BackgroundRole).value<QColor>();
}

// Types into a cell as a person does: the editor opens, takes the text and
// Return.
void TypeInto(QTableView* table, const QModelIndex& index, const QString& text) {
  table->setCurrentIndex(index);
  table->edit(index);
  // The cell's own editor: one closed before may not have been deleted yet.
  auto* editor = qobject_cast<QLineEdit*>(table->indexWidget(index));
  QVERIFY(editor != nullptr);
  editor->selectAll();
  QTest::keyClicks(editor, text);
  QTest::keyClick(editor, Qt::Key_Return);
  QApplication::processEvents();
}

// The centre of a cell in the table's viewport.
QPoint CellCentre(QTableView* table, int row, int column) {
  return table->visualRect(table->model()->index(row, column)).center();
}

// Runs act once a window of this kind is up.
template <class Window>
void WhenUp(std::function<void(Window*)> act) {
  auto* timer = new QTimer(qApp);
  timer->setInterval(20);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* window = qobject_cast<Window*>(widget);
      if (window == nullptr || !window->isVisible()) continue;
      timer->stop();
      timer->deleteLater();
      act(window);
      return;
    }
  });
  timer->start();
}

}  // namespace

class GridWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    session_ = new GridSession;
    AssignTrees();
  }
  void cleanup() {
    delete session_;
    session_ = nullptr;
  }

  void TheModelPassesQtsModelTesterThroughResetsInsertsAndEdits() {
    frmHeadersWindow* window = session_->Open(Trees());
    QVERIFY(window != nullptr);
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    frmHeaders& headers = App().Headers();
    // The table's 40 rows and the insert row.
    QCOMPARE(window->Model()->rowCount(), 41);
    QCOMPARE(window->Model()->columnCount(), 32);
    ScreenWindow::Fire([&] { headers.AddGridRow(); });
    QCOMPARE(window->Model()->rowCount(), 42);
    QCOMPARE(window->Model()->data(window->Model()->index(40, 0)).toString(), QStringLiteral("41"));
    QVERIFY(window->Model()->setData(window->Model()->index(3, 3), QStringLiteral("11")));
    QVERIFY(window->Model()->setData(window->Model()->index(41, 4), QStringLiteral("13")));
    QCOMPARE(window->Model()->rowCount(), 43);
    ScreenWindow::Fire([&] {
      headers.chkShowExcludedRows.Value = 0;
      headers.chkShowExcludedRows_Click();
    });
    QCOMPARE(window->Model()->rowCount(), 43);
  }

  void HeadingsAreTypeOverUnitsLineNumIsReadOnlyAndExcludedHidden() {
    frmHeadersWindow* window = session_->Open(Trees());
    QAbstractItemModel* model = window->Model();
    QCOMPARE(model->headerData(4, Qt::Horizontal).toString(), QStringLiteral("DBH\ncm"));
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("LineNum"));
    QVERIFY(!(model->flags(model->index(0, 0)) & Qt::ItemIsEditable));
    QVERIFY(model->flags(model->index(0, 3)) & Qt::ItemIsEditable);
    QVERIFY(window->Table()->isColumnHidden(frmHeaders::kExcludedColumn));
    QVERIFY(window->Table()->isColumnHidden(8));
    QVERIFY(!window->Table()->isColumnHidden(6));
    QVERIFY(window->Table()->horizontalHeader()->height() >= 2 * window->fontMetrics().height());
  }

  void AClickOnAHeadingSelectsTheColumnAndShowsItsAssignment() {
    frmHeadersWindow* window = session_->Open(Trees());
    QHeaderView* heading = window->Table()->horizontalHeader();
    const QPoint at(heading->sectionViewportPosition(4) + 10, heading->height() / 2);
    QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    frmHeaders& headers = App().Headers();
    QCOMPARE(headers.CurrentColumn, 4);
    auto* name = window->findChild<QComboBox*>(QStringLiteral("cmbHeaderChoices"));
    auto* units = window->findChild<QComboBox*>(QStringLiteral("cmbUnitChoices"));
    QCOMPARE(name->currentText(), QStringLiteral("DBH"));
    QCOMPARE(units->currentText(), QStringLiteral("cm"));
    // Every record's cell of the column; the insert row after them is none.
    QItemSelectionModel* selection = window->Table()->selectionModel();
    QVERIFY(selection->isSelected(window->Model()->index(0, 4)));
    QVERIFY(selection->isSelected(window->Model()->index(39, 4)));
    QVERIFY(!selection->isSelected(window->Model()->index(40, 4)));
  }

  void TheAssignListsAndTheirLabelsShowOnlyWhileAColumnIsSelected() {
    frmHeadersWindow* window = session_->Open(Trees());
    QTableView* table = window->Table();
    auto* name = window->findChild<QComboBox*>(QStringLiteral("cmbHeaderChoices"));
    auto* units = window->findChild<QComboBox*>(QStringLiteral("cmbUnitChoices"));
    auto* nameLabel = window->findChild<QLabel*>(QStringLiteral("Label1"));
    auto* unitsLabel = window->findChild<QLabel*>(QStringLiteral("Label2"));
    QVERIFY(name != nullptr && units != nullptr && nameLabel != nullptr && unitsLabel != nullptr);
    QCOMPARE(nameLabel->text(), QStringLiteral("Name:"));
    QCOMPARE(unitsLabel->text(), QStringLiteral("Units:"));
    auto shown = [&] {
      QApplication::processEvents();
      return QList<bool>{!name->isHidden(), !nameLabel->isHidden(), !units->isHidden(), !unitsLabel->isHidden()};
    };
    const QList<bool> none{false, false, false, false};
    const QList<bool> all{true, true, true, true};
    QCOMPARE(shown(), none);
    const QRect group = name->parentWidget()->geometry();
    const QRect grid = table->geometry();
    QHeaderView* heading = table->horizontalHeader();
    auto clickHeading = [&](int column) {
      QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                        QPoint(heading->sectionViewportPosition(column) + 10, heading->height() / 2));
    };
    clickHeading(0);
    QCOMPARE(shown(), none);
    clickHeading(1);
    QCOMPARE(shown(), all);
    QCOMPARE(name->currentText(), QStringLiteral("Plot ID"));
    // Shown or hidden, the group keeps its size and the grid its place.
    QCOMPARE(name->parentWidget()->geometry(), group);
    QCOMPARE(table->geometry(), grid);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(table, 2, 2));
    QCOMPARE(App().Headers().CurrentColumn, -1);
    QCOMPARE(shown(), none);
    QCOMPARE(name->parentWidget()->geometry(), group);
    QCOMPARE(table->geometry(), grid);
  }

  void ShiftClicksInTheRowStripExtendByLineNumber() {
    frmHeadersWindow* window = session_->Open(Trees());
    QWidget* strip = window->Table()->verticalHeader()->viewport();
    auto rowY = [&](int row) { return window->Table()->rowViewportPosition(row) + 3; };
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, QPoint(4, rowY(5)));
    frmHeaders& headers = App().Headers();
    QCOMPARE(headers.SelBookmarks, std::vector<Recordset::Bookmark>{5});
    QTest::mouseClick(strip, Qt::LeftButton, Qt::ShiftModifier, QPoint(4, rowY(8)));
    QCOMPARE(headers.SelBookmarks, (std::vector<Recordset::Bookmark>{5, 6, 7, 8}));
    // Above the range it grows upward; inside it the low end comes up.
    QTest::mouseClick(strip, Qt::LeftButton, Qt::ShiftModifier, QPoint(4, rowY(3)));
    QCOMPARE(headers.SelBookmarks, (std::vector<Recordset::Bookmark>{3, 4, 5, 6, 7, 8}));
    QTest::mouseClick(strip, Qt::LeftButton, Qt::ShiftModifier, QPoint(4, rowY(6)));
    QCOMPARE(headers.SelBookmarks, (std::vector<Recordset::Bookmark>{6, 7, 8}));
    QVERIFY(window->Table()->selectionModel()->isRowSelected(7, QModelIndex()));
    QVERIFY(!window->Table()->selectionModel()->isRowSelected(5, QModelIndex()));
  }

  void ATypedWrongSpeciesIsRedAndItsPickListFixesIt() {
    frmHeadersWindow* window = session_->Open(Trees());
    QTableView* table = window->Table();
    QAbstractItemModel* model = window->Model();
    QCOMPARE(Background(model, 2, 3), QColor());
    // Typed into the cell as a person types.
    TypeInto(table, model->index(2, 3), QStringLiteral("XX"));
    QCOMPARE(model->data(model->index(2, 3)).toString(), QStringLiteral("XX"));
    QCOMPARE(Background(model, 2, 3), QColor(255, 0, 0));
    // The cell's button opens the species list beside the cell.
    const QRect cell = table->visualRect(model->index(2, 3));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
    QListWidget* species = window->PickListWidget(static_cast<int>(frmHeaders::PickList::Species));
    QVERIFY(species->isVisible());
    QCOMPARE(species->currentRow(), 0);
    const QPoint cellInWindow = table->viewport()->mapTo(window, cell.topRight());
    QVERIFY(species->x() >= cellInWindow.x());
    const int fd = species->row(species->findItems(QStringLiteral("FD"), Qt::MatchExactly).value(0));
    QVERIFY(fd > 0);
    QTest::mouseClick(species->viewport(), Qt::LeftButton, Qt::NoModifier, species->visualItemRect(species->item(fd)).center());
    QVERIFY(!species->isVisible());
    QCOMPARE(model->data(model->index(2, 3)).toString(), QStringLiteral("FD"));
    QCOMPARE(Background(model, 2, 3), QColor());
  }

  void ACrownRatioListOpensOnTheCellsCodeAndToTheLeftNearTheRightEdge() {
    frmHeadersWindow* window = session_->Open(Trees());
    window->resize(700, 600);
    QApplication::processEvents();
    QTableView* table = window->Table();
    table->horizontalScrollBar()->setValue(table->horizontalScrollBar()->maximum());
    QApplication::processEvents();
    QAbstractItemModel* model = window->Model();
    const QModelIndex crown = model->index(1, 6);
    QCOMPARE(model->data(crown).toString(), QStringLiteral("3"));
    table->setCurrentIndex(crown);
    const QRect cell = table->visualRect(crown);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
    QListWidget* list = window->PickListWidget(static_cast<int>(frmHeaders::PickList::CrownRatio));
    QVERIFY(list->isVisible());
    QCOMPARE(list->currentItem()->text(), QStringLiteral("3 : 21-30%"));
    const QPoint cellInWindow = table->viewport()->mapTo(window, cell.topLeft());
    QCOMPARE(list->x() + list->width(), cellInWindow.x());
    QVERIFY(list->x() + list->width() <= window->width());
  }

  void TheColumnMenuEnablesItsEntriesForASelectedColumn() {
    frmHeadersWindow* window = session_->Open(Trees());
    QTableView* table = window->Table();
    QStringList enabled;
    auto readMenu = [&] {
      WhenUp<QMenu>([&](QMenu* menu) {
        for (QAction* action : menu->actions())
          if (action->isEnabled()) enabled << action->text();
        menu->close();
      });
    };
    readMenu();
    QTest::mouseClick(table->viewport(), Qt::RightButton, Qt::NoModifier, CellCentre(table, 2, 2));
    QCOMPARE(enabled, QStringList{QStringLiteral("Add Column")});
    QCOMPARE(App().Headers().PopupMenu, frmHeaders::GridMenu::None);
    QHeaderView* heading = table->horizontalHeader();
    QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(heading->sectionViewportPosition(2) + 10, heading->height() / 2));
    enabled.clear();
    readMenu();
    QTest::mouseClick(table->viewport(), Qt::RightButton, Qt::NoModifier, CellCentre(table, 2, 2));
    QCOMPARE(enabled, (QStringList{QStringLiteral("Find/Replace"), QStringLiteral("Exclude Rows Containing..."),
                                   QStringLiteral("Exclude Rows Starting With..."), QStringLiteral("Add Column")}));
  }

  void TheRowMenuExcludesTheSelectedRowsAndPaintsThemYellow() {
    frmHeadersWindow* window = session_->Open(Trees());
    QTableView* table = window->Table();
    QWidget* strip = table->verticalHeader()->viewport();
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, QPoint(4, table->rowViewportPosition(4) + 3));
    QTest::mouseClick(strip, Qt::LeftButton, Qt::ShiftModifier, QPoint(4, table->rowViewportPosition(6) + 3));
    QStringList entries;
    WhenUp<QMenu>([&](QMenu* menu) {
      for (QAction* action : menu->actions()) entries << action->text();
      menu->actions().at(0)->trigger();
      menu->close();
    });
    QTest::mouseClick(strip, Qt::RightButton, Qt::NoModifier, QPoint(4, table->rowViewportPosition(5) + 3));
    QCOMPARE(entries, (QStringList{QStringLiteral("Exclude Selected Rows"), QStringLiteral("Include Selected Rows")}));
    QCOMPARE(Background(window->Model(), 5, 1), QColor(255, 255, 0));
    QCOMPARE(Background(window->Model(), 7, 1), QColor());
  }

  void TheDamageButtonOpensTheDialogAndItsOkWritesTheCell() {
    frmHeadersWindow* window = session_->Open(Trees());
    QTableView* table = window->Table();
    QAbstractItemModel* model = window->Model();
    const QModelIndex damage = model->index(4, 5);
    table->setCurrentIndex(damage);
    QString shownDamage;
    WhenUp<frmDamageSeverityWindow>([&](frmDamageSeverityWindow* dialog) {
      shownDamage = dialog->Damage()->currentText();
      dialog->Damage()->setFocus();
      dialog->Damage()->lineEdit()->selectAll();
      QTest::keyClicks(dialog->Damage()->lineEdit(), QStringLiteral("45"));
      dialog->Severity()->setFocus();
      QApplication::processEvents();
      dialog->Severity()->lineEdit()->selectAll();
      QTest::keyClicks(dialog->Severity()->lineEdit(), QStringLiteral("0"));
      QTest::mouseClick(dialog->Ok(), Qt::LeftButton);
    });
    const QRect cell = table->visualRect(damage);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
    QCOMPARE(shownDamage, QStringLiteral("12"));
    QCOMPARE(model->data(damage).toString(), QStringLiteral("45 0"));
    QCOMPARE(Background(model, 4, 5), QColor());
  }

  void ValidationsFailureSelectsTheRowAndScrollsItIntoView() {
    QByteArray input = Trees(600);
    input.replace(",500,FD,", ",500,ZZ,");
    frmHeadersWindow* window = session_->Open(input);
    QTableView* table = window->Table();
    session_->AnswerBoxes();
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdValidate")), Qt::LeftButton);
    session_->StopAnswering();
    QCOMPARE(QString::fromStdString(session_->boxes.empty() ? std::string("(none)") : session_->boxes.front()),
             QStringLiteral("Invalid Species Code."));
    QCOMPARE(session_->boxes.size(), std::size_t{1});
    QCOMPARE(table->currentIndex().row(), 499);
    const int top = table->rowAt(0);
    const int bottom = table->rowAt(table->viewport()->height() - 1);
    QVERIFY(top <= 499 && 499 <= bottom);
    QVERIFY(table->selectionModel()->isRowSelected(499, QModelIndex()));
  }

  void TheCloseBoxAsksTheQuitQuestionAndNoKeepsTheGrid() {
    frmHeadersWindow* window = session_->Open(Trees());
    session_->answers.push_back(QMessageBox::No);
    session_->AnswerBoxes();
    window->close();
    session_->StopAnswering();
    QCOMPARE(session_->boxes, std::vector<std::string>{"Do you really want to quit?"});
    QVERIFY(window->isVisible());
    QVERIFY(App().Headers().Visible());
  }

  void TheInsertRowIsMarkedAfterTheLastRowWithEmptyCellsAndAReadOnlyLineNum() {
    frmHeadersWindow* window = session_->Open(Trees());
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModel* model = window->Model();
    QCOMPARE(model->rowCount(), 41);
    QCOMPARE(model->headerData(40, Qt::Vertical).toString(), QStringLiteral("*"));
    QCOMPARE(model->headerData(39, Qt::Vertical).toString(), QString());
    for (int column = 0; column < GridModel::kColumns; ++column)
      QCOMPARE(model->data(model->index(40, column)).toString(), QString());
    QVERIFY(!(model->flags(model->index(40, 0)) & Qt::ItemIsEditable));
    QVERIFY(model->flags(model->index(40, 3)) & Qt::ItemIsEditable);
    QCOMPARE(Background(model, 40, 3), QColor());
  }

  void TypingIntoTheInsertRowAddsARowNumberedAfterTheLastAndTheInsertRowMovesBelowIt() {
    frmHeadersWindow* window = session_->Open(Trees());
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QTableView* table = window->Table();
    QAbstractItemModel* model = window->Model();
    frmHeaders& headers = App().Headers();
    Run().TranslationDone = true;
    TypeInto(table, model->index(40, 4), QStringLiteral("12"));
    QCOMPARE(headers.Adodc1.Recordset->RecordCount(), 41L);
    QCOMPARE(model->rowCount(), 42);
    QCOMPARE(model->data(model->index(40, 0)).toString(), QStringLiteral("41"));
    QCOMPARE(model->data(model->index(40, 4)).toString(), QStringLiteral("12"));
    QCOMPARE(model->data(model->index(40, 3)).toString(), QString());
    QCOMPARE(model->data(model->index(40, frmHeaders::kExcludedColumn)).toString(), QStringLiteral("N"));
    QVERIFY(!Run().TranslationDone);
    // The insert row is last again, and the cursor stays on the new row.
    QCOMPARE(model->headerData(41, Qt::Vertical).toString(), QStringLiteral("*"));
    QCOMPARE(model->headerData(40, Qt::Vertical).toString(), QString());
    QCOMPARE(model->data(model->index(41, 4)).toString(), QString());
    QCOMPARE(table->currentIndex(), model->index(40, 4));
    // A second row typed into the insert row follows the first.
    TypeInto(table, model->index(41, 1), QStringLiteral("5"));
    QCOMPARE(model->rowCount(), 43);
    QCOMPARE(model->data(model->index(41, 0)).toString(), QStringLiteral("42"));
    QCOMPARE(model->data(model->index(41, 1)).toString(), QStringLiteral("5"));
    // The Insert key still adds an empty row.
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Insert);
    QCOMPARE(model->rowCount(), 44);
    QCOMPARE(model->data(model->index(42, 0)).toString(), QStringLiteral("43"));
    QCOMPARE(model->data(model->index(42, 1)).toString(), QString());
    QCOMPARE(model->headerData(43, Qt::Vertical).toString(), QStringLiteral("*"));
  }

  void TheInsertRowTakesNoRowSelectionNoPickListAndNoValidation() {
    frmHeadersWindow* window = session_->Open(Trees(8));
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QTableView* table = window->Table();
    QAbstractItemModel* model = window->Model();
    frmHeaders& headers = App().Headers();
    QCOMPARE(model->rowCount(), 9);
    // A press in the strip beside the insert row selects no row.
    QWidget* strip = table->verticalHeader()->viewport();
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, QPoint(4, table->rowViewportPosition(8) + 3));
    QVERIFY(headers.SelBookmarks.empty());
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, QPoint(4, table->rowViewportPosition(7) + 3));
    QCOMPARE(headers.SelBookmarks, std::vector<Recordset::Bookmark>{7});
    QTest::mouseClick(strip, Qt::LeftButton, Qt::ShiftModifier, QPoint(4, table->rowViewportPosition(8) + 3));
    QCOMPARE(headers.SelBookmarks, std::vector<Recordset::Bookmark>{7});
    // A selected column runs down to the last record only.
    QHeaderView* heading = table->horizontalHeader();
    QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(heading->sectionViewportPosition(3) + 10, heading->height() / 2));
    QVERIFY(table->selectionModel()->isSelected(model->index(7, 3)));
    QVERIFY(!table->selectionModel()->isSelected(model->index(8, 3)));
    // The species cell of the insert row, current, has no button to open
    // the list: a click where the button would be opens nothing.
    const QModelIndex species = model->index(8, 3);
    table->setCurrentIndex(species);
    QVERIFY(headers.Adodc1.Recordset->IsEOF());
    const QRect cell = table->visualRect(species);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
    QTest::keyClick(table, Qt::Key_F4);
    QVERIFY(!window->PickListWidget(static_cast<int>(frmHeaders::PickList::Species))->isVisible());
    // Validation sees the table's rows alone.
    session_->AnswerBoxes();
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdValidate")), Qt::LeftButton);
    session_->StopAnswering();
    QCOMPARE(session_->boxes, std::vector<std::string>{"Data validated - ready for translation."});
  }

  void TheSaveDialogListsTheTemplatesTheFirstScreenLists() {
    for (const char* file : {"Plot.CNV", "beta.cnv", "Alpha.cnv", "notes.txt"}) {
      QFile made(session_->Work() + QString::fromLatin1(file));
      QVERIFY(made.open(QIODevice::WriteOnly));
    }
    frmHeadersWindow* window = session_->Open(Trees());
    QStringList listed;
    WhenUp<frmTemplateNameWindow>([&](frmTemplateNameWindow* dialog) {
      for (int i = 0; i < dialog->Name()->count(); ++i) listed << dialog->Name()->itemText(i);
      QTest::mouseClick(dialog->Cancel(), Qt::LeftButton);
    });
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdSaveTemplate")), Qt::LeftButton);
    QStringList firstScreen;
    for (const std::string& item : App().Template().cmbTemplate.Items) firstScreen << QString::fromStdString(item);
    QCOMPARE(firstScreen.takeFirst(), QStringLiteral("None"));
    QCOMPARE(listed, firstScreen);
    QCOMPARE(listed, (QStringList{QStringLiteral("Alpha"), QStringLiteral("beta")}));
  }

  void TypingACharacterWithoutASingleByteIsRefused() {
    frmHeadersWindow* window = session_->Open(Trees());
    QAbstractItemModel* model = window->Model();
    QVERIFY(model->setData(model->index(1, 1), QString::fromUtf8("\xc3\xa9t\xc3\xa9")));
    QCOMPARE(model->data(model->index(1, 1)).toString(), QString::fromUtf8("\xc3\xa9t\xc3\xa9"));
    QVERIFY(!model->setData(model->index(1, 1), QString::fromUtf8("\xe2\x82\xac")));
    QCOMPARE(model->data(model->index(1, 1)).toString(), QString::fromUtf8("\xc3\xa9t\xc3\xa9"));
  }

 private:
  GridSession* session_ = nullptr;
};

QTEST_MAIN(GridWindowTest)
#include "GridWindowTest.moc"
