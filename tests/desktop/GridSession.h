// The grid screen's real window over a real input file, as the program
// reaches it: a fresh HOME set up with Data and Work folders, the start
// sequence, the input and output named on the first screen, the comma format
// on the column screen, and its Next, which loads the working table and
// shows the grid. Boxes that come up are answered by script.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QtTest>
#include <deque>
#include <functional>
#include <string>

#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "desktop/frmHeadersWindow.h"
#include "screens/Application.h"
#include "screens/ProcessState.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin::testing {

class GridSession {
 public:
  GridSession() {
    ResetProcessState();
    AttachDesktopViews();
    qputenv("HOME", home_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home_.path() + QStringLiteral("/.config")).toUtf8());
    const QString orvanta = home_.path() + QStringLiteral("/Documents/Orvanta");
    QDir().mkpath(orvanta + QStringLiteral("/Data"));
    QDir().mkpath(orvanta + QStringLiteral("/Work"));
    SaveSetting(SettingsApplication, "Common", "DataDir", (orvanta + QStringLiteral("/Data/")).toStdString());
    SaveSetting(SettingsApplication, "Common", "WorkDir", (orvanta + QStringLiteral("/Work/")).toStdString());
    SaveSetting(SettingsApplication, "Corvalin", "Configured", "YES");
    SetToolkit(&toolkit_);
  }
  ~GridSession() {
    App().UnloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SetToolkit(nullptr);
    ResetProcessState();
  }

  QString Home() const { return home_.path(); }
  // The program run unattended in this HOME on an input, with a template;
  // its exit status.
  int RunUnattended(const QString& input, const QString& output, const QString& templateName) const {
    QProcess run;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), Home());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), Home() + QStringLiteral("/.config"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    run.setProcessEnvironment(environment);
    run.start(QStringLiteral(CORVALIN_BINARY_DIR "/bin/corvalin"), {input, output, templateName});
    // The run ends by itself; the test's own time limit bounds a hang.
    if (!run.waitForFinished(-1)) return -1;
    return run.exitStatus() == QProcess::NormalExit ? run.exitCode() : -1;
  }
  QtToolkit& Toolkit() { return toolkit_; }
  QString Work() const { return home_.path() + QStringLiteral("/Documents/Orvanta/Work/"); }

  // The assignment a column gets from the settings, as the last session
  // left it.
  static void Assign(int column, const std::string& type, const std::string& units) {
    SaveSetting(SettingsApplication, "Corvalin", "ColumnHeader" + std::to_string(column), type);
    SaveSetting(SettingsApplication, "Corvalin", "ColumnUnits" + std::to_string(column), units);
  }

  // Writes the input file and goes to the grid with it.
  frmHeadersWindow* Open(const QByteArray& input) {
    const QString path = home_.path() + QStringLiteral("/trees.csv");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return nullptr;
    file.write(input);
    file.close();
    return OpenFile(path);
  }

  frmHeadersWindow* OpenFile(const QString& path) {
    MainForm().Form_Load();
    frmTemplate& setup = App().Template();
    RunEvent([&] {
      setup.lblInputFile.SetCaption(path.toStdString());
      setup.lblOutputFile.SetCaption((home_.path() + QStringLiteral("/out.tre")).toStdString());
    });
    frmColumns& format = App().Columns();
    RunEvent([&] {
      format.optFixedWidth.Value = false;
      format.optCharacterDelimited.Value = true;
      format.chkComma.Value = 1;
      format.chkComma_Click();
      format.Show();
      setup.Hide();
      format.cmdNext_Click();
    });
    QApplication::processEvents();
    return dynamic_cast<frmHeadersWindow*>(App().Headers().View());
  }

  // The texts of the boxes shown so far; each box is answered with the
  // answers queued, else with its default button.
  std::vector<std::string> boxes;
  std::deque<QMessageBox::StandardButton> answers;
  // Starts answering boxes as they come up.
  void AnswerBoxes() {
    auto* timer = new QTimer(qApp);
    timer->setInterval(20);
    QObject::connect(timer, &QTimer::timeout, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      boxes.push_back(box->text().toStdString());
      QAbstractButton* button = box->defaultButton();
      if (!answers.empty()) {
        button = box->button(answers.front());
        answers.pop_front();
      }
      if (button != nullptr) {
        button->click();
      } else {
        box->close();
      }
    });
    timer->start();
    answering_ = timer;
  }
  void StopAnswering() {
    if (answering_ != nullptr) answering_->deleteLater();
    answering_ = nullptr;
  }

 private:
  QTemporaryDir home_;
  QtToolkit toolkit_;
  QTimer* answering_ = nullptr;
};

// Plot, tree, species, DBH, damage, crown ratio, count: tree i on row i - 1.
inline QByteArray Trees(int rows = 40) {
  QByteArray text;
  for (int i = 1; i <= rows; ++i)
    text += QByteArray::number(i / 10 + 1) + "," + QByteArray::number(i) + ",FD," + QByteArray::number(10 + i % 7) +
            ",12 3," + QByteArray::number(1 + i % 9) + ",1\r\n";
  return text;
}

inline void AssignTrees() {
  GridSession::Assign(1, "Plot ID", "");
  GridSession::Assign(2, "Tree ID", "");
  GridSession::Assign(3, "Species", "");
  GridSession::Assign(4, "DBH", "cm");
  GridSession::Assign(5, "Damage/Severity - 1", "");
  GridSession::Assign(6, "Crown Ratio", "codes");
  GridSession::Assign(7, "Tree Count", "");
}

}  // namespace corvalin::testing
