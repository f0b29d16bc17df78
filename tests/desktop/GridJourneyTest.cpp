// A whole journey through the grid window on the real survey file: every
// column the file has a type for assigned with its units, a wrong species
// typed and seen red, fixed through its pick list, a range of rows excluded
// and included again, Validate, Translate with the append question, then
// Save Template under a new name through the save dialog's window; the
// saved template used by an unattended run on the same file gives the same
// tree list byte for byte.
//
// The survey's species are numeric codes, which the sample template turns
// into the variant's codes with Find/Replace commands. This journey is about
// the grid itself, so the file it starts from is the survey with those
// replacements and the rows the sample template leaves out already applied;
// commands made by hand are CommandRoundTripTest's.
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <map>

#include "GridSession.h"
#include "desktop/GridModel.h"
#include "desktop/frmTemplateNameWindow.h"
#include "shell/EventScope.h"

using namespace corvalin;
using corvalin::testing::GridSession;

namespace {

QList<QByteArray> Cells(const QByteArray& line) { return line.split(','); }

// The survey with the sample template's replacements and exclusions done.
QByteArray PreparedSurvey() {
  QFile survey(QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv"));
  QFile sample(QStringLiteral(CORVALIN_BINARY_DIR "/share/corvalin/Work/lolo.cnv"));
  if (!survey.open(QIODevice::ReadOnly) || !sample.open(QIODevice::ReadOnly)) return {};
  std::map<int, std::map<QByteArray, QByteArray>> replace;
  std::map<QByteArray, QByteArray> keys;
  for (const QByteArray& line : sample.readAll().split('\n')) {
    const int equals = line.indexOf('=');
    if (equals > 0) keys[line.left(equals)] = line.mid(equals + 1).trimmed();
  }
  for (int k = 1; keys.count("CommandType" + QByteArray::number(k)) != 0; ++k) {
    const QByteArray n = QByteArray::number(k);
    if (keys["CommandType" + n] != "REPLACE_ALL") continue;
    replace[keys["ColumnNumber" + n].toInt()][keys["FindString" + n]] = keys["ReplacementString" + n];
  }
  QByteArray out;
  for (const QByteArray& raw : survey.readAll().split('\n')) {
    const QByteArray line = raw.trimmed();
    if (line.isEmpty() || line.startsWith("PLT_CN")) continue;
    QList<QByteArray> cells = Cells(line);
    if (cells.size() < 10 || cells[5].isEmpty() || cells[9].isEmpty() || cells[4] == "66.0" || cells[4] == "746.0")
      continue;
    for (auto& [column, pairs] : replace) {
      QByteArray& cell = cells[column - 1];
      const auto found = pairs.find(cell);
      if (found != pairs.end()) cell = found->second;
    }
    out += cells.join(',') + "\r\n";
  }
  return out;
}

// Everything modal the journey meets is answered as the person would.
class Person : public QObject {
 public:
  std::vector<std::string> boxes;
  QString templateName;
  Person() {
    timer_.setInterval(20);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Answer(); });
    timer_.start();
  }

 private:
  void Answer() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      boxes.push_back(box->text().toStdString());
      box->defaultButton()->click();
    } else if (modal->objectName() == QStringLiteral("frmAppendOverwriteCancel")) {
      boxes.push_back("append question");
      modal->findChild<QPushButton*>(QStringLiteral("cmdOverwrite"))->click();
    } else if (auto* name = qobject_cast<frmTemplateNameWindow*>(modal)) {
      name->Name()->setFocus();
      QTest::keyClicks(name->Name()->lineEdit(), templateName);
      QTest::mouseClick(name->Ok(), Qt::LeftButton);
    }
  }
  QTimer timer_;
};

void ChooseIn(QComboBox* box, const QString& text) {
  const int index = box->findText(text);
  QVERIFY2(index >= 0, qPrintable(text));
  box->setCurrentIndex(index);
  emit box->activated(index);
}

}  // namespace

class GridJourneyTest : public QObject {
  Q_OBJECT

 private slots:
  void TheSurveyTranslatedThroughTheGridAndBySavedTemplateGivesTheSameTreeList() {
    GridSession session;
    const QByteArray input = PreparedSurvey();
    QVERIFY(input.count('\n') > 400);
    frmHeadersWindow* window = session.Open(input);
    QVERIFY(window != nullptr);
    window->resize(1200, 800);
    QTableView* table = window->Table();
    auto* model = static_cast<GridModel*>(window->Model());
    frmHeaders& headers = App().Headers();
    QCOMPARE(QString::fromStdString(headers.ColumnCaption[5]), QStringLiteral("? column\r\n? units"));

    // The measurement system and variant of the survey.
    QTest::mouseClick(window->findChild<QRadioButton*>(QStringLiteral("optImperial")), Qt::LeftButton);
    ChooseIn(window->findChild<QComboBox*>(QStringLiteral("cmbVariant")), QStringLiteral("NI"));

    // Every column the survey has a type for, with its units.
    const std::vector<std::tuple<int, QString, QString>> assignments = {
        {1, "Plot ID", ""},   {3, "Tree ID", ""},          {4, "Tree History", ""}, {5, "Species", ""},
        {6, "DBH", "inches"}, {7, "Total Height", "feet"}, {10, "Tree Count", ""}};
    QHeaderView* heading = table->horizontalHeader();
    auto* names = window->findChild<QComboBox*>(QStringLiteral("cmbHeaderChoices"));
    auto* units = window->findChild<QComboBox*>(QStringLiteral("cmbUnitChoices"));
    for (const auto& [column, type, unit] : assignments) {
      table->scrollTo(model->index(0, column));
      QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                        QPoint(heading->sectionViewportPosition(column) + 10, heading->height() / 2));
      QCOMPARE(headers.CurrentColumn, column);
      ChooseIn(names, type);
      if (!unit.isEmpty()) ChooseIn(units, unit);
      QCOMPARE(model->headerData(column, Qt::Horizontal).toString(), type + QLatin1Char('\n') + unit);
    }

    // A wrong species typed on the fourth tree is red; its list puts it right.
    const QModelIndex species = model->index(3, 5);
    const QString original = model->data(species).toString();
    table->scrollTo(species);
    table->setCurrentIndex(species);
    table->edit(species);
    auto* editor = table->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("QQ"));
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    QCOMPARE(model->data(species, Qt::BackgroundRole).value<QColor>(), QColor(255, 0, 0));
    const QRect cell = table->visualRect(species);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
    QListWidget* list = window->PickListWidget(static_cast<int>(frmHeaders::PickList::Species));
    QVERIFY(list->isVisible());
    QListWidgetItem* entry = list->findItems(original, Qt::MatchExactly).value(0);
    QVERIFY(entry != nullptr);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualItemRect(entry).center());
    QCOMPARE(model->data(species).toString(), original);
    QCOMPARE(model->data(species, Qt::BackgroundRole).value<QColor>(), QColor());

    // Rows 10 to 20 excluded, seen yellow, and included again.
    table->scrollToTop();
    QWidget* strip = table->verticalHeader()->viewport();
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, QPoint(4, table->rowViewportPosition(9) + 3));
    QTest::mouseClick(strip, Qt::LeftButton, Qt::ShiftModifier, QPoint(4, table->rowViewportPosition(19) + 3));
    QCOMPARE(headers.SelBookmarks.size(), std::size_t{11});
    auto rowMenu = [&](int entryIndex) {
      auto* timer = new QTimer(this);
      timer->setInterval(20);
      connect(timer, &QTimer::timeout, this, [timer, entryIndex] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        timer->stop();
        timer->deleteLater();
        menu->actions().at(entryIndex)->trigger();
        menu->close();
      });
      timer->start();
      QTest::mouseClick(strip, Qt::RightButton, Qt::NoModifier, QPoint(4, table->rowViewportPosition(12) + 3));
    };
    rowMenu(0);
    QCOMPARE(model->data(model->index(15, 1), Qt::BackgroundRole).value<QColor>(), QColor(255, 255, 0));
    rowMenu(1);
    QCOMPARE(model->data(model->index(15, 1), Qt::BackgroundRole).value<QColor>(), QColor());

    // Validate, then Translate over an output that is there already.
    QFile old(session.Home() + QStringLiteral("/out.tre"));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("an older tree list\r\n");
    old.close();
    Person person;
    person.templateName = QStringLiteral("journey");
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdValidate")), Qt::LeftButton);
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdFinish")), Qt::LeftButton);
    QCOMPARE(person.boxes, (std::vector<std::string>{"Data validated - ready for translation.", "append question",
                                                     "Translation completed."}));

    // The template saved under a new name through the save dialog.
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdSaveTemplate")), Qt::LeftButton);
    QVERIFY(QFile::exists(session.Work() + QStringLiteral("journey.cnv")));

    // The saved template in an unattended run on the same file.
    QCOMPARE(session.RunUnattended(session.Home() + QStringLiteral("/trees.csv"),
                                   session.Home() + QStringLiteral("/unattended.tre"), QStringLiteral("journey")),
             0);
    QFile byHand(session.Home() + QStringLiteral("/out.tre"));
    QFile unattended(session.Home() + QStringLiteral("/unattended.tre"));
    QVERIFY(byHand.open(QIODevice::ReadOnly));
    QVERIFY(unattended.open(QIODevice::ReadOnly));
    const QByteArray treeList = byHand.readAll();
    QVERIFY(treeList.count('\n') > 400);
    QVERIFY(!treeList.startsWith("an older"));
    QCOMPARE(unattended.readAll(), treeList);
  }
};

QTEST_MAIN(GridJourneyTest)
#include "GridJourneyTest.moc"
