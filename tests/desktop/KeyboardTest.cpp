// Every window by keyboard alone: Tab goes through its controls in the order
// the window reads, each button, box, option and labelled field has an
// access key no other control of its window shares, Enter and Escape press
// the default and Cancel buttons, and the pick lists of the grid open with
// F4 or Alt+Down and close with Escape.
#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTimer>
#include <QtTest/QtTest>
#include <algorithm>
#include <deque>
#include <memory>
#include <optional>

#include "DesktopHome.h"
#include "KeyboardChecks.h"
#include "desktop/Keyboard.h"
#include "desktop/QtToolkit.h"
#include "desktop/ScreenWindow.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmConfigure.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

// Turns a check box or option as a screen reader does: through its action,
// without a click.
void ToggleThroughReader(QAbstractButton* button) {
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(button);
  QVERIFY(accessible != nullptr && accessible->actionInterface() != nullptr);
  QVERIFY(accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
  accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  Settle();
}

const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

}  // namespace

class KeyboardTest : public QObject, public WizardWindows {
  Q_OBJECT

 private slots:
  void initTestCase() { UseToolkit(); }
  void cleanupTestCase() { LeaveToolkit(); }
  void cleanup() { FreshProcessAfterTest(); }

  void theFirstScreenReadsTopToBottomWithAKeyForEachControl() {
    QWidget* setup = LoloFirstScreen();
    QCOMPARE(TabChain(setup),
             (QStringList{"chkTranslateFile", "lblInputFile", "cmdChangeInput", "chkNoInput", "lblOutputFile",
                          "cmdChangeOutput", "cmbTemplate", "cmdDeleteTemplate", "cmdFinish", "cmdNextTrans",
                          "chkEditStandListFile", "cmdConfigure", "cmdHelp", "cmdQuit"}));
    ExpectAccessKeysWithoutClashes(setup);
    ExpectNamedControls(setup);
    QCOMPARE(Child<QWidget>(setup, "lblInputFile")->accessibleName(), QStringLiteral("Input File"));
    QAccessibleInterface* path = QAccessible::queryAccessibleInterface(Child<QWidget>(setup, "lblInputFile"));
    QVERIFY(path->state().readOnly);
  }

  void theDefaultsReadTopToBottomAndEscapeIsTheirCancel() {
    QWidget* setup = LoloFirstScreen();
    bool checked = false;
    WhenModal([&checked](QWidget* defaults) {
      checked = true;
      QCOMPARE(
          TabChain(defaults),
          (QStringList{"chkTranslateFile", "lblInputFile", "cmdSelectInputFile", "lblOutputFile", "cmdSelectOutputFile",
                       "txtInputFileExtensions", "txtOutputFileExtensions", "cmbTemplate", "cmbVariant", "optMetric",
                       "optImperial", "chkEditStandListFile", "cmdHelp", "cmdOk", "cmdCancel"}));
      ExpectAccessKeysWithoutClashes(defaults);
      ExpectNamedControls(defaults);
      // A change through a screen reader is a change of the screen's.
      auto* imperial = Child<QRadioButton>(defaults, "optImperial");
      const bool wasImperial = imperial->isChecked();
      ToggleThroughReader(wasImperial ? static_cast<QAbstractButton*>(Child<QRadioButton>(defaults, "optMetric"))
                                      : imperial);
      QCOMPARE(App().Configure().optImperial.Value, !wasImperial);
      QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : defaults, Qt::Key_Escape);
    });
    Child<QPushButton>(setup, "cmdConfigure")->click();
    Settle();
    QVERIFY(checked);
    QVERIFY(Window(QStringLiteral("frmConfigure")) == nullptr);
    QVERIFY(!App().ConfigureLoaded() || !App().Configure().Visible());
  }

  void theColumnScreenReadsTopToBottomAndActsOnAReadersTick() {
    QWidget* columns = Press(LoloFirstScreen(), "cmdNextTrans", "frmColumns");
    QVERIFY(columns != nullptr);
    QCOMPARE(TabChain(columns),
             (QStringList{"lblInputFile", "optCharacterDelimited", "optFixedWidth", "chkTab", "chkComma",
                          "chkSemicolon", "chkSpace", "chkOther", "txtOtherCharacter", "chkConsecutiveAsOne",
                          "cmbTextQualifiers", "cmdHelp", "cmdQuit", "cmdBack", "cmdNext", "cmdFinish"}));
    ExpectAccessKeysWithoutClashes(columns);
    ExpectNamedControls(columns);
    QCOMPARE(Child<QWidget>(columns, "cmbTextQualifiers")->accessibleName(), QStringLiteral("Text Qualifier"));
    // The preview tells its lines and its column lines as text.
    const QString preview = Child<QWidget>(columns, "lblFileView")->accessibleDescription();
    QCOMPARE(preview.section(QLatin1Char('\n'), 0, 0), QStringLiteral("1: PLT_CN          SUBP TREE STATUSCD SPCD  DIA "
                                                                      "HT ACTUALHT CCLCD TPA_UNADJ "));
    QCOMPARE(preview.count(QLatin1Char('\n')), 10);
    QVERIFY2(preview.endsWith(QStringLiteral("Column lines after characters 16, 21, "
                                             "26, 35, 41, 45, 48, 57, 63.")),
             qPrintable(preview.section(QLatin1Char('\n'), -1)));
    // A tick of "Fixed Width" through a screen reader turns the screen to
    // fixed width, as a click does; so does a tick of "Tab".
    ToggleThroughReader(Child<QRadioButton>(columns, "optFixedWidth"));
    QVERIFY(App().Columns().optFixedWidth.Value);
    QVERIFY(!Child<QWidget>(columns, "chkTab")->isEnabled() || !App().Columns().optCharacterDelimited.Value);
    ToggleThroughReader(Child<QRadioButton>(columns, "optCharacterDelimited"));
    QVERIFY(App().Columns().optCharacterDelimited.Value);
    ToggleThroughReader(Child<QCheckBox>(columns, "chkTab"));
    QCOMPARE(App().Columns().chkTab.Value, 1);
  }

  void theGridReadsFromTheTableToItsButtonsAndItsMenusOpenByKey() {
    QWidget* grid = Press(Press(LoloFirstScreen(), "cmdNextTrans", "frmColumns"), "cmdNext", "frmHeaders");
    QVERIFY(grid != nullptr);
    QCOMPARE(TabChain(grid),
             (QStringList{"TDBGrid1", "chkShowExcludedRows", "chkShowAllColumns", "chkAutoValidate", "cmdSaveTemplate",
                          "cmdEditTemplateCommands", "cmbVariant", "optMetric", "optImperial", "cmdValidate",
                          "cmdFinish", "cmdHelp", "cmdQuit", "cmdBack", "cmdNext"}));
    ExpectAccessKeysWithoutClashes(grid);
    ExpectNamedControls(grid);
    ToggleThroughReader(Child<QCheckBox>(grid, "chkAutoValidate"));
    QCOMPARE(App().Headers().chkAutoValidate.Value, 0);

    // The menu key opens the grid's column menu over the current cell.
    auto* table = Child<QTableView>(grid, "TDBGrid1");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(2, 3));
    QStringList entries;
    WhenModalPopup([&entries](QMenu* menu) {
      for (QAction* action : menu->actions()) entries << action->text();
      menu->close();
    });
    QTest::keyClick(table, Qt::Key_Menu);
    Settle();
    QCOMPARE(entries, (QStringList{"Find/Replace", "Exclude Rows Containing...", "Exclude Rows Starting With...",
                                   "Add Column"}));
  }

  void theSaveDialogReadsInOrderAndEnterSavesUnderTheNameTyped() {
    QWidget* grid = Press(Press(LoloFirstScreen(), "cmdNextTrans", "frmColumns"), "cmdNext", "frmHeaders");
    bool checked = false;
    WhenActiveModal([&checked](QWidget* dialog) {
      checked = true;
      QCOMPARE(TabChain(dialog), (QStringList{"cmbTemplateName", "cmdOk", "cmdCancel", "cmdHelp"}));
      ExpectAccessKeysWithoutClashes(dialog);
      ExpectNamedControls(dialog);
      QWidget* field = QApplication::focusWidget();
      QVERIFY(field != nullptr && field->window() == dialog);
      // The name of the template in use stands there: typed over.
      QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
      QTest::keyClicks(field, QStringLiteral("bykeys"));
      QTest::keyClick(field, Qt::Key_Return);
    });
    Child<QPushButton>(grid, "cmdSaveTemplate")->click();
    Settle();
    QVERIFY(checked);
    QVERIFY(QFile::exists(WorkOf(QDir::homePath()) + QStringLiteral("bykeys.cnv")));
  }

  void aPickListOpensWithF4OrAltDownClosesWithEscapeAndIsAsTallAsItsEntries() {
    QWidget* grid = Press(Press(LoloFirstScreen(), "cmdNextTrans", "frmColumns"), "cmdNext", "frmHeaders");
    auto* table = Child<QTableView>(grid, "TDBGrid1");
    auto* history = Child<QListWidget>(grid, "lstTreeHistory");
    // Line 3 of the survey, its tree history "1".
    const QModelIndex cell = table->model()->index(2, 4);
    QCOMPARE(cell.data().toString(), QStringLiteral("1"));
    table->setFocus();
    table->setCurrentIndex(cell);
    QTest::keyClick(table, Qt::Key_F4);
    Settle();
    QVERIFY(history->isVisible());
    QCOMPARE(history->count(), 3);
    QCOMPARE(history->height(), 2 * history->frameWidth() + 3 * history->sizeHintForRow(0));
    QCOMPARE(history->currentItem()->text(), QStringLiteral("1-5 : Live Trees"));
    QTest::keyClick(history, Qt::Key_Escape);
    Settle();
    QVERIFY(!history->isVisible());
    QCOMPARE(cell.data().toString(), QStringLiteral("1"));
    QTest::keyClick(table, Qt::Key_Down, Qt::AltModifier);
    Settle();
    QVERIFY(history->isVisible());
    QTest::keyClick(history, Qt::Key_Down);
    QTest::keyClick(history, Qt::Key_Return);
    Settle();
    QVERIFY(!history->isVisible());
    QCOMPARE(cell.data().toString(), QStringLiteral("6"));
  }

  void theDamageDialogReadsInOrderAndEscapeIsItsCancel() {
    QWidget* grid = Press(Press(LoloFirstScreen(), "cmdNextTrans", "frmColumns"), "cmdNext", "frmHeaders");
    frmHeaders& headers = App().Headers();
    // Column 8 made a damage column, its cell on line 3 a pair.
    ScreenWindow::Fire([&] {
      headers.SelectGridColumn(8);
      const auto& items = headers.cmbHeaderChoices.Items;
      const auto at = std::find(items.begin(), items.end(), "Damage/Severity - 1");
      headers.SelectHeaderChoice(static_cast<int>(at - items.begin()));
      headers.SetCellText(2, 8, "12 3");
    });
    Settle();
    auto* table = Child<QTableView>(grid, "TDBGrid1");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(2, 8));
    bool checked = false;
    WhenActiveModal([&checked](QWidget* dialog) {
      checked = true;
      QCOMPARE(dialog->objectName(), QStringLiteral("frmDamageSeverity"));
      QCOMPARE(TabChain(dialog), (QStringList{"cmbDamage", "cmbSeverity", "cmdOk", "cmdCancel", "cmdHelp"}));
      ExpectAccessKeysWithoutClashes(dialog);
      ExpectNamedControls(dialog);
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    QTest::keyClick(table, Qt::Key_F4);
    Settle();
    QVERIFY(checked);
    QVERIFY(Window(QStringLiteral("frmDamageSeverity")) == nullptr);
    QCOMPARE(table->model()->index(2, 8).data().toString(), QStringLiteral("12 3"));
  }

  void theAppendQuestionReadsInOrderWithAKeyForEachChoice() {
    QWidget* setup = LoloFirstScreen();
    // The output is there already: the translation asks what to do.
    QFile old(QString::fromStdString(App().Template().lblOutputFile.Caption));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("an older tree list\r\n");
    old.close();
    bool checked = false;
    WhenActiveModal([&checked](QWidget* question) {
      checked = true;
      QCOMPARE(question->objectName(), QStringLiteral("frmAppendOverwriteCancel"));
      QCOMPARE(TabChain(question), (QStringList{"cmdAppend", "cmdOverwrite", "cmdCancel"}));
      ExpectAccessKeysWithoutClashes(question);
      ExpectNamedControls(question);
      // Escape is Cancel: the translation stops with no further box.
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    Child<QPushButton>(setup, "cmdFinish")->click();
    Settle();
    QVERIFY(checked);
    QVERIFY(Run().AppendCancelled);
    QFile kept(QString::fromStdString(App().Template().lblOutputFile.Caption));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), QByteArray("an older tree list\r\n"));
  }

  // The sample translation of the survey with the lolo template, with keys
  // alone: the access keys the person sees underlined, the file dialogs'
  // name fields, a list chosen by typing, Enter on the last box.
  void theSampleTranslationByKeysAlone() {
    const QString home = FreshConfiguredHome();
    const QString output = home + QStringLiteral("/lolo-by-keys.tre");
    MainForm().Form_Load();
    Settle();
    QWidget* setup = Window(QStringLiteral("frmTemplate"));
    QVERIFY(setup != nullptr);
    setup->activateWindow();
    Settle();
    auto press = [](QWidget* window, const char* name) {
      QWidget* owner = window->findChild<QWidget*>(QString::fromLatin1(name));
      QVERIFY2(owner != nullptr, name);
      QString text;
      if (auto* button = qobject_cast<QAbstractButton*>(owner)) text = button->text();
      if (auto* label = qobject_cast<QLabel*>(owner)) text = label->text();
      const int at = text.indexOf(QRegularExpression(QStringLiteral("&[^&]")));
      QVERIFY2(at >= 0, qPrintable(text));
      const QChar key = text[at + 1].toUpper();
      QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : window;
      auto* button = qobject_cast<QAbstractButton*>(owner);
      auto clicked = std::make_shared<bool>(false);
      QMetaObject::Connection done;
      if (button != nullptr) done = QObject::connect(button, &QAbstractButton::clicked, [clicked] { *clicked = true; });
      QTest::keyClick(target, static_cast<Qt::Key>(key.unicode()), Qt::AltModifier);
      // A button pressed by its key shows itself down for a moment, then
      // clicks: the click is waited for, however long the moment lasts.
      while (button != nullptr && !*clicked) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
      QObject::disconnect(done);
    };
    // Each file dialog takes the path typed into its name field and Enter.
    // While the list of names that complete the one typed is open, Enter
    // is the list's, which takes the name and accepts the dialog; the list
    // is then closed with Escape, as a person closes a list left over.
    auto typeIntoFileDialog = [](const QString& path) {
      WhenActiveModal([path](QWidget* dialog) {
        QVERIFY(qobject_cast<QFileDialog*>(dialog) != nullptr);
        QWidget* field = QApplication::focusWidget();
        QVERIFY(field != nullptr && field->window() == dialog);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, path);
        QWidget* completions = QApplication::activePopupWidget();
        QTest::keyClick(completions != nullptr ? completions : field, Qt::Key_Return);
        if (dialog->isVisible()) QTest::keyClick(field, Qt::Key_Return);
        if (QWidget* left = QApplication::activePopupWidget()) QTest::keyClick(left, Qt::Key_Escape);
      });
    };
    typeIntoFileDialog(QDir::cleanPath(kSurvey));
    press(setup, "cmdChangeInput");
    Settle();
    QCOMPARE(App().Template().lblInputFile.Caption, QDir::cleanPath(kSurvey).toStdString());
    typeIntoFileDialog(output);
    press(setup, "cmdChangeOutput");
    Settle();
    QCOMPARE(App().Template().lblOutputFile.Caption, output.toStdString());
    press(setup, "lblTemplateFile1");
    QCOMPARE(QApplication::focusWidget(), Child<QWidget>(setup, "cmbTemplate"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("lolo"));
    Settle();
    QCOMPARE(App().Template().cmbTemplate.Text, std::string("lolo"));
    QStringList boxes;
    WhenActiveModal([&boxes](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      QVERIFY(box != nullptr);
      boxes << box->text();
      QTest::keyClick(box, Qt::Key_Return);
    });
    press(setup, "cmdFinish");
    Settle();
    QCOMPARE(boxes, QStringList{QStringLiteral("Translation completed.")});
    QFile list(output);
    QVERIFY(list.open(QIODevice::ReadOnly));
    const QByteArray records = list.readAll();
    QCOMPARE(records.count("\r\n"), 713);
    QCOMPARE(records.left(records.indexOf("\r\n")).trimmed(), QByteArray("1  2    751LP   10     9"));
  }
};

QTEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
