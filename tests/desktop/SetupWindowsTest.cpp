// The first screen and the defaults screen as real windows, clicked: the
// first start through the two folder questions and the defaults, every row
// of the first screen's enabling of its Next and Translate buttons, the file
// choices, the busy window's Cancel during the load, and the short way to
// the tree list by hand, compared byte for byte with the unattended run.
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QtTest/QtTest>
#include <deque>
#include <optional>

#include "UrlCatcher.h"
#include "DesktopHome.h"
#include "desktop/QtToolkit.h"
#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "worktable/Recordset.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

// Plays the person at every modal window that comes up, until stopped.
class ModalAnswerer {
 public:
  explicit ModalAnswerer(std::function<void(QWidget*)> act) : act_(std::move(act)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr || !modal->isVisible() || busy_) return;
      busy_ = true;
      act_(modal);
      busy_ = false;
    });
    timer_.start(10);
  }

 private:
  std::function<void(QWidget*)> act_;
  QTimer timer_;
  bool busy_ = false;
};

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll();
}

void Write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}


const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

}  // namespace

class SetupWindowsTest : public QObject {
  Q_OBJECT

 private:
  QtToolkit toolkit_;
  std::deque<std::optional<std::string>> files_;
  std::vector<FileDialogRequest> asked_;

  // The file dialogs answer from files_, front first; Cancel when empty.
  void AnswerFilesFromQueue() {
    toolkit_.AnswerFileDialog = [this](const FileDialogRequest& request) -> std::optional<std::string> {
      asked_.push_back(request);
      if (files_.empty()) return std::nullopt;
      auto answer = files_.front();
      files_.pop_front();
      return answer;
    };
  }

  QWidget* StartConfigured(QString& home) {
    home = FreshConfiguredHome();
    MainForm().Form_Load();
    Settle();
    QWidget* window = Window(QStringLiteral("frmTemplate"));
    if (window == nullptr) qFatal("the first screen is not up");
    return window;
  }

 private slots:
  void initTestCase() { SetToolkit(&toolkit_); }
  void cleanupTestCase() {
    ResetProcessState();
    SetToolkit(nullptr);
  }
  void init() {
    files_.clear();
    asked_.clear();
    AnswerFilesFromQueue();
    toolkit_.AnswerFolderDialog = nullptr;
  }
  void cleanup() {
    ResetProcessState();
    Settle();
  }

  void firstStartAsksBothFoldersThenTheDefaultsThenShowsTheFirstScreen() {
    const QString home = FreshEmptyHome();
    QStringList seen;
    bool firstScreenUpBehindDefaults = true;
    QString variant;
    bool metric = false;
    QString templateShown;
    QString inputFolder;
    QString title;
    ModalAnswerer person([&](QWidget* modal) {
      if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        seen << box->windowTitle();
        box->button(QMessageBox::Yes)->click();
        return;
      }
      seen << modal->objectName();
      firstScreenUpBehindDefaults = Window(QStringLiteral("frmTemplate")) != nullptr;
      variant = Child<QComboBox>(modal, "cmbVariant")->currentText();
      metric = Child<QRadioButton>(modal, "optMetric")->isChecked();
      templateShown = Child<QComboBox>(modal, "cmbTemplate")->currentText();
      title = modal->windowTitle();
      inputFolder = Child<QLineEdit>(modal, "lblInputFile")->text();
      Child<QPushButton>(modal, "cmdOk")->click();
    });
    MainForm().Form_Load();
    Settle();
    QCOMPARE(seen, (QStringList{QStringLiteral("Orvanta - Corvalin - Data Folder"),
                                QStringLiteral("Orvanta - Corvalin - Work Folder"), QStringLiteral("frmConfigure")}));
    QVERIFY(!firstScreenUpBehindDefaults);
    QCOMPARE(variant, QStringLiteral("BC"));
    QVERIFY(metric);
    QCOMPARE(templateShown, QStringLiteral("None"));
    QCOMPARE(title, QStringLiteral("Corvalin - Set Defaults"));
    QCOMPARE(inputFolder, WorkOf(home));
    QVERIFY(Window(QStringLiteral("frmTemplate")) != nullptr);
    QVERIFY(Window(QStringLiteral("frmConfigure")) == nullptr);
    QCOMPARE(QString::fromStdString(GetSetting("Orvanta", "Corvalin", "Configured", "NO")), QStringLiteral("YES"));
    QCOMPARE(QString::fromStdString(GetSetting("Orvanta", "Common", "WorkDir", "")), WorkOf(home));
  }

  void cancelOnTheDefaultsAtTheFirstStartGoesOnToTheFirstScreen() {
    FreshEmptyHome();
    ModalAnswerer person([](QWidget* modal) {
      if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        box->button(QMessageBox::Yes)->click();
        return;
      }
      Child<QPushButton>(modal, "cmdCancel")->click();
    });
    MainForm().Form_Load();
    Settle();
    QVERIFY(Window(QStringLiteral("frmTemplate")) != nullptr);
    QCOMPARE(QString::fromStdString(GetSetting("Orvanta", "Corvalin", "Configured", "NO")), QStringLiteral("NO"));
  }

  void changeDefaultsOpensTheDefaultsWhereTheFirstScreenStands() {
    QString home;
    QWidget* setup = StartConfigured(home);
    setup->move(120, 90);
    Settle();
    QPoint at;
    ModalAnswerer person([&](QWidget* modal) {
      at = modal->pos();
      Child<QComboBox>(modal, "cmbVariant")->setCurrentIndex(3);
      emit Child<QComboBox>(modal, "cmbVariant")->activated(3);
      Child<QPushButton>(modal, "cmdOk")->click();
    });
    Child<QPushButton>(setup, "cmdConfigure")->click();
    QCOMPARE(at, QPoint(120, 90));
    QCOMPARE(QString::fromStdString(GetSetting("Orvanta", "Corvalin", "OrvanVariant", "")), QStringLiteral("BM"));
  }

  void closingTheFirstScreenAsksTheQuitQuestionAndNoKeepsIt() {
    QString home;
    QWidget* setup = StartConfigured(home);
    QString question;
    AnswerBox(QMessageBox::No, &question);
    setup->close();
    QCOMPARE(question, QStringLiteral("Do you really want to quit?"));
    QVERIFY(setup->isVisible());
    AnswerBox(QMessageBox::No, &question);
    question.clear();
    Child<QPushButton>(setup, "cmdQuit")->click();
    QCOMPARE(question, QStringLiteral("Do you really want to quit?"));
    QVERIFY(setup->isVisible());
  }

  void everyRowOfTheEnablingOfNextAndTranslate() {
    QString home;
    QWidget* setup = StartConfigured(home);
    auto* next = Child<QPushButton>(setup, "cmdNext");
    auto* nextTrans = Child<QPushButton>(setup, "cmdNextTrans");
    auto* finish = Child<QPushButton>(setup, "cmdFinish");
    auto* translate = Child<QCheckBox>(setup, "chkTranslateFile");
    auto* edit = Child<QCheckBox>(setup, "chkEditStandListFile");
    const auto buttons = [&] {
      return QString::fromLatin1("%1%2%3")
          .arg(next->isEnabled() ? 'N' : '-')
          .arg(nextTrans->isEnabled() ? 'T' : '-')
          .arg(finish->isEnabled() ? 'F' : '-');
    };
    Write(home + QStringLiteral("/trees.csv"), "1,2\r\n");

    // Translate only, files missing.
    QCOMPARE(buttons(), QStringLiteral("---"));
    QVERIFY(!Child<QGroupBox>(setup, "fraEditStandListFile")->isEnabled());
    files_ = {(home + QStringLiteral("/trees.csv")).toStdString(), (home + QStringLiteral("/out.tre")).toStdString()};
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    QCOMPARE(buttons(), QStringLiteral("---"));
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    // Translate only, files ready, template "None".
    QCOMPARE(buttons(), QStringLiteral("-T-"));
    auto* templates = Child<QComboBox>(setup, "cmbTemplate");
    const int lolo = templates->findText(QStringLiteral("lolo"));
    QVERIFY(lolo > 0);
    templates->setCurrentIndex(lolo);
    emit templates->activated(lolo);
    // Translate only, files ready, a template.
    QCOMPARE(buttons(), QStringLiteral("-TF"));
    // Both, stand files missing.
    edit->click();
    QVERIFY(Child<QGroupBox>(setup, "fraEditStandListFile")->isEnabled());
    QCOMPARE(buttons(), QStringLiteral("---"));
    files_ = {(home + QStringLiteral("/a.slf")).toStdString(), (home + QStringLiteral("/a.loc")).toStdString()};
    Child<QPushButton>(setup, "cmdSelectSlf")->click();
    QCOMPARE(buttons(), QStringLiteral("---"));
    Child<QPushButton>(setup, "cmdSelectLocations")->click();
    // Both, all files ready.
    QCOMPARE(buttons(), QStringLiteral("NTF"));
    // Both, no input file: no Translate.
    Child<QCheckBox>(setup, "chkNoInput")->click();
    QCOMPARE(Child<QLineEdit>(setup, "lblInputFile")->text(), QStringLiteral("*** No input file ***"));
    QCOMPARE(buttons(), QStringLiteral("NT-"));
    // Translate only, no input file and a template: Next without Translate.
    edit->click();
    QCOMPARE(buttons(), QStringLiteral("-T-"));
    Child<QCheckBox>(setup, "chkNoInput")->click();
    QCOMPARE(buttons(), QStringLiteral("---"));
    // Edit only, stand files ready.
    translate->click();
    edit->click();
    QVERIFY(!Child<QGroupBox>(setup, "fraTranslateFile")->isEnabled());
    QVERIFY(!Child<QComboBox>(setup, "cmbTemplate")->isEnabled());
    QCOMPARE(buttons(), QStringLiteral("N--"));
    // Edit only, the location file refused as the stand list file.
    QString message;
    AnswerBox(QMessageBox::Ok, &message);
    files_ = {(home + QStringLiteral("/a.slf")).toStdString()};
    Child<QPushButton>(setup, "cmdSelectLocations")->click();
    QCOMPARE(message, QStringLiteral("Stand List File and Location File cannot be the same."));
    QCOMPARE(Child<QLineEdit>(setup, "lblLocationsFile")->text(), QString());
    QCOMPARE(buttons(), QStringLiteral("---"));
    // Neither.
    edit->click();
    QCOMPARE(buttons(), QStringLiteral("---"));
    QVERIFY(!translate->isChecked());
    QVERIFY(!edit->isChecked());
  }

  void eachFileDialogIsAskedWithItsOwnTitleAndCancelChangesNothing() {
    QString home;
    QWidget* setup = StartConfigured(home);
    Write(home + QStringLiteral("/trees.csv"), "1,2\r\n");
    Child<QCheckBox>(setup, "chkEditStandListFile")->click();
    files_ = {(home + QStringLiteral("/trees.csv")).toStdString(), (home + QStringLiteral("/out.tre")).toStdString(),
              (home + QStringLiteral("/a.slf")).toStdString(), (home + QStringLiteral("/a.loc")).toStdString()};
    for (const char* name : {"cmdChangeInput", "cmdChangeOutput", "cmdSelectSlf", "cmdSelectLocations"})
      Child<QPushButton>(setup, name)->click();
    QCOMPARE(Child<QLineEdit>(setup, "lblInputFile")->text(), home + QStringLiteral("/trees.csv"));
    QCOMPARE(Child<QLineEdit>(setup, "lblOutputFile")->text(), home + QStringLiteral("/out.tre"));
    QCOMPARE(Child<QLineEdit>(setup, "lblSlfFile")->text(), home + QStringLiteral("/a.slf"));
    QCOMPARE(Child<QLineEdit>(setup, "lblLocationsFile")->text(), home + QStringLiteral("/a.loc"));
    QCOMPARE(asked_.size(), std::size_t{4});
    QCOMPARE(QString::fromStdString(asked_[0].title), QStringLiteral("Corvalin - Select Input File"));
    QCOMPARE(QString::fromStdString(asked_[1].title), QStringLiteral("Corvalin - Select Output File"));
    QCOMPARE(QString::fromStdString(asked_[2].title), QStringLiteral("Corvalin - Select Stand List File"));
    QCOMPARE(QString::fromStdString(asked_[3].title), QStringLiteral("Corvalin - Select Location File"));
    QCOMPARE(QtFilterOf(asked_[0].filter),
             QStringLiteral("Data (*.dat);;Comma Separated Values (*.csv);;Text (*.txt *.out *.prn);;All Files (*)"));
    // Cancelled, each of them: the preset name comes back and nothing changes.
    for (const char* name : {"cmdChangeInput", "cmdChangeOutput", "cmdSelectSlf", "cmdSelectLocations"})
      Child<QPushButton>(setup, name)->click();
    QCOMPARE(asked_.size(), std::size_t{8});
    QCOMPARE(QString::fromStdString(asked_[4].fileName), QStringLiteral("trees.csv"));
    QCOMPARE(Child<QLineEdit>(setup, "lblInputFile")->text(), home + QStringLiteral("/trees.csv"));
    QCOMPARE(Child<QLineEdit>(setup, "lblLocationsFile")->text(), home + QStringLiteral("/a.loc"));
  }

  void helpButtonsOpenTheInstalledHelpAtTheirScreensSection() {
    QString home;
    QWidget* setup = StartConfigured(home);
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "Open");
    Child<QPushButton>(setup, "cmdHelp")->click();
    ModalAnswerer person([](QWidget* modal) {
      Child<QPushButton>(modal, "cmdHelp")->click();
      Child<QPushButton>(modal, "cmdCancel")->click();
    });
    Child<QPushButton>(setup, "cmdConfigure")->click();
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    const QString help = QFileInfo(QString::fromStdString(Run().HelpFile)).absoluteFilePath();
    QCOMPARE(help, QFileInfo(QStringLiteral(CORVALIN_BINARY_DIR "/share/corvalin/Help/Orvanta.html")).absoluteFilePath());
    QCOMPARE(catcher.opened.size(), 2);
    QCOMPARE(catcher.opened[0].toLocalFile(), help);
    QCOMPARE(catcher.opened[0].fragment(), QStringLiteral("context-7"));
    QCOMPARE(catcher.opened[1].fragment(), QStringLiteral("context-6"));
    // Each topic asked for is a section of the installed help.
    const QByteArray page = ReadAll(help);
    for (const char* topic : {"id=\"context-7\"", "id=\"context-6\"", "id=\"context-30\""})
      QVERIFY2(page.contains(topic), topic);
  }

  void byHandTheWizardGoesFromTheFirstScreenThroughTheColumnsToTheGridAndBack() {
    QString home;
    QWidget* setup = StartConfigured(home);
    Write(home + QStringLiteral("/plots.csv"), "12,ab,3.5\r\n13,cd,4\r\n");
    files_ = {(home + QStringLiteral("/plots.csv")).toStdString(), (home + QStringLiteral("/plots.tre")).toStdString()};
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    QCOMPARE(Child<QComboBox>(setup, "cmbTemplate")->currentText(), QStringLiteral("None"));
    // "Next >>" of the translation's group.
    Child<QPushButton>(setup, "cmdNextTrans")->click();
    Settle();
    QWidget* columns = Window(QStringLiteral("frmColumns"));
    QVERIFY(columns != nullptr);
    QVERIFY(Window(QStringLiteral("frmTemplate")) == nullptr);
    Child<QRadioButton>(columns, "optCharacterDelimited")->click();
    auto* comma = Child<QCheckBox>(columns, "chkComma");
    if (!comma->isChecked()) comma->click();
    Child<QPushButton>(columns, "cmdNext")->click();
    Settle();

    QWidget* grid = Window(QStringLiteral("frmHeaders"));
    QVERIFY(grid != nullptr);
    QVERIFY(Window(QStringLiteral("frmColumns")) == nullptr);
    QAbstractItemModel* model = Child<QTableView>(grid, "TDBGrid1")->model();
    // The file's two lines and the insert row after them.
    QCOMPARE(model->rowCount(), 3);
    // LineNum, then the cells as the file has them.
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("1"));
    QCOMPARE(model->index(0, 1).data().toString(), QStringLiteral("12"));
    QCOMPARE(model->index(0, 2).data().toString(), QStringLiteral("ab"));
    QCOMPARE(model->index(1, 3).data().toString(), QStringLiteral("4"));

    Child<QPushButton>(grid, "cmdBack")->click();
    Settle();
    QVERIFY(Window(QStringLiteral("frmHeaders")) == nullptr);
    QVERIFY(Window(QStringLiteral("frmColumns")) != nullptr);
  }

  void busyWindowCancelStopsTheLoadAndKeepsTheRowsSoFar() {
    QString home;
    QWidget* setup = StartConfigured(home);
    QByteArray lines;
    for (int i = 1; i <= 100; ++i) lines += QByteArray::number(i) + ",ab,3.5\r\n";
    Write(home + QStringLiteral("/trees.csv"), lines);
    files_ = {(home + QStringLiteral("/trees.csv")).toStdString(), (home + QStringLiteral("/trees.tre")).toStdString()};
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    Child<QPushButton>(setup, "cmdNextTrans")->click();
    QWidget* columns = Window(QStringLiteral("frmColumns"));
    QVERIFY(columns != nullptr);
    // Pending events run at every line of the load, whatever the machine's
    // speed: the person presses Cancel when the window has taken its events
    // for the third time, and sees the line in hand at that moment.
    toolkit_.SetEventInterval(0);
    QStringList seenTexts;
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
      QWidget* busy = Window(QStringLiteral("frmBusyMessage"));
      if (busy == nullptr) return;
      seenTexts << Child<QLabel>(busy, "lblBusyMessage")->text();
      if (seenTexts.size() < 3) return;
      press.stop();
      QTest::mouseClick(Child<QPushButton>(busy, "cmdCancel"), Qt::LeftButton);
    });
    press.start(0);
    Child<QPushButton>(columns, "cmdNext")->click();
    toolkit_.SetEventInterval(QtToolkit::kEventIntervalMs);
    QCOMPARE(seenTexts, (QStringList{QStringLiteral("Pulling columns from line: 1"),
                                     QStringLiteral("Pulling columns from line: 2"),
                                     QStringLiteral("Pulling columns from line: 3")}));
    QVERIFY(Run().BusyCancelled);
    QVERIFY(Window(QStringLiteral("frmBusyMessage")) == nullptr);
    // The load stopped after the line in hand: lines 1 to 3 are the rows.
    Recordset& rows = *App().Headers().Adodc1.Recordset;
    QCOMPARE(rows.RecordCount(), 3L);
    QVERIFY(Run().ReloadNeeded);
  }

  void theShortWayByHandGivesTheTreeListOfTheUnattendedRun() {
    QString home;
    QWidget* setup = StartConfigured(home);
    const QString output = home + QStringLiteral("/lolo.tre");
    Write(output, "an older list\r\n");
    auto* templates = Child<QComboBox>(setup, "cmbTemplate");
    const int lolo = templates->findText(QStringLiteral("lolo"));
    templates->setCurrentIndex(lolo);
    emit templates->activated(lolo);
    files_ = {kSurvey.toStdString(), output.toStdString()};
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    Child<QPushButton>(setup, "cmdNextTrans")->click();
    Settle();
    QWidget* columns = Window(QStringLiteral("frmColumns"));
    QVERIFY(columns != nullptr);
    QVERIFY(Window(QStringLiteral("frmTemplate")) == nullptr);
    // The template's format: comma delimited.
    QVERIFY(Child<QRadioButton>(columns, "optCharacterDelimited")->isChecked());
    QVERIFY(Child<QCheckBox>(columns, "chkComma")->isChecked());
    QVERIFY(!Child<QCheckBox>(columns, "chkTab")->isChecked());

    QStringList seen;
    ModalAnswerer person([&](QWidget* modal) {
      if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        seen << box->text();
        box->button(QMessageBox::Ok)->click();
        return;
      }
      seen << modal->objectName();
      Child<QPushButton>(modal, "cmdOverwrite")->click();
    });
    Child<QPushButton>(columns, "cmdFinish")->click();
    Settle();
    QCOMPARE(seen, (QStringList{QStringLiteral("frmAppendOverwriteCancel"), QStringLiteral("Translation completed.")}));
    QVERIFY(Window(QStringLiteral("frmTemplate")) != nullptr);
    QVERIFY(Window(QStringLiteral("frmColumns")) == nullptr);

    // The same three fields, unattended.
    const QString unattended = home + QStringLiteral("/unattended.tre");
    QProcess run;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), home);
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    run.setProcessEnvironment(env);
    run.start(QStringLiteral(CORVALIN_BINARY_DIR "/bin/corvalin"), {kSurvey, unattended, QStringLiteral("lolo")});
    QVERIFY(run.waitForFinished(60000));
    QCOMPARE(run.exitCode(), 0);
    const QByteArray byHand = ReadAll(output);
    QCOMPARE(byHand.count('\n'), 713);
    QCOMPARE(byHand, ReadAll(unattended));
  }
};

QTEST_MAIN(SetupWindowsTest)
#include "SetupWindowsTest.moc"
