// The whole wizard by hand, from a first start with an empty settings store
// to Done: the folder questions and the defaults, the first screen with a
// survey, a template and both boxes ticked, the translation, a stand of
// every record type typed into a stand list that does not exist yet, a
// location for it, and back on the first screen. The files written are
// those the record builders make of the same records; both editors show
// them again as they were written, the current stand and stand list
// selected.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QtTest>
#include <deque>

#include "DesktopHome.h"
#include "StandFilesWindows.h"
#include "columns/Vocabulary.h"
#include "location/LocationFile.h"
#include "standlist/StandLevelFile.h"
#include "standlist/VariantTables.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

// A text as the person types it into a field of the dialog.
void Type(QWidget* dialog, const char* field, const QString& text) {
  auto* edit = qobject_cast<QLineEdit*>(Child<QWidget>(dialog, field));
  if (edit == nullptr) edit = Child<QComboBox>(dialog, field)->lineEdit();
  edit->selectAll();
  QTest::keyClicks(edit, text);
}

// A row chosen from a list of the dialog; its text is kept.
QString Choose(QWidget* dialog, const char* list, int row) {
  auto* combo = Child<QComboBox>(dialog, list);
  combo->setCurrentIndex(row);
  emit combo->activated(row);
  return combo->currentText();
}

// The values of record B a forester types or picks, in token order from
// token 3; the lists' rows are picked by their place.
struct TypedValue {
  const char* field;
  const char* text;  // typed; null: a row is picked
  int row;
};
const TypedValue kRecordB[] = {
    {"txtInventoryYear", "2022", 0},
    {"txtLatitude", "46.72", 0},
    {"txtLongitude", "114.35", 0},
    {"cmbLocation", nullptr, 2},
    {"cmbHabitatType", nullptr, 5},
    {"txtStandOrigin", "1921", 0},
    {"txtAspect", "225", 0},
    {"txtSlope", "35", 0},
    {"txtElevation", "1280", 0},
    {"txtBasalAreaFactor", "5", 0},
    {"txtInverseOfFixedPlotSize", "", 0},
    {"txtBreakpointDbh", "12.5", 0},
    {"txtNumberOfPlots", "12", 0},
    {"txtNumberOfStockablePlots", "1", 0},
    {"txtStandSamplingWeight", "1", 0},
    {"txtStockablePercent", "", 0},
    {"cmbDiameterGrowthTranslationCode", nullptr, 1},
    {"txtDiameterGrowthMeasurePeriod", "10", 0},
    {"cmbHeightGrowthTranslationCode", nullptr, 0},
    {"txtHeightGrowthMeasurementPeriod", "5", 0},
    {"txtMortalityMeasurementPeriod", "5", 0},
    {"txtMaximumBasalArea", "", 0},
    {"txtMaximumStandDensityIndex", "", 0},
    {"cmbSiteSpecies", nullptr, 3},
    {"txtSiteIndex", "24", 0},
};

}  // namespace

class StandFilesJourneyTest : public QObject {
  Q_OBJECT

  QtToolkit toolkit_;

 private slots:
  void initTestCase() { SetToolkit(&toolkit_); }
  void cleanupTestCase() {
    ResetProcessState();
    SetToolkit(nullptr);
  }

  void fromTheFirstStartThroughTheTranslationAndBothEditorsToDone() {
    const QString home = FreshEmptyHome();
    QStringList said;
    const auto answerOk = [&said](ModalScript& person) {
      person.Then([&said](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (box == nullptr) qFatal("a box was due, not %s", qPrintable(modal->objectName()));
        said << box->text();
        box->button(box->buttons().size() > 1 ? QMessageBox::Yes : QMessageBox::Ok)->click();
      });
    };

    // The first start: both folder questions, then the defaults.
    {
      ModalScript person;
      answerOk(person);
      answerOk(person);
      person.Then([](QWidget* defaults) { Child<QPushButton>(defaults, "cmdOk")->click(); });
      MainForm().Form_Load();
      Settle();
      QVERIFY(person.Done());
    }
    QCOMPARE(said.size(), 2);
    QWidget* setup = Window(QStringLiteral("frmTemplate"));
    QVERIFY(setup != nullptr);
    const QString work = WorkOf(home);
    const QString output = work + QStringLiteral("lolo.tre");
    const QString slf = work + QStringLiteral("lolo.slf");
    const QString loc = work + QStringLiteral("lolo.loc");
    const QString addFile = work + QStringLiteral("lolo.key");
    QVERIFY(!QFile::exists(slf) && !QFile::exists(loc));

    // The first screen: the survey, the output, the template, both boxes.
    auto* templates = Child<QComboBox>(setup, "cmbTemplate");
    const int lolo = templates->findText(QStringLiteral("lolo"));
    QVERIFY(lolo > 0);
    templates->setCurrentIndex(lolo);
    emit templates->activated(lolo);
    std::deque<std::string> files{kSurvey.toStdString(), output.toStdString(), slf.toStdString(), loc.toStdString(),
                                  addFile.toStdString()};
    toolkit_.AnswerFileDialog = [&files](const FileDialogRequest&) -> std::optional<std::string> {
      std::string file = files.front();
      files.pop_front();
      return file;
    };
    QVERIFY(Child<QCheckBox>(setup, "chkTranslateFile")->isChecked());
    Child<QCheckBox>(setup, "chkEditStandListFile")->click();
    for (const char* name : {"cmdChangeInput", "cmdChangeOutput", "cmdSelectSlf", "cmdSelectLocations"})
      Child<QPushButton>(setup, name)->click();
    Settle();

    // Translate: the tree list is written, and the stand list editor comes.
    said.clear();
    {
      ModalScript person;
      answerOk(person);
      Child<QPushButton>(setup, "cmdFinish")->click();
      Settle();
      QVERIFY(person.Done());
    }
    QCOMPARE(said, QStringList{QStringLiteral("Translation completed.")});
    QVERIFY(QFile::exists(output));
    QWidget* editor = Window(QStringLiteral("frmSlf"));
    QVERIFY(editor != nullptr);
    auto* lines = Child<QListWidget>(editor, "lstSlf");
    QCOMPARE(lines->count(), 0);

    // Record A, offered the tree list just written.
    QString offered;
    StandRecordA a;
    {
      ModalScript person;
      person.Then([&](QWidget* dialog) {
        offered = Child<QLineEdit>(dialog, "lblTreeDataSet")->text();
        Type(dialog, "cmbStandIdentificationCode1", QStringLiteral("Lolo22"));
        Child<QCheckBox>(dialog, "chkNi")->click();
        Child<QPushButton>(dialog, "cmdOk")->click();
      });
      Child<QPushButton>(editor, "cmdInsertA")->click();
      Settle();
      QVERIFY(person.Done());
    }
    QCOMPARE(offered, output);
    a.code = "Lolo22";
    a.treeDataSet = output.toStdString();
    a.withPointData = true;
    a.variants[8] = true;  // NI
    QCOMPARE(VariantNames()[8], std::string("NI"));

    // Record B, its code taken from the line above.
    QString codeOffered;
    StandRecordB b;
    {
      ModalScript person;
      person.Then([&](QWidget* dialog) {
        codeOffered = Child<QComboBox>(dialog, "cmbStandIdentificationCode2")->currentText();
        std::size_t at = 0;
        for (const TypedValue& value : kRecordB) {
          QString text;
          if (value.text != nullptr) {
            text = QString::fromLatin1(value.text);
            Type(dialog, value.field, text);
          } else {
            text = Choose(dialog, value.field, value.row);
          }
          b.values[at++] = text.toStdString();
        }
        Child<QPushButton>(dialog, "cmdOk")->click();
      });
      Child<QPushButton>(editor, "cmdInsertB")->click();
      Settle();
      QVERIFY(person.Done());
    }
    // The line above holds the code as written: lower-cased.
    QCOMPARE(codeOffered, QStringLiteral("lolo22"));
    b.code = "lolo22";

    // Record C with two group codes, record D with one add file.
    {
      ModalScript person;
      person.Then([](QWidget* dialog) {
        Type(dialog, "txtGroupCodes", QStringLiteral("THIN1 Unit2"));
        Child<QPushButton>(dialog, "cmdOk")->click();
      });
      person.Then([](QWidget* dialog) {
        Child<QPushButton>(dialog, "cmdAdd")->click();
        Child<QPushButton>(dialog, "cmdOk")->click();
      });
      Child<QPushButton>(editor, "cmdInsertC")->click();
      Settle();
      Child<QPushButton>(editor, "cmdInsertD")->click();
      Settle();
      QVERIFY(person.Done());
    }
    const StandRecordC c{"lolo22", "THIN1 Unit2"};
    const StandRecordD d{"lolo22", {addFile.toStdString()}};
    const QStringList standList{QString::fromStdString(BuildRecordA(a)), QString::fromStdString(BuildRecordB(b)),
                                QString::fromStdString(BuildRecordC(c)), QString::fromStdString(BuildRecordD(d))};
    QCOMPARE(Rows(lines), standList);
    // What the builders made of them, as a forester reads it.
    QCOMPARE(standList,
             (QStringList{QStringLiteral("A lolo22 ") + work.toLower() + QStringLiteral("lolo.tre WithPointData ni @"),
                          QStringLiteral("B lolo22 2022 46.72 114.35 105  290 1921 225 35 1280 5 @ 12.5 12 1 1 @ 1 10 "
                                         "0 5 5 @ @ gf 24"),
                          QStringLiteral("C lolo22 THIN1 Unit2 @"),
                          QStringLiteral("D lolo22 ") + work.toLower() + QStringLiteral("lolo.key @")}));

    // Validate, Save: the file as the builders make it, with CR LF.
    said.clear();
    {
      ModalScript person;
      answerOk(person);
      answerOk(person);
      Child<QPushButton>(editor, "cmdValidate")->click();
      Settle();
      Child<QPushButton>(editor, "cmdSave")->click();
      Settle();
      QVERIFY(person.Done());
    }
    QCOMPARE(said, (QStringList{"Stand List File data validated.", "Stand List File saved."}));
    const QByteArray standListBytes = CrLf(standList);
    QCOMPARE(ReadAll(slf), standListBytes);

    // The location editor: a location for the stand list, Save, Done.
    QWidget* locations = Press(editor, "cmbNext", "frmLocation");
    QString slfOffered;
    said.clear();
    {
      ModalScript person;
      person.Then([&](QWidget* dialog) {
        slfOffered = Child<QLineEdit>(dialog, "lblSlf")->text();
        Type(dialog, "txtLocationName", QStringLiteral("Lolo Creek"));
        Child<QPushButton>(dialog, "cmdOk")->click();
      });
      answerOk(person);
      Child<QPushButton>(locations, "cmdInsertA")->click();
      Settle();
      Child<QPushButton>(locations, "cmdSave")->click();
      Settle();
      QVERIFY(person.Done());
    }
    QCOMPARE(slfOffered, slf);
    QCOMPARE(said, QStringList{QStringLiteral("Location file saved.")});
    const QString location = QString::fromStdString(BuildLocationRecord({"Lolo Creek", slf.toStdString()}));
    QCOMPARE(location, QStringLiteral("A \"Lolo Creek\" @ ") + slf.toLower() + QStringLiteral(" @ @"));
    QCOMPARE(ReadAll(loc), CrLf({location}));
    setup = Press(locations, "cmdDone", "frmTemplate");
    QVERIFY(Window(QStringLiteral("frmLocation")) == nullptr);
    qInfo("stand list: %lld bytes in %lld lines; location file: %lld bytes",
          static_cast<long long>(standListBytes.size()), static_cast<long long>(standListBytes.count("\r\n")),
          static_cast<long long>(ReadAll(loc).size()));

    // A later run reads both files again: the same lines, the current stand
    // and stand list selected.
    ResetProcessState();
    Settle();
    AttachDesktopViews();
    SetProgramFileFolder(CORVALIN_BINARY_DIR "/bin");
    MainForm().Form_Load();
    Settle();
    setup = Window(QStringLiteral("frmTemplate"));
    QVERIFY(setup != nullptr);
    files = {output.toStdString(), slf.toStdString(), loc.toStdString()};
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    Child<QCheckBox>(setup, "chkTranslateFile")->click();
    if (!Child<QCheckBox>(setup, "chkEditStandListFile")->isChecked())
      Child<QCheckBox>(setup, "chkEditStandListFile")->click();
    Child<QPushButton>(setup, "cmdSelectSlf")->click();
    Child<QPushButton>(setup, "cmdSelectLocations")->click();
    toolkit_.AnswerFileDialog = nullptr;
    editor = Press(setup, "cmdNext", "frmSlf");
    QCOMPARE(Rows(Child<QListWidget>(editor, "lstSlf")), standList);
    QCOMPARE(Child<QListWidget>(editor, "lstSlf")->currentRow(), 0);
    locations = Press(editor, "cmbNext", "frmLocation");
    QCOMPARE(Rows(Child<QListWidget>(locations, "lstLocation")), QStringList{location});
    QCOMPARE(Child<QListWidget>(locations, "lstLocation")->currentRow(), 0);
  }
};

QTEST_MAIN(StandFilesJourneyTest)
#include "StandFilesJourneyTest.moc"
