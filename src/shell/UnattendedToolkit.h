// The Toolkit of a run without a display: every box's text goes to standard
// error and its default button is the answer; dialogs are cancelled; the
// busy window and the banner do not exist; the process really ends.
#pragma once

#include "shell/Toolkit.h"

namespace corvalin {

class UnattendedToolkit : public Toolkit {
 public:
  Answer Message(const MessageRequest& request) override;
  std::string BrowseForFolder(const std::string& title, const std::string& initialFolder) override;
  std::string ShowFileDialog(const FileDialogRequest& request) override;
  void SetBusyPointer(bool) override {}
  void DoEvents() override {}
  void ShowBusyWindow(const std::string&, const std::string&) override {}
  void HideBusyWindow() override {}
  void ShowBanner(const std::string&, const std::string&) override {}
  void HideBanner() override {}
  AppendChoice AskAppendOverwriteCancel(const std::string& text) override;
  // Nobody is there to answer: the dialog ends as cancelled.
  void RunModal(ModalWindow&) override {}
  bool OpenHelp(const std::string& helpFile, const std::string& topic) override;
  void Beep() override {}
  [[noreturn]] void EndProcess(int exitCode) override;
};

}  // namespace corvalin
