#include "shell/Toolkit.h"

#include <cstdlib>

#include "shell/EventScope.h"
#include "shell/UnattendedToolkit.h"

namespace corvalin {

namespace {
Toolkit* gToolkit = nullptr;
}

Answer DefaultAnswer(const MessageRequest& request) {
  const int n = request.defaultButton;
  switch (request.buttons) {
    case Buttons::OK: return Answer::OK;
    case Buttons::OKCancel: return n == 2 ? Answer::Cancel : Answer::OK;
    case Buttons::YesNo: return n == 2 ? Answer::No : Answer::Yes;
    case Buttons::YesNoCancel: return n == 2 ? Answer::No : (n == 3 ? Answer::Cancel : Answer::Yes);
    case Buttons::RetryCancel: return n == 2 ? Answer::Cancel : Answer::Retry;
  }
  return Answer::OK;
}

const char* AnswerName(Answer answer) {
  switch (answer) {
    case Answer::OK: return "OK";
    case Answer::Cancel: return "Cancel";
    case Answer::Yes: return "Yes";
    case Answer::No: return "No";
    case Answer::Retry: return "Retry";
  }
  return "?";
}

Toolkit& UserInterface::Kit() {
  if (gToolkit == nullptr) {
    // Nobody chose one: behave as a run without a display would.
    static UnattendedToolkit fallback;
    gToolkit = &fallback;
  }
  return *gToolkit;
}

Answer UserInterface::Message(const MessageRequest& request) {
  WaitOnPerson wait;
  return Kit().Message(request);
}

std::string UserInterface::BrowseForFolder(const std::string& title, const std::string& initialFolder) {
  WaitOnPerson wait;
  return Kit().BrowseForFolder(title, initialFolder);
}

std::string UserInterface::ShowFileDialog(const FileDialogRequest& request) {
  WaitOnPerson wait;
  return Kit().ShowFileDialog(request);
}

void UserInterface::SetBusyPointer(bool busy) { Kit().SetBusyPointer(busy); }

void UserInterface::DoEvents() {
  if (!Kit().EventsDueNow()) return;
  WaitOnPerson wait;
  Kit().DoEvents();
}

void UserInterface::ShowBusyWindow(const std::string& title, const std::string& text) {
  Kit().ShowBusyWindow(title, text);
}

void UserInterface::HideBusyWindow() { Kit().HideBusyWindow(); }
void UserInterface::ShowBanner(const std::string& title, const std::string& text) { Kit().ShowBanner(title, text); }
void UserInterface::HideBanner() { Kit().HideBanner(); }

AppendChoice UserInterface::AskAppendOverwriteCancel(const std::string& text) {
  WaitOnPerson wait;
  return Kit().AskAppendOverwriteCancel(text);
}

void UserInterface::RunModal(ModalWindow& window) {
  WaitOnPerson wait;
  Kit().RunModal(window);
}

bool UserInterface::OpenHelp(const std::string& helpFile, const std::string& topic) {
  return Kit().OpenHelp(helpFile, topic);
}

void UserInterface::Beep() { Kit().Beep(); }

void UserInterface::EndProcess(int exitCode) {
  Kit().EndProcess(exitCode);
  // A Toolkit's EndProcess never returns; the process ends here all the same.
  std::_Exit(exitCode);
}

UserInterface& UI() {
  static UserInterface door;
  return door;
}

void SetToolkit(Toolkit* toolkit) { gToolkit = toolkit; }

}  // namespace corvalin
