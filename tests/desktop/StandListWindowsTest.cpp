// The stand list editor and its record dialog as windows: the file's lines as
// they stand, the buttons enabled by the selection, the placeholder of a new
// record and what Cancel leaves, every tab of the record dialog with its
// fields, lists, file choices and checks, and the ways on and back with and
// without saving.
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest/QtTest>

#include "DesktopHome.h"
#include "StandFilesWindows.h"
#include "screens/Application.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

const QStringList kOneStand = {
    QStringLiteral("A st1 trees\\st1.tre WithPointData bc @"),
    QStringLiteral("B st1 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22"),
    QStringLiteral("C st1 thin1 thin2 @"),
    QStringLiteral("D st1 keys\\thin.key @"),
};

// A stand of every record type, then a second stand whose record C comes
// right behind its record A.
QStringList TwoStandsOutOfOrder() {
  return kOneStand + QStringList{QStringLiteral("A st2 & NoPointData @"), QStringLiteral("C st2 g1 @")};
}

QStringList ButtonStates(QWidget* window) {
  QStringList on;
  for (const char* name : {"cmdUp", "cmdDown", "cmdEdit", "cmdDelete"})
    if (Child<QPushButton>(window, name)->isEnabled()) on << QString::fromLatin1(name);
  return on;
}

void ClickRow(QListWidget* list, int row) {
  list->setCurrentRow(row);
  Settle();
}

}  // namespace

class StandListWindowsTest : public QObject, public WizardWindows {
  Q_OBJECT

  QString home_;
  QString slf_;
  QString loc_;

  // The editing path over a stand list of these lines (none: no file yet).
  QWidget* Editor(const std::optional<QStringList>& lines) {
    home_ = FreshConfiguredHome();
    slf_ = WorkOf(home_) + QStringLiteral("stands.slf");
    loc_ = WorkOf(home_) + QStringLiteral("places.loc");
    if (lines) WriteAll(slf_, CrLf(*lines));
    return OpenStandListEditor(toolkit_, slf_, loc_);
  }

 private slots:
  void initTestCase() { UseToolkit(); }
  void cleanupTestCase() { LeaveToolkit(); }
  void cleanup() {
    toolkit_.AnswerFileDialog = nullptr;
    FreshProcessAfterTest();
  }

  void theFileShowsLineByLineAsItStandsInAFixedFont() {
    QWidget* editor = Editor(TwoStandsOutOfOrder());
    QCOMPARE(editor->windowTitle(), QStringLiteral("Corvalin - Edit Stand List File"));
    auto* list = Child<QListWidget>(editor, "lstSlf");
    QCOMPARE(Rows(list), TwoStandsOutOfOrder());
    QVERIFY(QFontInfo(list->font()).fixedPitch());
    QCOMPARE(list->currentRow(), 0);
    QCOMPARE(ButtonStates(editor), (QStringList{"cmdDown", "cmdEdit", "cmdDelete"}));
    QCOMPARE(Child<QLabel>(editor, "lblVariant")->text(), QStringLiteral("&Variant:"));
    QCOMPARE(Child<QComboBox>(editor, "cmbVariant")->currentText(), QStringLiteral("BC"));
    QCOMPARE(Child<QComboBox>(editor, "cmbVariant")->count(), 15);
    QCOMPARE(Child<QGroupBox>(editor, "fraAddRecord")->title(), QStringLiteral("Add Record"));
    QCOMPARE(Child<QGroupBox>(editor, "fraEditRecord")->title(), QStringLiteral("Edit Record"));
    QStringList captions;
    for (const char* name : {"cmdInsertA", "cmdInsertB", "cmdInsertC", "cmdInsertD", "cmdUp", "cmdDown", "cmdEdit",
                             "cmdDelete", "cmdValidate", "cmdSave", "cmdQuit", "cmdBack", "cmbNext"})
      captions << PlainCaption(Child<QPushButton>(editor, name)->text());
    QCOMPARE(captions, (QStringList{"Record A", "Record B", "Record C", "Record D", "Up", "Down", "Edit", "Delete",
                                    "Validate", "Save", "Quit", "<< Back", "Next >>"}));
    QVERIFY(!Child<QPushButton>(editor, "cmdHelp")->isVisible());

    ClickRow(list, 5);
    QCOMPARE(ButtonStates(editor), (QStringList{"cmdUp", "cmdEdit", "cmdDelete"}));
    ClickRow(list, 2);
    QCOMPARE(ButtonStates(editor), (QStringList{"cmdUp", "cmdDown", "cmdEdit", "cmdDelete"}));
    QVERIFY(WhollyOnScreen(editor));
  }

  void theEditorReadsInOrderWithAKeyAndANameForEachControl() {
    QWidget* editor = Editor(kOneStand);
    QCOMPARE(TabChain(editor).join(' '),
             (QStringList{"cmbVariant", "lstSlf", "cmdInsertA", "cmdInsertB", "cmdInsertC", "cmdInsertD", "cmdDown",
                          "cmdEdit", "cmdDelete", "cmdValidate", "cmdSave", "cmdQuit", "cmdBack", "cmbNext"}
                  .join(' ')));
    QCOMPARE(AccessKeyFaults(editor), QString());
    QCOMPARE(UnnamedControls(editor), QString());
    QCOMPARE(Child<QComboBox>(editor, "cmbVariant")->accessibleName(), QStringLiteral("Variant"));
  }

  void anEmptyFileHasOnlyTheInsertButtonsAndCancellingItsFirstRecordLeavesItEmpty() {
    QWidget* editor = Editor(QStringList{});
    auto* list = Child<QListWidget>(editor, "lstSlf");
    QCOMPARE(list->count(), 0);
    QCOMPARE(ButtonStates(editor), QStringList{});
    for (const char* name : {"cmdInsertA", "cmdInsertB", "cmdInsertC", "cmdInsertD"})
      QVERIFY(Child<QPushButton>(editor, name)->isEnabled());

    QStringList rowsWhileOpen;
    int selectedWhileOpen = -2;
    QList<bool> tabs;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      rowsWhileOpen = Rows(list);
      selectedWhileOpen = list->currentRow();
      auto* tab = Child<QTabWidget>(dialog, "tabSlfRecords");
      for (int i = 0; i < tab->count(); ++i) tabs << tab->isTabEnabled(i);
      QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Child<QPushButton>(editor, "cmdInsertA")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(rowsWhileOpen, QStringList{QStringLiteral(" *** new record A *** ")});
    QCOMPARE(selectedWhileOpen, 0);
    QCOMPARE(tabs, (QList<bool>{true, false, false, false}));
    QCOMPARE(list->count(), 0);
    QCOMPARE(list->currentRow(), -1);
    QVERIFY(Window(QStringLiteral("frmSlfRecord")) == nullptr);
    // The new row set the buttons for one line; nothing selected sets them
    // again.
    QCOMPARE(ButtonStates(editor), (QStringList{"cmdEdit", "cmdDelete"}));
  }

  void cancellingARecordInsertedBehindALineSelectsThatLineAgain() {
    QWidget* editor = Editor(TwoStandsOutOfOrder());
    auto* list = Child<QListWidget>(editor, "lstSlf");
    ClickRow(list, 3);
    QString rowWhileOpen;
    QString codeOffered;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      rowWhileOpen = list->item(4)->text();
      codeOffered = Child<QComboBox>(dialog, "cmbStandIdentificationCode3")->currentText();
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    Child<QPushButton>(editor, "cmdInsertC")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(rowWhileOpen, QStringLiteral(" *** new record C *** "));
    QCOMPARE(codeOffered, QStringLiteral("st1"));
    QCOMPARE(Rows(list), TwoStandsOutOfOrder());
    QCOMPARE(list->currentRow(), 3);
  }

  void recordAOnItsTabWithBareGroundTheVariantsAndTheKeyboardOrderOfItsRecord() {
    QWidget* editor = Editor(kOneStand);
    auto* list = Child<QListWidget>(editor, "lstSlf");
    QStringList chain;
    QString faults;
    bool onScreen = false;
    // Fifteen two-letter variants share fourteen letters, which the other
    // controls need too: the boxes take the letters left.
    const QStringList without{"chkAk", "chkBc", "chkBh", "chkBm", "chkCi", "chkEc", "chkEm", "chkNc",
                              "chkNi", "chkSo", "chkSw", "chkTt", "chkUt", "chkWs", "chkKt"};
    QString path;
    bool bcAndYesAsRead = false;
    QString refused;
    QString title;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      title = dialog->windowTitle();
      chain = TabChain(dialog);
      faults = AccessKeyFaults(dialog, without) + UnnamedControls(dialog);
      onScreen = WhollyOnScreen(dialog);
      path = Child<QLineEdit>(dialog, "lblTreeDataSet")->text();
      bcAndYesAsRead = Child<QCheckBox>(dialog, "chkBc")->isChecked() &&
                       Child<QRadioButton>(dialog, "optPlotBasedSiteDataYes")->isChecked();
      Child<QPushButton>(dialog, "cmdBareGround")->click();
      Child<QCheckBox>(dialog, "chkKt")->click();
      Child<QRadioButton>(dialog, "optNo")->click();
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    person.ThenBox(QMessageBox::Ok, &refused);
    person.Then([&](QWidget* dialog) {
      Child<QCheckBox>(dialog, "chkBc")->click();
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    list->itemDoubleClicked(list->item(0));
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(title, QStringLiteral("Corvalin - Edit Stand List File Record"));
    QCOMPARE(faults, QString());
    QVERIFY(onScreen);
    QCOMPARE(chain.join(' '), (QStringList{"cmbStandIdentificationCode1",
                                           "cmdBareGround",
                                           "cmdSelect",
                                           "optPlotBasedSiteDataYes",
                                           "optNo",
                                           "chkAk",
                                           "chkBc",
                                           "chkBh",
                                           "chkBm",
                                           "chkCi",
                                           "chkEc",
                                           "chkEm",
                                           "chkNc",
                                           "chkNi",
                                           "chkSo",
                                           "chkSw",
                                           "chkTt",
                                           "chkUt",
                                           "chkWs",
                                           "chkKt",
                                           "cmdOk",
                                           "cmdCancel"}
                                   .join(' ')));
    QVERIFY(bcAndYesAsRead);
    QCOMPARE(path, QStringLiteral("TREES\\ST1.TRE"));
    QCOMPARE(refused, QStringLiteral("Can't select BC together with any U.S. variant."));
    QCOMPARE(list->item(0)->text(), QStringLiteral("A st1 &  NoPointData kt @"));
    QCOMPARE(list->currentRow(), 0);
  }

  void recordBShowsEveryFieldInTokenOrderAndRefusesASignedLongitude() {
    QWidget* editor = Editor(kOneStand);
    auto* list = Child<QListWidget>(editor, "lstSlf");
    ClickRow(list, 1);
    QStringList chain;
    QString faults;
    bool onScreen = false;
    // Twenty-six headings and two buttons share the letters their captions
    // hold: the headings come first, and Enter and Escape press OK and
    // Cancel.
    const QStringList without{"cmdOk", "cmdCancel", "label of cmbSiteSpecies", "label of txtSiteIndex"};
    QStringList texts;
    QStringList headings;
    QString refused;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      chain = TabChain(dialog);
      faults = AccessKeyFaults(dialog, without) + UnnamedControls(dialog);
      onScreen = WhollyOnScreen(dialog);
      for (const char* name : {"txtInventoryYear", "txtLatitude", "txtLongitude", "txtElevation", "txtSiteIndex"})
        texts << Child<QLineEdit>(dialog, name)->text();
      texts << Child<QComboBox>(dialog, "cmbLocation")->currentText()
            << Child<QComboBox>(dialog, "cmbSiteSpecies")->currentText();
      for (const char* name : {"lblElevation", "lblBasalAreaFactor", "lblSiteIndex", "lblNumberOfStockablePlots"})
        headings << PlainCaption(Child<QLabel>(dialog, name)->text());
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtLongitude"), QStringLiteral("-"));
      Child<QLineEdit>(dialog, "txtLongitude")->home(false);
      QTest::keyClick(Child<QLineEdit>(dialog, "txtLongitude"), Qt::Key_Minus);
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    person.ThenBox(QMessageBox::Ok, &refused);
    person.Then([&](QWidget* dialog) {
      auto* longitude = Child<QLineEdit>(dialog, "txtLongitude");
      longitude->selectAll();
      QTest::keyClicks(longitude, QStringLiteral("120.25"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(chain.join(' '), (QStringList{"cmbStandIdentificationCode2",
                                           "txtInventoryYear",
                                           "txtLatitude",
                                           "txtLongitude",
                                           "cmbLocation",
                                           "cmbHabitatType",
                                           "txtStandOrigin",
                                           "txtAspect",
                                           "txtSlope",
                                           "txtElevation",
                                           "txtBasalAreaFactor",
                                           "txtInverseOfFixedPlotSize",
                                           "txtBreakpointDbh",
                                           "txtNumberOfPlots",
                                           "txtNumberOfStockablePlots",
                                           "txtStandSamplingWeight",
                                           "txtStockablePercent",
                                           "cmbDiameterGrowthTranslationCode",
                                           "txtDiameterGrowthMeasurePeriod",
                                           "cmbHeightGrowthTranslationCode",
                                           "txtHeightGrowthMeasurementPeriod",
                                           "txtMortalityMeasurementPeriod",
                                           "txtMaximumBasalArea",
                                           "txtMaximumStandDensityIndex",
                                           "cmbSiteSpecies",
                                           "txtSiteIndex",
                                           "cmdOk",
                                           "cmdCancel"}
                                   .join(' ')));
    QCOMPARE(texts, (QStringList{"1995", "50.5", "119.5", "45", "22", "106 : Southern Interior", "fd"}));
    QCOMPARE(headings, (QStringList{"Elevation (m):", "Basal area factor (sq.m/ha):", "Site index (m):",
                                    "Number of non-stockable plots:"}));
    QCOMPARE(faults, QString());
    QVERIFY(onScreen);
    QCOMPARE(refused, QStringLiteral("Invalid Longitude value."));
    QCOMPARE(list->item(1)->text(),
             QStringLiteral("B st1 1995 50.5 120.25 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22"));
  }

  void theLongListsOfRecordBWidenWhileTheyHaveTheFocus() {
    QWidget* editor = Editor(kOneStand);
    ClickRow(Child<QListWidget>(editor, "lstSlf"), 1);
    int narrow = 0;
    int wide = 0;
    int wideTwips = 0;
    int narrowAgainTwips = 0;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      auto* location = Child<QComboBox>(dialog, "cmbLocation");
      auto* year = Child<QLineEdit>(dialog, "txtInventoryYear");
      year->setFocus();
      Settle();
      narrow = location->view()->minimumWidth();
      location->setFocus();
      Settle();
      wideTwips = App().SlfRecord().cmbLocation.Width;
      wide = location->view()->minimumWidth();
      year->setFocus();
      Settle();
      narrowAgainTwips = App().SlfRecord().cmbLocation.Width;
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(wideTwips, 2500);
    QCOMPARE(narrowAgainTwips, 1000);
    QVERIFY2(wide >= narrow * 2, qPrintable(QStringLiteral("%1 against %2").arg(wide).arg(narrow)));
  }

  void recordsCAndDOnTheirTabsWithTheAddFilesChosenInTheirDialogs() {
    QWidget* editor = Editor(kOneStand);
    auto* list = Child<QListWidget>(editor, "lstSlf");
    std::vector<FileDialogRequest> asked;
    toolkit_.AnswerFileDialog = [&](const FileDialogRequest& request) -> std::optional<std::string> {
      asked.push_back(request);
      if (asked.size() == 1) return (WorkOf(home_) + QStringLiteral("keys/grow.key")).toStdString();
      return std::nullopt;
    };
    QStringList chainC;
    QStringList chainD;
    QString faults;
    QStringList filesShown;
    QString groupCodesShown;
    QString noneSelected;
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      chainC = TabChain(dialog);
      auto* codes = Child<QLineEdit>(dialog, "txtGroupCodes");
      codes->end(false);
      groupCodesShown = codes->text();
      QTest::keyClicks(codes, QStringLiteral("thin3"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    person.Then([&](QWidget* dialog) {
      chainD = TabChain(dialog);
      faults = AccessKeyFaults(dialog) + UnnamedControls(dialog);
      Child<QPushButton>(dialog, "cmdAdd")->click();
      auto* files = Child<QListWidget>(dialog, "lstDataSetNames");
      filesShown = Rows(files);
      ClickRow(files, 0);
      // A cancelled dialog keeps the entry.
      Child<QPushButton>(dialog, "cmdSelectDataSetFile")->click();
      Child<QPushButton>(dialog, "cmdDelete")->click();
      Child<QPushButton>(dialog, "cmdDelete")->click();
      Child<QPushButton>(dialog, "cmdDelete")->click();
    });
    person.ThenBox(QMessageBox::Ok, &noneSelected);
    person.Then([&](QWidget* dialog) { Child<QPushButton>(dialog, "cmdOk")->click(); });
    ClickRow(list, 2);
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    ClickRow(list, 3);
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(chainC.join(' '),
             (QStringList{"cmbStandIdentificationCode3", "txtGroupCodes", "cmdOk", "cmdCancel"}.join(' ')));
    QCOMPARE(chainD.join(' '), (QStringList{"cmbStandIdentificationCode4", "lstDataSetNames", "cmdAdd",
                                            "cmdSelectDataSetFile", "cmdDelete", "cmdOk", "cmdCancel"}
                                    .join(' ')));
    QCOMPARE(faults, QString());
    // The group codes as read, each followed by its blank.
    QCOMPARE(groupCodesShown, QStringLiteral("thin1 thin2 "));
    QCOMPARE(asked.size(), std::size_t{2});
    QCOMPARE(QString::fromStdString(asked[0].title), QStringLiteral("Corvalin - Select Add File"));
    QCOMPARE(QString::fromStdString(asked[0].filter),
             QStringLiteral("Keyword files (*.key) | *.key |All Files (*.*) | *.*"));
    // With no working directory named, a new add file is kept as its whole
    // path.
    QCOMPARE(filesShown, (QStringList{"KEYS\\THIN.KEY", WorkOf(home_) + QStringLiteral("keys/grow.key")}));
    QCOMPARE(noneSelected, QStringLiteral("No Add File selected."));
    QCOMPARE(Rows(list), (QStringList{kOneStand[0], kOneStand[1], "C st1 thin1 thin2 thin3 @", "D st1 @"}));
  }

  void theTreeDataSetIsChosenInQtsFileDialogUnderItsTitleAndFilters() {
    QWidget* editor = Editor(kOneStand);
    QString title;
    QStringList filters;
    QString kept;
    ModalScript person;
    person.Then([&](QWidget* dialog) { Child<QPushButton>(dialog, "cmdSelect")->click(); });
    person.Then([&](QWidget* modal) {
      auto* files = qobject_cast<QFileDialog*>(modal);
      if (files == nullptr) qFatal("no file dialog but %s", qPrintable(modal->objectName()));
      title = files->windowTitle();
      filters = files->nameFilters();
      files->reject();
    });
    person.Then([&](QWidget* dialog) {
      kept = Child<QLineEdit>(dialog, "lblTreeDataSet")->text();
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(title, QStringLiteral("Corvalin - Select Tree Data Set"));
    QCOMPARE(filters.last(), QStringLiteral("All Files (*)"));
    QVERIFY2(filters.contains(QStringLiteral("Tree List (*.tre)")), qPrintable(filters.join(QStringLiteral(";;"))));
    QCOMPARE(kept, QStringLiteral("TREES\\ST1.TRE"));
  }

  void anUnknownVariantIsSaidAtTheLoadAndTheRecordLabelsTakeTheImperialTexts() {
    home_ = FreshConfiguredHome();
    SaveSetting(SettingsApplication, "Corvalin", "OrvanVariant", "AK");
    slf_ = WorkOf(home_) + QStringLiteral("stands.slf");
    WriteAll(slf_, CrLf(kOneStand));
    QString said;
    ModalScript person;
    person.ThenBox(QMessageBox::Ok, &said);
    QWidget* editor = OpenStandListEditor(toolkit_, slf_, WorkOf(home_) + QStringLiteral("places.loc"));
    QVERIFY(person.Done());
    QCOMPARE(said, QStringLiteral("Unknown Orvan Variant specified: AK"));
    QCOMPARE(Child<QComboBox>(editor, "cmbVariant")->currentText(), QString());
    QString elevation;
    person.Then([&](QWidget* dialog) {
      elevation = PlainCaption(Child<QLabel>(dialog, "lblElevation")->text());
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    ClickRow(Child<QListWidget>(editor, "lstSlf"), 1);
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(elevation, QStringLiteral("Elevation (ft x 100):"));
  }

  void validationSaysWhatIsOutOfOrderWithTheLineAndItsButtonsSelected() {
    QWidget* editor = Editor(TwoStandsOutOfOrder());
    auto* list = Child<QListWidget>(editor, "lstSlf");
    QString said;
    int selectedWhileSaid = -1;
    QStringList buttonsWhileSaid;
    ModalScript person;
    person.Then([&](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      if (box == nullptr) qFatal("a box was due, not %s", qPrintable(modal->objectName()));
      said = box->text();
      selectedWhileSaid = list->currentRow();
      buttonsWhileSaid = ButtonStates(editor);
      box->button(QMessageBox::Ok)->click();
    });
    Child<QPushButton>(editor, "cmdValidate")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(said, QStringLiteral("Record of type A must be followed by record of type B."));
    QCOMPARE(selectedWhileSaid, 5);
    QCOMPARE(buttonsWhileSaid, (QStringList{"cmdUp", "cmdEdit", "cmdDelete"}));
    QCOMPARE(list->currentRow(), 5);
  }

  void nextWithoutAChangeSavesNothingAndBackKeepsTheEdits() {
    QWidget* editor = Editor(TwoStandsOutOfOrder());
    const QByteArray before = ReadAll(slf_);
    auto* list = Child<QListWidget>(editor, "lstSlf");
    // Moving a line alone is no change.
    ClickRow(list, 5);
    Child<QPushButton>(editor, "cmdUp")->click();
    Settle();
    QCOMPARE(list->item(4)->text(), QStringLiteral("C st2 g1 @"));
    QWidget* locations = Press(editor, "cmbNext", "frmLocation");
    QCOMPARE(ReadAll(slf_), before);
    QVERIFY(Window(QStringLiteral("frmSlf")) == nullptr);
    QCOMPARE(locations->pos(), editor->pos());
    editor = Press(locations, "cmdBack", "frmSlf");
    QCOMPARE(Child<QListWidget>(editor, "lstSlf")->item(4)->text(), QStringLiteral("C st2 g1 @"));
  }

  void anExistingStandListIsEditedValidatedFixedSavedAndLeftWithoutLoss() {
    QWidget* editor = Editor(TwoStandsOutOfOrder());
    QWidget* setup = nullptr;
    auto* list = Child<QListWidget>(editor, "lstSlf");
    QCOMPARE(Rows(list), TwoStandsOutOfOrder());

    // An edit of record B.
    ModalScript person;
    person.Then([](QWidget* dialog) {
      auto* year = Child<QLineEdit>(dialog, "txtInventoryYear");
      year->selectAll();
      QTest::keyClicks(year, QStringLiteral("1996"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    ClickRow(list, 1);
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    const QString editedB =
        QStringLiteral("B st1 1996 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22");
    QCOMPARE(list->item(1)->text(), editedB);

    // The second stand's record C follows its record A directly.
    QString said;
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(editor, "cmdValidate")->click();
    Settle();
    QCOMPARE(said, QStringLiteral("Record of type A must be followed by record of type B."));
    QCOMPARE(list->currentRow(), 5);
    // Saving and going on are refused; the file is as it was.
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(editor, "cmdSave")->click();
    Settle();
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(editor, "cmbNext")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(said, QStringLiteral("Record of type A must be followed by record of type B."));
    QCOMPARE(ReadAll(slf_), CrLf(TwoStandsOutOfOrder()));
    QVERIFY(Window(QStringLiteral("frmSlf")) == editor);

    // The fix: a record B behind the record A, its code offered.
    QString codeOffered;
    person.Then([&](QWidget* dialog) {
      codeOffered = Child<QComboBox>(dialog, "cmbStandIdentificationCode2")->currentText();
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtInventoryYear"), QStringLiteral("2001"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    ClickRow(list, 4);
    Child<QPushButton>(editor, "cmdInsertB")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(codeOffered, QStringLiteral("st2"));
    const QStringList fixed{kOneStand[0],
                            editedB,
                            kOneStand[2],
                            kOneStand[3],
                            QStringLiteral("A st2 & NoPointData @"),
                            QStringLiteral("B st2 2001 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @"),
                            QStringLiteral("C st2 g1 @")};
    QCOMPARE(Rows(list), fixed);

    // Back and on again: nothing was saved, nothing is lost.
    setup = Press(editor, "cmdBack", "frmTemplate");
    QCOMPARE(ReadAll(slf_), CrLf(TwoStandsOutOfOrder()));
    editor = Press(setup, "cmdNext", "frmSlf");
    list = Child<QListWidget>(editor, "lstSlf");
    QCOMPARE(Rows(list), fixed);

    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(editor, "cmdValidate")->click();
    Settle();
    QCOMPARE(said, QStringLiteral("Stand List File data validated."));
    person.ThenBox(QMessageBox::Ok, &said);
    Child<QPushButton>(editor, "cmdSave")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(said, QStringLiteral("Stand List File saved."));
    QCOMPARE(ReadAll(slf_), CrLf(fixed));

    setup = Press(editor, "cmdBack", "frmTemplate");
    QCOMPARE(ReadAll(slf_), CrLf(fixed));
    editor = Press(setup, "cmdNext", "frmSlf");
    QCOMPARE(Rows(Child<QListWidget>(editor, "lstSlf")), fixed);
  }

  void theFieldRulesOfRecordBAsTyped() {
    QWidget* editor = Editor(kOneStand);
    auto* list = Child<QListWidget>(editor, "lstSlf");
    QStringList said;
    const auto answer = [&said](ModalScript& person) {
      person.Then([&said](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (box == nullptr) qFatal("a box was due, not %s", qPrintable(modal->objectName()));
        said << box->text();
        box->button(QMessageBox::Ok)->click();
      });
    };
    const auto type = [](QWidget* dialog, const char* name, const QString& text) {
      auto* edit = qobject_cast<QLineEdit*>(Child<QWidget>(dialog, name));
      if (edit == nullptr) edit = Child<QComboBox>(dialog, name)->lineEdit();
      edit->selectAll();
      QTest::keyClick(edit, Qt::Key_Backspace);
      QTest::keyClicks(edit, text);
    };
    ModalScript person;
    person.Then([&](QWidget* dialog) {
      type(dialog, "cmbStandIdentificationCode2", QStringLiteral("stand0009"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    answer(person);
    person.Then([&](QWidget* dialog) {
      type(dialog, "cmbStandIdentificationCode2", QStringLiteral("stand008"));
      type(dialog, "txtSiteIndex", QStringLiteral("22 m"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    answer(person);
    person.Then([&](QWidget* dialog) {
      type(dialog, "txtSiteIndex", QStringLiteral("22m"));
      type(dialog, "txtLatitude", QStringLiteral("50.5.1"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    answer(person);
    person.Then([&](QWidget* dialog) {
      type(dialog, "txtLatitude", QStringLiteral("."));
      type(dialog, "txtAspect", QString());
      type(dialog, "cmbLocation", QStringLiteral("abcdef"));
      Child<QPushButton>(dialog, "cmdOk")->click();
    });
    ClickRow(list, 1);
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(said, (QStringList{"Stand Identification Code must be 8 characters or less.", "Invalid Site Index.",
                                "Invalid Latitude value."}));
    // The location keeps its first four characters; a blank aspect is "@".
    QCOMPARE(list->item(1)->text(),
             QStringLiteral("B stand008 1995 . 119.5 abcd @ 1950 @ 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22m"));

    // Opened again, the four characters stand in the list's field, as no row
    // matches them.
    QString location;
    person.Then([&](QWidget* dialog) {
      location = Child<QComboBox>(dialog, "cmbLocation")->currentText();
      Child<QPushButton>(dialog, "cmdCancel")->click();
    });
    Child<QPushButton>(editor, "cmdEdit")->click();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(location, QStringLiteral("abcd"));
  }

  void theCloseBoxAsksTheQuitQuestionAndNoKeepsTheEditor() {
    QWidget* editor = Editor(kOneStand);
    QString asked;
    ModalScript person;
    person.ThenBox(QMessageBox::No, &asked);
    editor->close();
    Settle();
    QVERIFY(person.Done());
    QCOMPARE(asked, QStringLiteral("Do you really want to quit?"));
    QVERIFY(Window(QStringLiteral("frmSlf")) == editor);
  }
};

QTEST_MAIN(StandListWindowsTest)
#include "StandListWindowsTest.moc"
