// Every Help button of the program, pressed with the mouse as a person does:
// each opens the installed help page at a section that is there, and no two
// windows share a section. The help goes to a catcher in place of a browser.
#include <QComboBox>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTableView>
#include <QUrl>
#include <QtTest/QtTest>

#include "UrlCatcher.h"
#include "DesktopHome.h"
#include "GridDialogs.h"
#include "GridSession.h"
#include "desktop/frmHeadersWindow.h"
#include "screens/frmColumns.h"
#include "screens/frmConfigure.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmExcludeContaining.h"
#include "screens/frmExcludeRange.h"
#include "screens/frmExcludeStartingWith.h"
#include "screens/frmHeaders.h"
#include "screens/frmReplaceAll.h"
#include "screens/frmTemplate.h"
#include "screens/frmTemplateName.h"
#include "shell/Help.h"
#include "templates/TemplateCommands.h"

using namespace corvalin;
using corvalin::testing::AssignTrees;
using corvalin::testing::GridSession;
using corvalin::testing::Trees;
using namespace corvalin::desktoptest;

namespace {

const QString kHelpFolder = QStringLiteral(CORVALIN_BINARY_DIR "/share/corvalin/Help");

// The ids of the installed help page.
QSet<QString> IdsOfPage(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QString page = QString::fromUtf8(file.readAll());
  QSet<QString> ids;
  const QRegularExpression id(QStringLiteral("\\bid=\"([^\"]*)\""));
  for (auto it = id.globalMatch(page); it.hasNext();) ids.insert(it.next().captured(1));
  return ids;
}

// A click on the window's Help button.
void ClickHelp(QWidget* window) { QTest::mouseClick(Child<QPushButton>(window, "cmdHelp"), Qt::LeftButton); }

// A click on the Help button, then on Cancel, of the dialog once it is up.
void HelpThenCancelWhenUp(const char* name) {
  WhenWindowUp(QString::fromLatin1(name), [](QWidget* dialog) {
    ClickHelp(dialog);
    QTest::mouseClick(Child<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
  });
}

}  // namespace

class HelpButtonsTest : public QObject, public WizardWindows {
  Q_OBJECT

  UrlCatcher catcher_;
  // The section each window's Help opened, by the window's name.
  QMap<QString, QUrl> opened_;

  // The URL the last press of a Help button opened, kept for the window.
  void Took(const QString& window) {
    QVERIFY2(!catcher_.opened.isEmpty(), qPrintable(window + QStringLiteral(": no help opened")));
    QVERIFY2(!opened_.contains(window), qPrintable(window + QStringLiteral(": pressed twice")));
    opened_.insert(window, catcher_.opened.takeLast());
    QVERIFY2(catcher_.opened.isEmpty(), qPrintable(window + QStringLiteral(": more than one help page opened")));
  }

 private slots:
  void initTestCase() { QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher_, "Open"); }
  void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

  void theWizardsWindowsOpenTheirSections() {
    UseToolkit();
    QWidget* setup = ReadyFirstScreen(toolkit_, QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv"),
                                      QStringLiteral("lolo.tre"), QStringLiteral("None"));
    ClickHelp(setup);
    Settle();
    Took(QStringLiteral("frmTemplate"));

    WhenModal([](QWidget* defaults) {
      ClickHelp(defaults);
      QTest::mouseClick(Child<QPushButton>(defaults, "cmdCancel"), Qt::LeftButton);
    });
    QTest::mouseClick(Child<QPushButton>(setup, "cmdConfigure"), Qt::LeftButton);
    Settle();
    Took(QStringLiteral("frmConfigure"));

    QWidget* columns = Press(setup, "cmdNextTrans", "frmColumns");
    ClickHelp(columns);
    Settle();
    Took(QStringLiteral("frmColumns"));
    QCOMPARE(Window(QStringLiteral("frmColumns")), columns);
    LeaveToolkit();
    Settle();
  }

  void theGridAndItsDialogsOpenTheirSections() {
    GridSession session;
    AssignTrees();
    frmHeadersWindow* grid = session.Open(Trees());
    QVERIFY(grid != nullptr);
    ClickHelp(grid);
    Settle();
    Took(QStringLiteral("frmHeaders"));

    // The save-template dialog, from Save under Template:.
    HelpThenCancelWhenUp("frmTemplateName");
    QTest::mouseClick(Child<QPushButton>(grid, "cmdSaveTemplate"), Qt::LeftButton);
    Settle();
    Took(QStringLiteral("frmTemplateName"));

    // The damage and severity dialog, from the drop-down button of a damage
    // cell on the current row.
    QTableView* table = grid->Table();
    const QModelIndex damage = grid->Model()->index(4, 5);
    table->setCurrentIndex(damage);
    HelpThenCancelWhenUp("frmDamageSeverity");
    const QRect cell = table->visualRect(damage);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
    Settle();
    Took(QStringLiteral("frmDamageSeverity"));

    // The column menu's three dialogs, over the species column.
    for (const auto& [entry, name] : {std::pair{"Find/Replace", "frmReplaceAll"},
                                      std::pair{"Exclude Rows Containing...", "frmExcludeContaining"},
                                      std::pair{"Exclude Rows Starting With...", "frmExcludeStartingWith"}}) {
      HelpThenCancelWhenUp(name);
      ColumnMenu(grid, 3, QString::fromLatin1(entry));
      Took(QString::fromLatin1(name));
    }

    // The command editor, from Edit under Template: (not saving the view
    // first), and the range dialog from the editor's Edit on a range.
    Commands().CommandCount = 1;
    TemplateCommandAt(1) = {"EXCLUDE_RANGE", "", "", -1, 7, 9, ""};
    WhenBox(QMessageBox::No, nullptr);
    WhenWindowUp(QStringLiteral("frmEditTemplateCommands"), [&](QWidget* editor) {
      HelpThenCancelWhenUp("frmExcludeRange");
      QTest::mouseClick(Child<QPushButton>(editor, "cmdEdit"), Qt::LeftButton);
      Settle();
      Took(QStringLiteral("frmExcludeRange"));
      ClickHelp(editor);
      Settle();
      Took(QStringLiteral("frmEditTemplateCommands"));
      QTest::mouseClick(Child<QPushButton>(editor, "cmdCancel"), Qt::LeftButton);
    });
    QTest::mouseClick(Child<QPushButton>(grid, "cmdEditTemplateCommands"), Qt::LeftButton);
    Settle();
    QVERIFY(Window(QStringLiteral("frmEditTemplateCommands")) == nullptr);
  }

  void everyWindowOpensASectionOfItsOwnInTheInstalledHelp() {
    const QString page = QFileInfo(kHelpFolder + QStringLiteral("/Orvanta.html")).absoluteFilePath();
    const QSet<QString> ids = IdsOfPage(page);
    QVERIFY(!ids.isEmpty());
    // Each window's section: the screens' own help contexts.
    const QMap<QString, QString> sections{
        {QStringLiteral("frmTemplate"), QString::fromStdString(HelpTopicOfContext(frmTemplate::kHelpContext))},
        {QStringLiteral("frmConfigure"), QString::fromStdString(HelpTopicOfContext(frmConfigure::kHelpContext))},
        {QStringLiteral("frmColumns"), QString::fromStdString(HelpTopicOfContext(frmColumns::kHelpContext))},
        {QStringLiteral("frmHeaders"), QString::fromStdString(HelpTopicOfContext(frmHeaders::kHelpContext))},
        {QStringLiteral("frmTemplateName"),
         QString::fromStdString(HelpTopicOfContext(frmTemplateName::kHelpContext))},
        {QStringLiteral("frmDamageSeverity"),
         QString::fromStdString(HelpTopicOfContext(frmDamageSeverity::kHelpContext))},
        {QStringLiteral("frmReplaceAll"), QString::fromStdString(HelpTopicOfContext(frmReplaceAll::kHelpContext))},
        {QStringLiteral("frmExcludeContaining"),
         QString::fromStdString(HelpTopicOfContext(frmExcludeContaining::kHelpContext))},
        {QStringLiteral("frmExcludeStartingWith"),
         QString::fromStdString(HelpTopicOfContext(frmExcludeStartingWith::kHelpContext))},
        {QStringLiteral("frmExcludeRange"),
         QString::fromStdString(HelpTopicOfContext(frmExcludeRange::kHelpContext))},
        {QStringLiteral("frmEditTemplateCommands"),
         QString::fromStdString(HelpTopicOfContext(frmEditTemplateCommands::kHelpContext))},
    };
    QCOMPARE(opened_.keys(), sections.keys());
    QSet<QString> fragments;
    for (auto it = opened_.cbegin(); it != opened_.cend(); ++it) {
      const QString window = it.key();
      const QUrl& url = it.value();
      QCOMPARE(url.scheme(), QStringLiteral("file"));
      QCOMPARE(QFileInfo(url.toLocalFile()).absoluteFilePath(), page);
      QVERIFY2(QFileInfo(url.toLocalFile()).isFile(), qPrintable(window));
      QCOMPARE(url.fragment(), sections.value(window));
      QVERIFY2(ids.contains(url.fragment()), qPrintable(window + QStringLiteral(": no section ") + url.fragment()));
      fragments.insert(url.fragment());
    }
    QCOMPARE(fragments.size(), 11);
  }
};

QTEST_MAIN(HelpButtonsTest)
#include "HelpButtonsTest.moc"
