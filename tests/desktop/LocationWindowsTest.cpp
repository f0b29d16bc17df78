// The location editor and its record dialog as windows: the file's lines as
// they stand, a new location offering the stand list being edited, the
// placeholder and what Cancel leaves, the stand list chosen in its file
// dialog, Save, and Done that saves only after a change and only over a
// stand list in order.
#include <QFileDialog>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QtTest/QtTest>

#include "DesktopHome.h"
#include "StandFilesWindows.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

const QStringList kValidStandList = {QStringLiteral("A st1 one.tre WithPointData @"), QStringLiteral("B st1 @")};
const QStringList kInvalidStandList = {QStringLiteral("A st1 one.tre WithPointData @"), QStringLiteral("C st1 @")};

QStringList ButtonStates(QWidget* window) {
  QStringList on;
  for (const char* name : {"cmdUp", "cmdDown", "cmdEdit", "cmdDelete"})
    if (Child<QPushButton>(window, name)->isEnabled()) on << QString::fromLatin1(name);
  return on;
}

}  // namespace

class LocationWindowsTest : public QObject, public WizardWindows {
  Q_OBJECT

  QString home_;
  QString slf_;
  QString loc_;

  // The location editor over a stand list of these lines and the four
  // locations (or no location file yet), reached from the stand list editor.
  QWidget* Locations(const QStringList& standList, bool fourLocations) {
    home_ = FreshConfiguredHome();
    slf_ = WorkOf(home_) + QStringLiteral("stands.slf");
    loc_ = WorkOf(home_) + QStringLiteral("places.loc");
    WriteAll(slf_, CrLf(standList));
    if (fourLocations) WriteAll(loc_, CrLf(FourLocations()));
    return Press(OpenStandListEditor(toolkit_, slf_, loc_), "cmbNext", "frmLocation");
  }
  // Four locations; the second and the fourth point to the stand list.
  QStringList FourLocations() const {
    return {QStringLiteral("A \"North Block\" @ /elsewhere/north.slf @ @"),
            QStringLiteral("A \"South\" @ ") + slf_ + QStringLiteral(" @ @"),
            QStringLiteral("A \"East\" @ /elsewhere/east.slf @ @"),
            QStringLiteral("A \"West\" @ ") + slf_ + QStringLiteral(" @ @")};
  }

 private slots:
  void initTestCase() { UseToolkit(); }
  void cleanupTestCase() { LeaveToolkit(); }
  void cleanup() {
    toolkit_.AnswerFileDialog = nullptr;
    FreshProcessAfterTest();
  }

  void theFileShowsAsItStandsAndTheFirstLocationOfTheStandListIsSelected() {
    QWidget* locations = Locations(kValidStandList, true);
    QCOMPARE(locations->windowTitle(), QStringLiteral("Corvalin - Edit Location File"));
    auto* list = Child<QListWidget>(locations, "lstLocation");
    QCOMPARE(Rows(list), FourLocations());
    QVERIFY(QFontInfo(list->font()).fixedPitch());
    QCOMPARE(list->currentRow(), 1);
    QCOMPARE(ButtonStates(locations), (QStringList{"cmdUp", "cmdDown", "cmdEdit", "cmdDelete"}));
    QCOMPARE(Child<QGroupBox>(locations, "fraAddRecord")->title(), QStringLiteral("Add Record"));
    QCOMPARE(Child<QGroupBox>(locations, "fraEditRecord")->title(), QStringLiteral("Edit Record"));
    QStringList captions;
    for (const char* name :
         {"cmdInsertA", "cmdUp", "cmdDown", "cmdEdit", "cmdDelete", "cmdSave", "cmdQuit", "cmdBack", "cmdDone"})
      captions << PlainCaption(Child<QPushButton>(locations, name)->text());
    QCOMPARE(captions, (QStringList{"Record A", "Up", "Down", "Edit", "Delete", "Save", "Quit", "<< Back", "Done"}));
    QVERIFY(!Child<QPushButton>(locations, "cmdHelp")->isVisible());
    QCOMPARE(TabChain(locations).join(' '), QStringLiteral("lstLocation cmdInsertA cmdUp cmdDown cmdEdit cmdDelete "
                                                           "cmdSave cmdQuit cmdBack cmdDone"));
    QCOMPARE(AccessKeyFaults(locations), QString());
    QCOMPARE(UnnamedControls(locations), QString());
    QVERIFY(WhollyOnScreen(locations));
    list->setCurrentRow(3);
    Settle();
    QCOMPARE(ButtonStates(locations), (QStringList{"cmdUp", "cmdEdit", "cmdDelete"}));
  }

  void aLongFileTakesOneRowSizeAndItsLongestLineCanBeScrolledToItsEnd() {
    home_ = FreshConfiguredHome();
    slf_ = WorkOf(home_) + QStringLiteral("stands.slf");
    loc_ = WorkOf(home_) + QStringLiteral("places.loc");
    WriteAll(slf_, CrLf(kValidStandList));
    QStringList lines;
    for (int n = 1; n <= 3000; ++n) lines << QStringLiteral("A \"Place %1\" @ /elsewhere/p%1.slf @ @").arg(n);
    const QString longest = QStringLiteral("A \"") + QString(200, QLatin1Char('W')) + QStringLiteral("\" @ @ @");
    lines[1500] = longest;
    WriteAll(loc_, CrLf(lines));
    QWidget* locations = Press(OpenStandListEditor(toolkit_, slf_, loc_), "cmbNext", "frmLocation");
    auto* list = Child<QListWidget>(locations, "lstLocation");
    QCOMPARE(list->count(), 3000);
    QVERIFY(list->uniformItemSizes());
    const int advance = list->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int longestWidth = advance * static_cast<int>(longest.size());
    QVERIFY(list->visualItemRect(list->item(1500)).width() >= longestWidth);
    QVERIFY(list->horizontalScrollBar()->maximum() + list->viewport()->width() >= longestWidth);
    QCOMPARE(list->visualItemRect(list->item(2999)).height(), list->visualItemRect(list->item(0)).height());
  }

  void aNewLocationOffersTheStandListAndTheFirstSaveCreatesTheFile() {
    QWidget* locations = Locations(kValidStandList, false);
    auto* list = Child<QListWidget>(locations, "lstLocation");
    QCOMPARE(list->count(), 0);
    QCOMPARE(ButtonStates(locations), QStringList{});
    QString title;
    QString tab;
    QString offered;
    QStringList rowsWhileOpen;
    QString chain;
    QString faults;
    bool onScreen = false;
    QString refused;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      title = dialog->windowTitle();
      tab = Child<QTabWidget>(dialog, "tabLocationRecords")->tabText(0);
      offered = Child<QLineEdit>(dialog, "lblSlf")->text();
      rowsWhileOpen = Rows(list);
      chain = TabChain(dialog).join(' ');
      faults = AccessKeyFaults(dialog) + UnnamedControls(dialog);
      onScreen = WhollyOnScreen(dialog);
      // No name yet.
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    person.ThenBox(QMessageBox::Ok, &refused);
    person.Then([&](QWidget* dialog) {
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtLocationName"), QStringLiteral("North Fork"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    Child<QPushButton>(locations, "cmdInsertA")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(title, QStringLiteral("Corvalin - Edit Location Record"));
    QCOMPARE(tab, QStringLiteral("Record Type A"));
    QCOMPARE(offered, slf_);
    QCOMPARE(rowsWhileOpen, QStringList{QStringLiteral(" *** new record A *** ")});
    QCOMPARE(chain, QStringLiteral("txtLocationName lblSlf cmdSelectSlf cmdOk cmdCancel"));
    QCOMPARE(faults, QString());
    QVERIFY(onScreen);
    QCOMPARE(refused, QStringLiteral("Must specify location name."));
    const QString line = QStringLiteral("A \"North Fork\" @ ") + slf_.toLower() + QStringLiteral(" @ @");
    QCOMPARE(Rows(list), QStringList{line});
    QVERIFY(!QFile::exists(loc_));

    QString said;
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(locations, "cmdSave")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(said, QStringLiteral("Location file saved."));
    QCOMPARE(ReadAll(loc_), CrLf({line}));
  }

  void cancellingANewRecordRemovesThePlaceholderAndCancellingAnEditKeepsTheLine() {
    QWidget* locations = Locations(kValidStandList, true);
    auto* list = Child<QListWidget>(locations, "lstLocation");
    list->setCurrentRow(2);
    Settle();
    QString placeholder;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      placeholder = list->item(3)->text();
      QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Child<QPushButton>(locations, "cmdInsertA")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(placeholder, QStringLiteral(" *** new record A *** "));
    QCOMPARE(Rows(list), FourLocations());
    QCOMPARE(list->currentRow(), 2);

    QString name;
    person.Then([&](QWidget* dialog) {
      auto* field = Child<QLineEdit>(dialog, "txtLocationName");
      name = field->text();
      field->selectAll();
      QTest::keyClicks(field, QStringLiteral("Renamed"));
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    list->itemDoubleClicked(list->item(2));
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(name, QStringLiteral("East"));
    QCOMPARE(Rows(list), FourLocations());
  }

  void theStandListIsChosenInQtsFileDialogAndShowsInUpperCaseWhenReopened() {
    QWidget* locations = Locations(kValidStandList, false);
    auto* list = Child<QListWidget>(locations, "lstLocation");
    QString title;
    QStringList filters;
    QString shownAsChosen;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtLocationName"), QStringLiteral("Ridge"));
      Child<QPushButton>(dialog, "cmdSelectSlf")->click();
    });
    person.Then([&](QWidget* modal) {
      auto* files = qobject_cast<QFileDialog*>(modal);
      if (files == nullptr) qFatal("no file dialog but %s", qPrintable(modal->objectName()));
      title = files->windowTitle();
      filters = files->nameFilters();
      files->selectFile(WorkOf(home_) + QStringLiteral("Other.slf"));
      QMetaObject::invokeMethod(files, "accept");
    });
    person.Then([&](QWidget* dialog) {
      shownAsChosen = Child<QLineEdit>(dialog, "lblSlf")->text();
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    Child<QPushButton>(locations, "cmdInsertA")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(title, QStringLiteral("Corvalin - Select Stand List File"));
    QCOMPARE(filters, (QStringList{"Stand Level Files (*.slf)", "All Files (*)"}));
    QCOMPARE(shownAsChosen, WorkOf(home_) + QStringLiteral("Other.slf"));
    QCOMPARE(Rows(list),
             QStringList{QStringLiteral("A \"Ridge\" @ ") + WorkOf(home_).toLower() + QStringLiteral("other.slf @ @")});
    QString reopened;
    person.Then([&](QWidget* dialog) {
      reopened = Child<QLineEdit>(dialog, "lblSlf")->text();
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    Child<QPushButton>(locations, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(reopened, (WorkOf(home_) + QStringLiteral("Other.slf")).toUpper());
  }

  void saveWritesOverAStandListOutOfOrderButDoneRefusesUntilItIsInOrder() {
    QWidget* locations = Locations(kInvalidStandList, true);
    const QByteArray before = ReadAll(loc_);
    Child<QListWidget>(locations, "lstLocation")->setCurrentRow(0);
    Settle();
    Child<QPushButton>(locations, "cmdDelete")->click();
    Settle();
    const QStringList threeLeft = FourLocations().mid(1);
    QString said;
    ModalScript person;
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(locations, "cmdSave")->click();
    Settle();
    QCOMPARE(said, QStringLiteral("Location file saved."));
    QCOMPARE(ReadAll(loc_), CrLf(threeLeft));
    QVERIFY(before != ReadAll(loc_));

    Child<QPushButton>(locations, "cmdDelete")->click();
    Settle();
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(locations, "cmdDone")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(said, QStringLiteral("Record of type A must be followed by record of type B."));
    QCOMPARE(ReadAll(loc_), CrLf(threeLeft));
    QVERIFY(Window(QStringLiteral("frmLocation")) == locations);
    QVERIFY(Window(QStringLiteral("frmTemplate")) == nullptr);
  }

  void doneWithoutAChangeSavesNothingAndGoesBackToTheFirstScreenInPlace() {
    QWidget* locations = Locations(kInvalidStandList, true);
    auto* list = Child<QListWidget>(locations, "lstLocation");
    // Moving a line alone is no change.
    Child<QPushButton>(locations, "cmdDown")->click();
    Settle();
    QCOMPARE(list->item(2)->text(), FourLocations()[1]);
    const QPoint at = locations->pos();
    QWidget* setup = Press(locations, "cmdDone", "frmTemplate");
    QCOMPARE(ReadAll(loc_), CrLf(FourLocations()));
    QCOMPARE(setup->pos(), at);
    QVERIFY(Window(QStringLiteral("frmLocation")) == nullptr);
  }
};

QTEST_MAIN(LocationWindowsTest)
#include "LocationWindowsTest.moc"
