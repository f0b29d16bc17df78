// The stand list and location editors as a forester sees them on the editing
// path: a stand list with a stand of every record type and a second stand,
// each tab of the record dialog filled in, a validation message with its
// line selected, and the location editor with its record dialog.
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QtTest>

#include "Tour.h"
#include "desktop/QtToolkit.h"
#include "screens/frmMain.h"

namespace corvalin::tour {
namespace {

const char* const kStandList[] = {
    "A ck101 trees\\ck101.tre WithPointData ni @",
    "B ck101 2022 46.72 114.35 105  290 1921 225 35 1280 5 @ 12.5 12 1 1 @ 1 10 0 5 5 @ @ gf 24",
    "C ck101 THIN1 UNIT2 @",
    "D ck101 keys\\thin.key keys\\grow.key @",
    "A ck102 & NoPointData ni @",
    "C ck102 g1 @",
};

// The first screen set to edit files only, over a stand list of the lines
// above and a location file of two locations, and Next pressed.
QWidget* StandListEditor(Tour& tour) {
  const QString home = PrepareConfiguredHome();
  const QString work = home + QStringLiteral("/Documents/Orvanta/Work/");
  const QString slf = work + QStringLiteral("creek.slf");
  const QString loc = work + QStringLiteral("creek.loc");
  {
    QFile file(slf);
    file.open(QIODevice::WriteOnly);
    for (const char* line : kStandList) file.write(QByteArray(line) + "\r\n");
    QFile locations(loc);
    locations.open(QIODevice::WriteOnly);
    locations.write("A \"Lolo Creek\" @ " + slf.toLatin1() + " @ @\r\nA \"Upper Lolo\" @ /data/upper.slf @ @\r\n");
  }
  MainForm().Form_Load();
  QWidget* setup = tour.Window(QStringLiteral("frmTemplate"));
  Child<QCheckBox>(setup, "chkTranslateFile")->click();
  Child<QCheckBox>(setup, "chkEditStandListFile")->click();
  AnswerFiles({slf, loc});
  Child<QPushButton>(setup, "cmdSelectSlf")->click();
  Child<QPushButton>(setup, "cmdSelectLocations")->click();
  Kit().AnswerFileDialog = nullptr;
  Child<QPushButton>(setup, "cmdNext")->click();
  return tour.Window(QStringLiteral("frmSlf"));
}

// The record dialog on the line, saved as name, then cancelled.
void RecordDialog(Tour& tour, QWidget* editor, int line, const QString& name,
                  std::function<void(QWidget*)> fill = nullptr) {
  Child<QListWidget>(editor, "lstSlf")->setCurrentRow(line);
  Tour::WhenModal([&tour, name, fill](QWidget* dialog) {
    if (fill) fill(dialog);
    Tour::Settle();
    tour.Save(dialog, name);
    Child<QPushButton>(dialog, "cmdCancel")->click();
  });
  Child<QPushButton>(editor, "cmdEdit")->click();
}

const Registration standList{"50-stand-list", [](Tour& tour) {
                               QWidget* editor = StandListEditor(tour);
                               tour.Save(editor, QStringLiteral("stand-list"));
                             }};

const Registration records{"51-stand-records", [](Tour& tour) {
                             QWidget* editor = StandListEditor(tour);
                             RecordDialog(tour, editor, 0, QStringLiteral("stand-record-a"));
                             RecordDialog(tour, editor, 1, QStringLiteral("stand-record-b"));
                             RecordDialog(tour, editor, 2, QStringLiteral("stand-record-c"));
                             RecordDialog(tour, editor, 3, QStringLiteral("stand-record-d"), [](QWidget* dialog) {
                               Child<QListWidget>(dialog, "lstDataSetNames")->setCurrentRow(1);
                             });
                           }};

const Registration validation{"52-stand-list-validation", [](Tour& tour) {
                                QWidget* editor = StandListEditor(tour);
                                Tour::WhenModal([&tour, editor](QWidget* box) {
                                  Tour::Settle();
                                  tour.Save(box, QStringLiteral("stand-list-validation"));
                                  // The editor behind it, the offending line selected.
                                  tour.Save(editor, QStringLiteral("stand-list-invalid-line"));
                                  static_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
                                });
                                Child<QPushButton>(editor, "cmdValidate")->click();
                              }};

const Registration locations{"53-locations", [](Tour& tour) {
                               QWidget* editor = StandListEditor(tour);
                               Child<QPushButton>(editor, "cmbNext")->click();
                               QWidget* locationEditor = tour.Window(QStringLiteral("frmLocation"));
                               tour.Save(locationEditor, QStringLiteral("locations"));
                               Tour::WhenModal([&tour](QWidget* dialog) {
                                 Tour::Settle();
                                 tour.Save(dialog, QStringLiteral("location-record"));
                                 Child<QPushButton>(dialog, "cmdCancel")->click();
                               });
                               Child<QPushButton>(locationEditor, "cmdEdit")->click();
                             }};

}  // namespace
}  // namespace corvalin::tour
