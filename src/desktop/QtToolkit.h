// The Toolkit of the desktop: Qt message boxes and dialogs, the busy pointer,
// pending events, the busy window (frmBusyMessage), the banner of an
// unattended run (frmAutoMsg), the append question (frmAppendOverwriteCancel)
// and the help page in the user's browser.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "shell/Toolkit.h"

namespace corvalin {

// Text is single-byte; shown on screen it is read as Latin-1, and the CR LF
// of a message is a line break.
QString ToQt(const std::string& text);
// File paths are the file system's bytes.
QString PathToQt(const std::string& path);
std::string PathFromQt(const QString& path);
// "Text (*.txt)|*.txt|All Files (*.*)|*.*" as Qt's "Text (*.txt);;All Files (*)".
QString QtFilterOf(const std::string& filter);

class QtToolkit : public Toolkit {
 public:
  QtToolkit();
  ~QtToolkit() override;

  Answer Message(const MessageRequest& request) override;
  std::string BrowseForFolder(const std::string& title, const std::string& initialFolder) override;
  std::string ShowFileDialog(const FileDialogRequest& request) override;
  void SetBusyPointer(bool busy) override;
  // Pending events run at most every kEventIntervalMs: a load that calls it
  // per line would otherwise spend its time drawing. Cancel still arrives
  // within that interval.
  void DoEvents() override;
  bool EventsDueNow() override;
  static constexpr int kEventIntervalMs = 20;
  // For tests: the interval (0 runs pending events at every call) and the
  // clock it is measured on, in milliseconds (empty: the steady clock).
  void SetEventInterval(int milliseconds) { eventIntervalMs_ = milliseconds; }
  std::function<qint64()> Clock;
  void ShowBusyWindow(const std::string& title, const std::string& text) override;
  void HideBusyWindow() override;
  void ShowBanner(const std::string& title, const std::string& text) override;
  void HideBanner() override;
  AppendChoice AskAppendOverwriteCancel(const std::string& text) override;
  // The modal loop of the screen's own window; a screen without a window
  // ends as cancelled.
  void RunModal(ModalWindow& window) override;
  bool OpenHelp(const std::string& helpFile, const std::string& topic) override;
  void Beep() override;
  [[noreturn]] void EndProcess(int exitCode) override;

  // For tests and the screenshot tour: answers the file and folder dialogs
  // in place of the person (the chosen path; nothing for Cancel). Qt's own
  // dialogs open when these are empty.
  std::function<std::optional<std::string>(const FileDialogRequest&)> AnswerFileDialog;
  std::function<std::optional<std::string>(const std::string& title, const std::string& initialFolder)>
      AnswerFolderDialog;

  // The windows, for the desktop tests.
  QDialog* BusyWindow() const { return busyWindow_; }
  QLabel* BusyMessageLabel() const { return busyLabel_; }
  QPushButton* BusyCancelButton() const { return busyCancel_; }
  QWidget* Banner() const { return banner_; }

 private:
  QPointer<QDialog> busyWindow_;
  QPointer<QLabel> busyLabel_;
  QPointer<QPushButton> busyCancel_;
  QPointer<QWidget> banner_;
  bool busyPointer_ = false;
  qint64 Now() const;
  int eventIntervalMs_ = kEventIntervalMs;
  // When pending events last ran; none yet when empty.
  std::optional<qint64> eventsRanAt_;
  std::string pendingBusyText_;
  bool busyTextPending_ = false;
};

}  // namespace corvalin
