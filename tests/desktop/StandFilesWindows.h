// What the desktop tests of the stand list and location editors share: the
// editing path opened from the first screen on files of the test's own, a
// script that plays the person at each modal window in turn, and the checks
// of a window's keyboard and screen reader names.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMap>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QtTest/QtTest>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "DesktopHome.h"
#include "KeyboardChecks.h"
#include "desktop/Keyboard.h"
#include "desktop/QtToolkit.h"

namespace corvalin::desktoptest {

inline QByteArray ReadAll(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll();
}

inline void WriteAll(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(path));
  file.write(bytes);
}

// The lines joined as the editors write them: each followed by CR LF.
inline QByteArray CrLf(const QStringList& lines) {
  QByteArray bytes;
  for (const QString& line : lines) bytes += line.toLatin1() + "\r\n";
  return bytes;
}

// The rows a list box shows.
inline QStringList Rows(QListWidget* list) {
  QStringList rows;
  for (int i = 0; i < list->count(); ++i) rows << list->item(i)->text();
  return rows;
}

// The person at the modal windows: each step acts on the modal window in
// front when its turn comes, one step per turn. A step that leaves its window
// open (a refused OK, say) hands it to the next step; a box that a step's
// click brings up is the next step's.
class ModalScript {
 public:
  using Step = std::function<void(QWidget* modal)>;
  ~ModalScript() { delete timer_; }
  void Then(Step step) {
    steps_.push_back(std::move(step));
    if (timer_ == nullptr) Arm();
  }
  // A box answered with its button; its text is kept.
  void ThenBox(QMessageBox::StandardButton button, QString* text = nullptr) {
    Then([button, text](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      if (box == nullptr) qFatal("a box was due, not %s", qPrintable(modal->objectName()));
      if (text != nullptr) *text = box->text();
      box->button(button)->click();
    });
  }
  bool Done() const { return steps_.empty(); }

 private:
  // Each step waits on a timer of its own: a step that opens a modal window
  // is still running inside its timer's signal when the next step is due,
  // and a timer never fires inside its own signal.
  void Arm() {
    timer_ = new QTimer;
    timer_->setInterval(10);
    QObject::connect(timer_, &QTimer::timeout, [this, timer = timer_] {
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr || !modal->isVisible() || steps_.empty()) return;
      // A step that lets events run (a Settle, say) is still at its window:
      // the next step waits for a window the step brings up, or for the step
      // to end.
      if (actingOn_.contains(modal)) return;
      timer->stop();
      timer->deleteLater();
      timer_ = nullptr;
      Step step = std::move(steps_.front());
      steps_.pop_front();
      if (!steps_.empty()) Arm();
      actingOn_.append(modal);
      step(modal);
      actingOn_.removeLast();
    });
    timer_->start();
  }

  std::deque<Step> steps_;
  QTimer* timer_ = nullptr;
  // The windows of the steps running, the outermost first.
  QList<QWidget*> actingOn_;
};

// The first screen of a configured HOME set to edit files only, with the
// stand list and location files given (they need not exist), and Next
// pressed: the stand list editor.
inline QWidget* OpenStandListEditor(QtToolkit& toolkit, const QString& slfPath, const QString& locPath) {
  MainForm().Form_Load();
  Settle();
  QWidget* setup = Window(QStringLiteral("frmTemplate"));
  if (setup == nullptr) qFatal("the first screen is not up");
  auto* translate = Child<QCheckBox>(setup, "chkTranslateFile");
  if (translate->isChecked()) translate->click();
  auto* edit = Child<QCheckBox>(setup, "chkEditStandListFile");
  if (!edit->isChecked()) edit->click();
  std::deque<std::string> files{slfPath.toStdString(), locPath.toStdString()};
  toolkit.AnswerFileDialog = [files](const FileDialogRequest&) mutable -> std::optional<std::string> {
    std::string file = files.front();
    files.pop_front();
    return file;
  };
  Child<QPushButton>(setup, "cmdSelectSlf")->click();
  Child<QPushButton>(setup, "cmdSelectLocations")->click();
  toolkit.AnswerFileDialog = nullptr;
  Settle();
  return Press(setup, "cmdNext", "frmSlf");
}

// Whether the window, frame included, stands wholly on its screen's working
// area.
inline bool WhollyOnScreen(QWidget* window) {
  return window->screen()->availableGeometry().contains(window->frameGeometry());
}

}  // namespace corvalin::desktoptest
