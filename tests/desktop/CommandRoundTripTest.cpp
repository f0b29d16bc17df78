// The round trip a forester makes with template commands, by hand on the
// real survey file: the format by hand (template "None"), the columns named
// in the grid, the heading line excluded by selecting it, the survey's
// species code 108.0 replaced by LP, the rows of the species the variant
// lacks excluded, the list put in order and one exclusion's text changed in
// the editor, and the whole saved as a template. Started again with that
// template, the short way's tree list equals, byte for byte, the one the
// unattended run writes with it.
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QtTest/QtTest>
#include <memory>

#include "DesktopHome.h"
#include "GridDialogs.h"
#include "GridSession.h"
#include "desktop/GridModel.h"
#include "desktop/frmTemplateNameWindow.h"
#include "templates/TemplateCommands.h"

using namespace corvalin;
using corvalin::testing::GridSession;
using namespace corvalin::desktoptest;

namespace {

const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

void ChooseIn(QComboBox* box, const QString& text) {
  const int index = box->findText(text);
  QVERIFY2(index >= 0, qPrintable(text));
  box->setCurrentIndex(index);
  emit box->activated(index);
}

// An exclusion dialog of the column menu, its text typed and OK pressed.
void Exclude(frmHeadersWindow* window, int column, const char* entry, const char* dialog, const char* field,
             const QString& text) {
  WhenWindowUp(QString::fromLatin1(dialog), [field, text](QWidget* shown) {
    QTest::keyClicks(Child<QLineEdit>(shown, field), text);
    QTest::mouseClick(Child<QPushButton>(shown, "cmdOk"), Qt::LeftButton);
  });
  ColumnMenu(window, column, QString::fromLatin1(entry));
}

QByteArray Contents(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class CommandRoundTripTest : public QObject {
  Q_OBJECT

 private slots:
  void TheCommandsMadeByHandGiveTheTreeListTheUnattendedRunGives() {
    GridSession session;
    session.AnswerBoxes();
    frmHeadersWindow* window = session.OpenFile(kSurvey);
    QVERIFY(window != nullptr);
    QTableView* table = window->Table();
    GridModel* model = window->Model();
    QCOMPARE(model->data(model->index(0, 1)).toString(), QStringLiteral("PLT_CN"));

    // The survey's measurement system, its variant, and its columns.
    QTest::mouseClick(window->findChild<QRadioButton*>(QStringLiteral("optImperial")), Qt::LeftButton);
    ChooseIn(window->findChild<QComboBox*>(QStringLiteral("cmbVariant")), QStringLiteral("NI"));
    const std::vector<std::tuple<int, QString, QString>> assignments = {
        {1, "Plot ID", ""},   {3, "Tree ID", ""},          {4, "Tree History", ""}, {5, "Species", ""},
        {6, "DBH", "inches"}, {7, "Total Height", "feet"}, {10, "Tree Count", ""}};
    auto* names = window->findChild<QComboBox*>(QStringLiteral("cmbHeaderChoices"));
    auto* units = window->findChild<QComboBox*>(QStringLiteral("cmbUnitChoices"));
    for (const auto& [column, type, unit] : assignments) {
      ChooseColumn(window, column);
      ChooseIn(names, type);
      if (!unit.isEmpty()) ChooseIn(units, unit);
    }

    // The heading line, selected in the strip of row selectors, excluded.
    table->scrollToTop();
    QWidget* strip = table->verticalHeader()->viewport();
    const QPoint firstRow(4, table->rowViewportPosition(0) + 3);
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, firstRow);
    ChooseFromMenu(strip, firstRow, QStringLiteral("Exclude Selected Rows"));

    // The survey's code of lodgepole pine becomes the variant's.
    WhenWindowUp(QStringLiteral("frmReplaceAll"), [](QWidget* dialog) {
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtFind"), QStringLiteral("108.0"));
      QTest::keyClicks(Child<QLineEdit>(dialog, "txtReplacement"), QStringLiteral("LP"));
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdReplaceAll"), Qt::LeftButton);
      Settle();
      QTest::mouseClick(Child<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
    });
    ColumnMenu(window, 5, QStringLiteral("Find/Replace"));

    // Dead trees without a diameter or a count, and the species the
    // variant does not know: "99" is a slip, put right in the editor.
    Exclude(window, 6, "Exclude Rows Containing...", "frmExcludeContaining", "txtExcludeText", QString());
    Exclude(window, 10, "Exclude Rows Containing...", "frmExcludeContaining", "txtExcludeText", QString());
    for (const char* start : {"1", "2", "6", "7", "99"})
      Exclude(window, 5, "Exclude Rows Starting With...", "frmExcludeStartingWith", "txtStartText",
              QString::fromLatin1(start));
    QCOMPARE(Commands().CommandCount, 9);
    QCOMPARE(session.boxes, (std::vector<std::string>{"183 occurrences found and replaced.", "187 rows excluded.",
                                                      "0 rows excluded.", "259 rows excluded.", "245 rows excluded.",
                                                      "9 rows excluded.", "61 rows excluded.", "0 rows excluded."}));

    // The editor: the last command up one, and its text made "9".
    session.answers.push_back(QMessageBox::No);
    WhenWindowUp(QStringLiteral("frmEditTemplateCommands"), [](QWidget* editor) {
      auto* list = Child<QListWidget>(editor, "lstTemplateCommands");
      QCOMPARE(list->count(), 9);
      QCOMPARE(list->item(8)->text(), QStringLiteral("9/  Exclude rows starting with \"99\" in column 5 (Species)"));
      QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualItemRect(list->item(8)).center());
      QTest::mouseClick(Child<QPushButton>(editor, "cmdUp"), Qt::LeftButton);
      Settle();
      WhenWindowUp(QStringLiteral("frmExcludeStartingWith"), [](QWidget* dialog) {
        auto* text = Child<QLineEdit>(dialog, "txtStartText");
        text->selectAll();
        QTest::keyClicks(text, QStringLiteral("9"));
        QTest::mouseClick(Child<QPushButton>(dialog, "cmdOk"), Qt::LeftButton);
      });
      QTest::mouseClick(Child<QPushButton>(editor, "cmdEdit"), Qt::LeftButton);
      Settle();
      QCOMPARE(list->item(7)->text(), QStringLiteral("8/  Exclude rows starting with \"9\" in column 5 (Species)"));
      QCOMPARE(list->item(8)->text(), QStringLiteral("9/  Exclude rows starting with \"7\" in column 5 (Species)"));
      QTest::mouseClick(Child<QPushButton>(editor, "cmdOk"), Qt::LeftButton);
    });
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdEditTemplateCommands")), Qt::LeftButton);
    Settle();
    QCOMPARE(TemplateCommandAt(8).DeleteString, std::string("9"));

    // Every tree still in is a lodgepole pine.
    auto rows = App().Headers().Adodc1.Recordset->Clone();
    int kept = 0;
    for (rows->MoveFirst(); !rows->IsEOF(); rows->MoveNext()) {
      if (rows->TextOrEmpty("Excluded") != "N") continue;
      ++kept;
      QCOMPARE(rows->TextOrEmpty("c5"), std::string("LP"));
    }
    QCOMPARE(kept, 80);

    // Saved as "mytrees" through the save dialog.
    WhenWindowUp(QStringLiteral("frmTemplateName"), [](QWidget* dialog) {
      auto* name = static_cast<frmTemplateNameWindow*>(dialog);
      name->Name()->lineEdit()->selectAll();
      QTest::keyClicks(name->Name()->lineEdit(), QStringLiteral("mytrees"));
      QTest::mouseClick(name->Ok(), Qt::LeftButton);
    });
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdSaveTemplate")), Qt::LeftButton);
    Settle();
    QVERIFY(QFile::exists(session.Work() + QStringLiteral("mytrees.cnv")));

    // Started again: the template chosen, the short way.
    ResetProcessState();
    AttachDesktopViews();
    Settle();
    session.boxes.clear();
    QWidget* setup = ReadyFirstScreenIn(session, QStringLiteral("mytrees"));
    QVERIFY(setup != nullptr);
    QTest::mouseClick(Child<QPushButton>(setup, "cmdFinish"), Qt::LeftButton);
    Settle();
    QCOMPARE(session.boxes.back(), std::string("Translation completed."));

    // The same template, unattended.
    QCOMPARE(
        session.RunUnattended(kSurvey, session.Home() + QStringLiteral("/unattended.tre"), QStringLiteral("mytrees")),
        0);
    const QByteArray byHand = Contents(session.Home() + QStringLiteral("/byhand.tre"));
    QCOMPARE(byHand.count('\n'), kept);
    QCOMPARE(Contents(session.Home() + QStringLiteral("/unattended.tre")), byHand);
  }

 private:
  // The first screen of the program started again in the session's HOME,
  // with the template chosen and the survey and an output named.
  static QWidget* ReadyFirstScreenIn(GridSession& session, const QString& templateName) {
    MainForm().Form_Load();
    Settle();
    QWidget* setup = Window(QStringLiteral("frmTemplate"));
    if (setup == nullptr) return nullptr;
    ChooseIn(Child<QComboBox>(setup, "cmbTemplate"), templateName);
    std::deque<std::string> files{kSurvey.toStdString(),
                                  (session.Home() + QStringLiteral("/byhand.tre")).toStdString()};
    session.Toolkit().AnswerFileDialog = [files](const FileDialogRequest&) mutable -> std::optional<std::string> {
      std::string file = files.front();
      files.pop_front();
      return file;
    };
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    session.Toolkit().AnswerFileDialog = nullptr;
    Settle();
    return setup;
  }
};

QTEST_MAIN(CommandRoundTripTest)
#include "CommandRoundTripTest.moc"
