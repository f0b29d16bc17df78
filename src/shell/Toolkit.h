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

// What the Toolkit knows of a screen it runs modally: its name, and whether it
// is still up. The modal loop runs until it is not.
class ModalWindow {
 public:
  virtual ~ModalWindow() = default;
  virtual const char* Name() const = 0;
  virtual bool Visible() const = 0;
};

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
  // Whether a DoEvents now would let events run. A Toolkit that lets them
  // run only every few milliseconds says no in between, and the views are
  // then not brought up to date for it: a long loop's progress costs little.
  virtual bool EventsDueNow() { return true; }

  // frmBusyMessage: created at the first call, caption and text set.
  virtual void ShowBusyWindow(const std::string& title, const std::string& text) = 0;
  virtual void HideBusyWindow() = 0;
  // frmAutoMsg, the banner of an unattended run.
  virtual void ShowBanner(const std::string& title, const std::string& text) = 0;
  virtual void HideBanner() = 0;
  // frmAppendOverwriteCancel, shown modally.
  virtual AppendChoice AskAppendOverwriteCancel(const std::string& text) = 0;
  // Runs a modal loop over a screen that is already shown, until it hides
  // itself (its OK or Cancel) or the person closes it. A Toolkit with nobody
  // to answer returns at once, and the screen then ends as cancelled.
  virtual void RunModal(ModalWindow& window) = 0;

  // Opens the help file at a topic (an anchor such as "context-7"), or at its
  // contents when the topic is empty. Returns whether it could be shown.
  virtual bool OpenHelp(const std::string& helpFile, const std::string& topic) = 0;
  virtual void Beep() = 0;

  // Ends the process with this exit status. Never returns.
  [[noreturn]] virtual void EndProcess(int exitCode) = 0;
};

// The door every routine uses to reach the person: the Toolkit in use, with
// the views brought up to date before each wait on the person (a box, a
// dialog, pending events), so that what the person sees is current, and the
// events of the wait bringing them up to date as each ends.
class UserInterface {
 public:
  Answer Message(const MessageRequest& request);
  std::string BrowseForFolder(const std::string& title, const std::string& initialFolder);
  std::string ShowFileDialog(const FileDialogRequest& request);
  void SetBusyPointer(bool busy);
  void DoEvents();
  void ShowBusyWindow(const std::string& title, const std::string& text);
  void HideBusyWindow();
  void ShowBanner(const std::string& title, const std::string& text);
  void HideBanner();
  AppendChoice AskAppendOverwriteCancel(const std::string& text);
  void RunModal(ModalWindow& window);
  bool OpenHelp(const std::string& helpFile, const std::string& topic);
  void Beep();
  [[noreturn]] void EndProcess(int exitCode);

  // The Toolkit behind the door.
  Toolkit& Kit();
};

// The door, process-wide.
UserInterface& UI();
// The Toolkit in use. Set once at start (and by each test).
void SetToolkit(Toolkit* toolkit);

}  // namespace corvalin
