// The grid's command dialogs as a person uses them: opened from the grid's
// menu and its Edit button, typed into, their buttons pressed with the mouse
// and with Enter and Escape, closed by the close box; each on the screen
// over the grid, in reading order by Tab, with access keys and names; the
// grid drawn again from the table after each command, and its model clean
// under Qt's model tester.
#include <QAbstractItemModelTester>
#include <QDesktopServices>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QtTest/QtTest>
#include <functional>
#include <memory>

#include "UrlCatcher.h"
#include "DesktopHome.h"
#include "GridDialogs.h"
#include "GridSession.h"
#include "KeyboardChecks.h"
#include "desktop/GridModel.h"
#include "screens/frmEditTemplateCommands.h"
#include "templates/TemplateCommands.h"

using namespace corvalin;
using corvalin::testing::AssignTrees;
using corvalin::testing::GridSession;
using corvalin::testing::Trees;
using namespace corvalin::desktoptest;

namespace {

QColor Background(QAbstractItemModel* model, int row, int column) {
  return model->data(model->index(row, column), Qt::BackgroundRole).value<QColor>();
}

// The grid's right-button menu over a cell of the rows, and its entry.
void MenuOverCell(frmHeadersWindow* window, const QString& entry) {
  QTableView* table = window->Table();
  ChooseFromMenu(table->viewport(), table->visualRect(table->model()->index(2, 2)).center(), entry);
}

// A dialog lies wholly on the working area, centred over the grid.
void ExpectCentredOver(QWidget* dialog, QWidget* grid) {
  const QRect area = dialog->screen()->availableGeometry();
  QVERIFY2(area.contains(dialog->frameGeometry()), qPrintable(dialog->objectName()));
  const QPoint offset = dialog->frameGeometry().center() - grid->frameGeometry().center();
  QVERIFY2(offset.manhattanLength() <= 4, qPrintable(dialog->objectName()));
}

// Every row whose Excluded is "Y" in the grid's rows, as their line numbers.
QStringList ExcludedLines() {
  auto rows = App().Headers().Adodc1.Recordset->Clone();
  QStringList lines;
  for (rows->MoveFirst(); !rows->IsEOF(); rows->MoveNext())
    if (rows->TextOrEmpty("Excluded") == "Y") lines << QString::fromStdString(rows->Text("LineNum"));
  return lines;
}

}  // namespace

class CommandDialogWindowsTest : public QObject {
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

  void FindReplaceReplacesAllThroughItsWindowAndTheGridShowsIt() {
    frmHeadersWindow* window = session_->Open(Trees());
    QVERIFY(window != nullptr);
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    ChooseColumn(window, 3);
    QString said;
    bool seen = false;
    WhenWindowUp(QStringLiteral("frmReplaceAll"), [&](QWidget* dialog) {
      seen = true;
      QCOMPARE(dialog->windowTitle(), QStringLiteral("Corvalin - Find/Replace"));
      QCOMPARE(Child<QLabel>(dialog, "lblColumn")->text(), QStringLiteral("3  (Species)"));
      ExpectCentredOver(dialog, window);
      QCOMPARE(TabChain(dialog), (QStringList{"txtFind", "txtReplacement", "cmdFindNext", "cmdReplace", "cmdReplaceAll",
                                              "cmdCancel", "cmdHelp"}));
      ExpectAccessKeysWithoutClashes(dialog);
      ExpectNamedControls(dialog);
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtFind"), QStringLiteral("FD"));
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtReplacement"), QStringLiteral("PL"));
      WhenBox(QMessageBox::Ok, &said);
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdReplaceAll"), Qt::LeftButton);
      Settle();
      // The dialog stays for the next one; its close box ends it.
      QVERIFY(dialog->isVisible());
      dialog->close();
    });
    MenuOverCell(window, QStringLiteral("Find/Replace"));
    QVERIFY(seen);
    QCOMPARE(said, QStringLiteral("40 occurrences found and replaced."));
    QCOMPARE(window->Model()->data(window->Model()->index(0, 3)).toString(), QStringLiteral("PL"));
    QCOMPARE(window->Model()->data(window->Model()->index(39, 3)).toString(), QStringLiteral("PL"));
    QCOMPARE(Commands().CommandCount, 1);
    QVERIFY(Window(QStringLiteral("frmReplaceAll")) == nullptr);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(window->Table()));
  }

  void FindNextSelectsTheRowFoundAndBringsItIntoView() {
    frmHeadersWindow* window = session_->Open(Trees());
    ChooseColumn(window, 2);
    WhenWindowUp(QStringLiteral("frmReplaceAll"), [&](QWidget* dialog) {
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtFind"), QStringLiteral("38"));
      // Enter presses Find Next, the default.
      QTest::keyClick(Child<QLineEdit>(dialog, "txtFind"), Qt::Key_Return);
      Settle();
      QTest::keyClick(dialog, Qt::Key_Escape);
    });
    MenuOverCell(window, QStringLiteral("Find/Replace"));
    const QModelIndexList rows = window->Table()->selectionModel()->selectedRows();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.at(0).row(), 37);
    QVERIFY(window->Table()->visualRect(window->Model()->index(37, 2)).isValid());
    QVERIFY(Window(QStringLiteral("frmReplaceAll")) == nullptr);
  }

  void ExcludeRowsContainingByKeyboardExcludesAndPaintsThem() {
    frmHeadersWindow* window = session_->Open(Trees());
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    ChooseColumn(window, 4);
    QString said;
    WhenWindowUp(QStringLiteral("frmExcludeContaining"), [&](QWidget* dialog) {
      QCOMPARE(dialog->windowTitle(), QStringLiteral("Corvalin - Exclude Rows Containing..."));
      QCOMPARE(Child<QLabel>(dialog, "lblColumn")->text(), QStringLiteral("4  (DBH)"));
      ExpectCentredOver(dialog, window);
      QCOMPARE(TabChain(dialog), (QStringList{"txtExcludeText", "cmdOk", "cmdCancel", "cmdHelp"}));
      ExpectAccessKeysWithoutClashes(dialog);
      ExpectNamedControls(dialog);
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtExcludeText"), QStringLiteral("12"));
      WhenBox(QMessageBox::Ok, &said);
      QTest::keyClick(Child<QLineEdit>(dialog, "txtExcludeText"), Qt::Key_Return);
    });
    MenuOverCell(window, QStringLiteral("Exclude Rows Containing..."));
    QCOMPARE(said, QStringLiteral("6 rows excluded."));
    QCOMPARE(ExcludedLines(), (QStringList{"2", "9", "16", "23", "30", "37"}));
    QCOMPARE(TemplateCommandAt(1).CommandType, std::string("EXCLUDE_CONTAINING"));
    QCOMPARE(TemplateCommandAt(1).DeleteString, std::string("12"));
    if (App().Headers().chkShowExcludedRows.Checked()) {
      QCOMPARE(Background(window->Model(), 1, 1), QColor(255, 255, 0));
      QCOMPARE(Background(window->Model(), 0, 1), QColor());
    } else {
      QCOMPARE(window->Model()->RecordRows(), 34);
    }
    QVERIFY(Window(QStringLiteral("frmExcludeContaining")) == nullptr);
  }

  void ExcludeRowsStartingWithEndsWithEscapeAndItsCloseBoxAddingNothing() {
    frmHeadersWindow* window = session_->Open(Trees());
    ChooseColumn(window, 4);
    WhenWindowUp(QStringLiteral("frmExcludeStartingWith"), [&](QWidget* dialog) {
      QCOMPARE(dialog->windowTitle(), QStringLiteral("Corvalin - Exclude Rows Starting With..."));
      ExpectCentredOver(dialog, window);
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtStartText"), QStringLiteral("1"));
      QTest::keyClick(Child<QLineEdit>(dialog, "txtStartText"), Qt::Key_Escape);
    });
    MenuOverCell(window, QStringLiteral("Exclude Rows Starting With..."));
    WhenWindowUp(QStringLiteral("frmExcludeStartingWith"), [&](QWidget* dialog) { dialog->close(); });
    MenuOverCell(window, QStringLiteral("Exclude Rows Starting With..."));
    QCOMPARE(Commands().CommandCount, 0);
    QVERIFY(ExcludedLines().isEmpty());
    QVERIFY(Window(QStringLiteral("frmExcludeStartingWith")) == nullptr);
  }

  void TheEditorMovesEditsAndRunsTheCommandsAgain() {
    frmHeadersWindow* window = session_->Open(Trees());
    QAbstractItemModelTester tester(window->Model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    TemplateCommandState& state = Commands();
    state.CommandCount = 3;
    TemplateCommandAt(1) = {"EXCLUDE_CONTAINING", "", "", 4, 0, 0, "12"};
    TemplateCommandAt(2) = {"REPLACE_ALL", "FD", "PL", 3, 0, 0, ""};
    TemplateCommandAt(3) = {"EXCLUDE_RANGE", "", "", -1, 1, 3, ""};
    QString question;
    WhenBox(QMessageBox::No, &question);
    bool seen = false;
    WhenWindowUp(QStringLiteral("frmEditTemplateCommands"), [&](QWidget* dialog) {
      seen = true;
      QCOMPARE(dialog->windowTitle(), QStringLiteral("Corvalin - Edit Template Commands"));
      ExpectCentredOver(dialog, window);
      auto* list = Child<QListWidget>(dialog, "lstTemplateCommands");
      QCOMPARE(list->count(), 3);
      QCOMPARE(list->item(0)->text(), QStringLiteral("1/  Exclude rows with \"12\" in column 4 (DBH)"));
      QCOMPARE(list->item(1)->text(), QStringLiteral("2/  Replace all \"FD\" with \"PL\" in column 3 (Species)"));
      QCOMPARE(list->item(2)->text(), QStringLiteral("3/  Exclude rows in range \"1\" to \"3\""));
      QCOMPARE(list->currentRow(), 0);
      QCOMPARE(TabChain(dialog), (QStringList{"lstTemplateCommands", "cmdDown", "cmdEdit", "cmdDelete", "cmdOk",
                                              "cmdCancel", "cmdHelp"}));
      ExpectAccessKeysWithoutClashes(dialog);
      ExpectNamedControls(dialog);
      // The replacement cannot be edited.
      QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualItemRect(list->item(1)).center());
      QVERIFY(!Child<QPushButton>(dialog, "cmdEdit")->isEnabled());
      // The range goes up one.
      QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualItemRect(list->item(2)).center());
      QVERIFY(!Child<QPushButton>(dialog, "cmdDown")->isEnabled());
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdUp"), Qt::LeftButton);
      Settle();
      QCOMPARE(list->item(1)->text(), QStringLiteral("2/  Exclude rows in range \"1\" to \"3\""));
      QCOMPARE(list->currentRow(), 1);
      // A double click opens its dialog, filled; a new end is typed.
      bool rangeSeen = false;
      WhenWindowUp(QStringLiteral("frmExcludeRange"), [&](QWidget* range) {
        rangeSeen = true;
        QCOMPARE(range->windowTitle(), QStringLiteral("Corvalin - Exclude Rows in Range..."));
        auto* start = Child<QLineEdit>(range, "txtStartLine");
        auto* end = Child<QLineEdit>(range, "txtEndLine");
        QCOMPARE(start->text(), QStringLiteral("1"));
        QCOMPARE(end->text(), QStringLiteral("3"));
        QCOMPARE(TabChain(range), (QStringList{"txtStartLine", "txtEndLine", "cmdOk", "cmdCancel", "cmdHelp"}));
        ExpectAccessKeysWithoutClashes(range);
        ExpectNamedControls(range);
        end->selectAll();
        QTest::keyClicks(end, QStringLiteral("5"));
        QTest::mouseClick(Child<QPushButton>(range, "cmdOk"), Qt::LeftButton);
      });
      const QPoint second = list->visualItemRect(list->item(1)).center();
      QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
      QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
      Settle();
      QVERIFY(rangeSeen);
      QCOMPARE(list->item(1)->text(), QStringLiteral("2/  Exclude rows in range \"1\" to \"5\""));
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdOk"), Qt::LeftButton);
    });
    QTest::mouseClick(Child<QPushButton>(window, "cmdEditTemplateCommands"), Qt::LeftButton);
    Settle();
    QVERIFY(seen);
    QCOMPARE(question, QStringLiteral("Would you like to save the current view?"));
    QCOMPARE(TemplateCommandAt(2).CommandType, std::string("EXCLUDE_RANGE"));
    QCOMPARE(TemplateCommandAt(2).EndLine, int16_t{5});
    // The replacement was not run: the species are still FD.
    QCOMPARE(window->Model()->data(window->Model()->index(0, 3)).toString(), QStringLiteral("FD"));
    QCOMPARE(ExcludedLines(), (QStringList{"1", "2", "3", "4", "5", "9", "16", "23", "30", "37"}));
    QVERIFY(Window(QStringLiteral("frmEditTemplateCommands")) == nullptr);
  }

  void ReplaceChangesOneCellAndEveryDialogsHelpOpensTheHelp() {
    frmHeadersWindow* window = session_->Open(Trees());
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "Open");
    ChooseColumn(window, 3);
    WhenWindowUp(QStringLiteral("frmReplaceAll"), [&](QWidget* dialog) {
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtFind"), QStringLiteral("FD"));
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtReplacement"), QStringLiteral("PL"));
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdReplace"), Qt::LeftButton);
      Settle();
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdHelp"), Qt::LeftButton);
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
    });
    MenuOverCell(window, QStringLiteral("Find/Replace"));
    // The first match past the grid's row: one cell, and no command.
    QCOMPARE(window->Model()->data(window->Model()->index(0, 3)).toString(), QStringLiteral("PL"));
    QCOMPARE(window->Model()->data(window->Model()->index(1, 3)).toString(), QStringLiteral("FD"));
    QCOMPARE(Commands().CommandCount, 0);
    for (const auto& [entry, name] : {std::pair{"Exclude Rows Containing...", "frmExcludeContaining"},
                                      std::pair{"Exclude Rows Starting With...", "frmExcludeStartingWith"}}) {
      WhenWindowUp(QString::fromLatin1(name), [](QWidget* dialog) {
        QTest::mouseClick(Child<QPushButton>(dialog, "cmdHelp"), Qt::LeftButton);
        QTest::mouseClick(Child<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
      });
      ChooseColumn(window, 3);
      MenuOverCell(window, QString::fromLatin1(entry));
    }
    Commands().CommandCount = 2;
    TemplateCommandAt(1) = {"EXCLUDE_RANGE", "", "", -1, 1, 3, ""};
    TemplateCommandAt(2) = {"EXCLUDE_RANGE", "", "", -1, 7, 9, ""};
    WhenBox(QMessageBox::No, nullptr);
    WhenWindowUp(QStringLiteral("frmEditTemplateCommands"), [&](QWidget* editor) {
      // Down, then the range's dialog: Help, Cancel; again, its close box.
      QTest::mouseClick(Child<QPushButton>(editor, "cmdDown"), Qt::LeftButton);
      Settle();
      QCOMPARE(Child<QListWidget>(editor, "lstTemplateCommands")->item(0)->text(),
               QStringLiteral("1/  Exclude rows in range \"7\" to \"9\""));
      WhenWindowUp(QStringLiteral("frmExcludeRange"), [](QWidget* range) {
        QTest::mouseClick(Child<QPushButton>(range, "cmdHelp"), Qt::LeftButton);
        QTest::mouseClick(Child<QPushButton>(range, "cmdCancel"), Qt::LeftButton);
      });
      QTest::mouseClick(Child<QPushButton>(editor, "cmdEdit"), Qt::LeftButton);
      Settle();
      WhenWindowUp(QStringLiteral("frmExcludeRange"), [](QWidget* range) { range->close(); });
      QTest::mouseClick(Child<QPushButton>(editor, "cmdEdit"), Qt::LeftButton);
      Settle();
      QTest::mouseClick(Child<QPushButton>(editor, "cmdHelp"), Qt::LeftButton);
      QTest::mouseClick(Child<QPushButton>(editor, "cmdCancel"), Qt::LeftButton);
    });
    QTest::mouseClick(Child<QPushButton>(window, "cmdEditTemplateCommands"), Qt::LeftButton);
    Settle();
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(catcher.opened.size(), 5);
    QCOMPARE(TemplateCommandAt(1).StartLine, int16_t{1});
    QVERIFY(ExcludedLines().isEmpty());
    for (const char* name : {"frmReplaceAll", "frmExcludeContaining", "frmExcludeStartingWith", "frmExcludeRange",
                             "frmEditTemplateCommands"})
      QVERIFY2(Window(QString::fromLatin1(name)) == nullptr, name);
  }

  void TheEditorsCancelAndCloseBoxKeepTheCommands() {
    frmHeadersWindow* window = session_->Open(Trees());
    Commands().CommandCount = 1;
    TemplateCommandAt(1) = {"EXCLUDE_CONTAINING", "", "", 4, 0, 0, "12"};
    WhenBox(QMessageBox::No, nullptr);
    WhenWindowUp(QStringLiteral("frmEditTemplateCommands"), [&](QWidget* dialog) {
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdDelete"), Qt::LeftButton);
      Settle();
      QCOMPARE(Child<QListWidget>(dialog, "lstTemplateCommands")->count(), 0);
      dialog->close();
    });
    QTest::mouseClick(Child<QPushButton>(window, "cmdEditTemplateCommands"), Qt::LeftButton);
    Settle();
    QCOMPARE(Commands().CommandCount, 1);
    QVERIFY(Window(QStringLiteral("frmEditTemplateCommands")) == nullptr);
  }

 private:
  GridSession* session_ = nullptr;
};

QTEST_MAIN(CommandDialogWindowsTest)
#include "CommandDialogWindowsTest.moc"
