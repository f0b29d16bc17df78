// Everything that talks to the person goes through this one interface:
// message boxes, file and folder dialogs, the busy pointer, pending events,
// the busy window, the batch banner, the append question and help.
// Three implementations: the Qt one (desktop/), the unattended one (no
// display: a box's text goes to standard error and its default button
// answers) and the scripted one for tests.
#pragma once

#include <string>

namespace corvalin {

enum class Buttons { OK, OKCancel, YesNo, YesNoCancel, RetryCancel };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { OK, Cancel, Yes, No, Retry };

struct MessageRequest {
  std::string text;
  Buttons buttons = Buttons::OK;
  Icon icon = Icon::None;
  std::string title;       // empty: the application's default title
  int defaultButton = 1;   // 1 = first button, 2 = second, 3 = third
};

// The answer a box gives when nobody is there to choose: its default button.
Answer DefaultAnswer(const MessageRequest& request);
// "OK", "Yes", ... for logs and test failure texts.
const char* AnswerName(Answer answer);

struct FileDialogRequest {
  std::string title;
  std::string initialFolder;
  std::string fileName;     // preset file name; returned unchanged on Cancel
  std::string filter;       // "Text (*.txt)|*.txt|All Files (*.*)|*.*"
  int filterIndex = 1;
  int flags = 0;
  int helpContext = 0;
  bool save = false;        // a save dialog (may name a new file)
};

enum class AppendChoice { Append, Overwrite, Cancel, Closed };

class Toolkit {
 public:
  virtual ~Toolkit() = default;

  // A modal message box; returns the button pressed.
  virtual Answer Message(const MessageRequest& request) = 0;
  // The platform's folder dialog; the empty string on Cancel.
  virtual std::string BrowseForFolder(const std::string& title, const std::string& initialFolder) = 0;
  // A file dialog; returns the dialog's file name afterwards: the chosen full
  // path, or the preset name unchanged on Cancel.
  virtual std::string ShowFileDialog(const FileDialogRequest& request) = 0;

  virtual void SetBusyPointer(bool busy) = 0;
  // Let pending window events run (the only way Cancel reaches a long loop).
  virtual void DoEvents() = 0;

  // frmBusyMessage: created at the first call, caption and text set.
  virtual void ShowBusyWindow(const std::string& title, const std::string& text) = 0;
  virtual void HideBusyWindow() = 0;
  // frmAutoMsg, the banner of an unattended run.
  virtual void ShowBanner(const std::string& title, const std::string& text) = 0;
  virtual void HideBanner() = 0;
  // frmAppendOverwriteCancel, shown modally.
  virtual AppendChoice AskAppendOverwriteCancel(const std::string& text) = 0;

  // Opens the help file at a topic (an anchor such as "context-7"), or at its
  // contents when the topic is empty. Returns whether it could be shown.
  virtual bool OpenHelp(const std::string& helpFile, const std::string& topic) = 0;
  virtual void Beep() = 0;

  // Ends the process with this exit status. Never returns.
  [[noreturn]] virtual void EndProcess(int exitCode) = 0;
};

// The Toolkit in use, process-wide. Set once at start (and by each test).
Toolkit& UI();
void SetToolkit(Toolkit* toolkit);

}  // namespace corvalin
