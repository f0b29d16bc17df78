// The Toolkit of the tests: every box and dialog is recorded, and answers
// come from queues the test fills. With an empty queue a box gives its
// default button, a folder dialog is cancelled, a file dialog keeps its
// preset name. EndProcess throws ProcessEnded, which the test catches.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "shell/Toolkit.h"

namespace corvalin::testing {

struct RecordedBox {
  std::string text;
  Buttons buttons;
  Icon icon;
  std::string title;
  int defaultButton;
  Answer answer;
};

class ScriptedToolkit : public Toolkit {
 public:
  // Queues of answers, taken front first.
  std::deque<Answer> answers;
  std::deque<std::string> folders;
  std::deque<std::string> files;
  std::deque<AppendChoice> appendChoices;
  // Called at every DoEvents (to press Cancel in the middle of a load, say).
  std::function<void()> onDoEvents;
  // Whether OpenHelp finds a browser to show the help in.
  bool browserStarts = true;
  // Scripts for the modal dialogs, in the order they open: each plays the
  // person at the dialog (types, presses OK or Cancel). A dialog with no
  // script left is left open, and so ends as cancelled.
  std::deque<std::function<void(ModalWindow&)>> dialogs;
  template <class Dialog>
  void AnswerDialog(std::function<void(Dialog&)> script) {
    dialogs.push_back([script](ModalWindow& window) { script(dynamic_cast<Dialog&>(window)); });
  }
  // The script of every dialog that has none of its own in the queue.
  std::function<void(ModalWindow&)> everyDialog;
  template <class Dialog>
  void AnswerEveryDialog(std::function<void(Dialog&)> script) {
    everyDialog = [script](ModalWindow& window) { script(dynamic_cast<Dialog&>(window)); };
  }

  // What happened.
  std::vector<RecordedBox> boxes;
  std::vector<std::string> folderTitles;
  std::vector<std::string> folderStarts;  // the start folder of each folder dialog
  std::vector<FileDialogRequest> fileDialogs;
  std::vector<std::pair<std::string, std::string>> busyWindow;  // title, text per call
  std::vector<std::pair<std::string, std::string>> helpOpened;  // file, topic
  std::vector<std::string> appendQuestions;
  std::vector<std::string> modalDialogs;  // names, in the order they ran
  int busyHides = 0;
  int doEvents = 0;
  int beeps = 0;
  bool busyPointer = false;
  bool bannerShown = false;
  std::string bannerText;

  // The texts of all boxes, in order.
  std::vector<std::string> Texts() const;

  Answer Message(const MessageRequest& request) override;
  std::string BrowseForFolder(const std::string& title, const std::string& initialFolder) override;
  std::string ShowFileDialog(const FileDialogRequest& request) override;
  void SetBusyPointer(bool busy) override { busyPointer = busy; }
  void DoEvents() override;
  void ShowBusyWindow(const std::string& title, const std::string& text) override;
  void HideBusyWindow() override { ++busyHides; }
  void ShowBanner(const std::string& title, const std::string& text) override;
  void HideBanner() override { bannerShown = false; }
  AppendChoice AskAppendOverwriteCancel(const std::string& text) override;
  void RunModal(ModalWindow& window) override;
  bool OpenHelp(const std::string& helpFile, const std::string& topic) override;
  void Beep() override { ++beeps; }
  [[noreturn]] void EndProcess(int exitCode) override;
};

}  // namespace corvalin::testing
