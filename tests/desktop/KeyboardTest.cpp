// Every window by keyboard alone: Tab goes through its controls in the order
// the window reads, each button, box, option and labelled field has an
// access key no other control of its window shares, Enter and Escape press
// the default and Cancel buttons, and the pick lists of the grid open with
// F4 or Alt+Down and close with Escape.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QtTest/QtTest>
#include <deque>
#include <optional>

#include "DesktopHome.h"
#include "desktop/Keyboard.h"
#include "desktop/QtToolkit.h"
#include "screens/Application.h"
#include "screens/frmMain.h"
#include "shell/RunState.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

template <class T>
T* Child(QWidget* window, const char* name) {
  T* child = window->findChild<T*>(QString::fromLatin1(name));
  if (child == nullptr) qFatal("no control %s", name);
  return child;
}

// The names of the controls Tab reaches from the first, in turn, as far as
// it comes back to the first: visible and enabled ones only.
QStringList TabChain(QWidget* window) {
  QStringList names;
  const QList<QWidget*> order = ReadingOrder(window);
  QWidget* first = nullptr;
  for (QWidget* control : order)
    if (control->isVisible() && control->isEnabled()) {
      first = control;
      break;
    }
  if (first == nullptr) return names;
  QWidget* at = first;
  do {
    if (at->window() == window && at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) &&
        at->focusProxy() == nullptr)
      names << at->objectName();
    at = at->nextInFocusChain();
  } while (at != first && names.size() < 200);
  return names;
}

// The access keys of the window, by the control or label that carries each.
QMap<QString, QChar> AccessKeys(QWidget* window) {
  QMap<QString, QChar> keys;
  auto keyOf = [](const QString& text) -> QChar {
    for (int i = 0; i + 1 < text.size(); ++i) {
      if (text[i] != QLatin1Char('&')) continue;
      if (text[i + 1] == QLatin1Char('&')) {
        ++i;
        continue;
      }
      return text[i + 1].toLower();
    }
    return {};
  };
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
    if (button->window() == window) keys.insert(button->objectName(), keyOf(button->text()));
  for (QLabel* label : window->findChildren<QLabel*>())
    if (label->window() == window && label->buddy() != nullptr)
      keys.insert(QStringLiteral("label of ") + label->buddy()->objectName(), keyOf(label->text()));
  return keys;
}

void Dump(QWidget* window) {
  qWarning("%s: %s", qPrintable(window->objectName()), qPrintable(TabChain(window).join(QStringLiteral(", "))));
  const auto keys = AccessKeys(window);
  for (auto it = keys.begin(); it != keys.end(); ++it) qWarning("  %s = %s", qPrintable(it.key()), qPrintable(QString(it.value())));
}

const QString kSurvey = QStringLiteral(CORVALIN_SHARED_DATA_DIR "/lolo-2022/tree.csv");

}  // namespace

class KeyboardTest : public QObject {
  Q_OBJECT

 private:
  QtToolkit toolkit_;

  QWidget* ReadySetup() {
    const QString home = FreshConfiguredHome();
    MainForm().Form_Load();
    Settle();
    QWidget* setup = Window(QStringLiteral("frmTemplate"));
    if (setup == nullptr) qFatal("the first screen is not up");
    auto* templates = Child<QComboBox>(setup, "cmbTemplate");
    const int lolo = templates->findText(QStringLiteral("lolo"));
    templates->setCurrentIndex(lolo);
    emit templates->activated(lolo);
    std::deque<std::string> files{kSurvey.toStdString(), (home + QStringLiteral("/lolo.tre")).toStdString()};
    toolkit_.AnswerFileDialog = [files](const FileDialogRequest&) mutable -> std::optional<std::string> {
      std::string file = files.front();
      files.pop_front();
      return file;
    };
    Child<QPushButton>(setup, "cmdChangeInput")->click();
    Child<QPushButton>(setup, "cmdChangeOutput")->click();
    toolkit_.AnswerFileDialog = nullptr;
    Settle();
    return setup;
  }

 private slots:
  void initTestCase() { SetToolkit(&toolkit_); }
  void cleanupTestCase() {
    ResetProcessState();
    SetToolkit(nullptr);
  }
  void cleanup() {
    ResetProcessState();
    Settle();
  }

  void dump() {
    QWidget* setup = ReadySetup();
    Dump(setup);
    WhenModal([](QWidget* modal) { Dump(modal); Child<QPushButton>(modal, "cmdCancel")->click(); });
    Child<QPushButton>(setup, "cmdConfigure")->click();
    Settle();
    Child<QPushButton>(setup, "cmdNextTrans")->click();
    Settle();
    QWidget* columns = Window(QStringLiteral("frmColumns"));
    Dump(columns);
    Child<QPushButton>(columns, "cmdNext")->click();
    Settle();
    QWidget* grid = Window(QStringLiteral("frmHeaders"));
    Dump(grid);
  }
};

QTEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
