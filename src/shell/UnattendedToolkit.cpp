#include "shell/UnattendedToolkit.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "shell/ScratchFiles.h"

namespace corvalin {

Answer UnattendedToolkit::Message(const MessageRequest& request) {
  const Answer answer = DefaultAnswer(request);
  std::cerr << request.text << "\n";
  std::cerr.flush();
  return answer;
}

std::string UnattendedToolkit::BrowseForFolder(const std::string& title, const std::string&) {
  std::cerr << title << ": no folder dialog without a display\n";
  return "";
}

std::string UnattendedToolkit::ShowFileDialog(const FileDialogRequest& request) {
  return request.fileName;
}

AppendChoice UnattendedToolkit::AskAppendOverwriteCancel(const std::string& text) {
  std::cerr << text << "\n";
  return AppendChoice::Overwrite;
}

bool UnattendedToolkit::OpenHelp(const std::string&, const std::string&) { return false; }

void UnattendedToolkit::EndProcess(int exitCode) {
  RemoveScratchFiles();
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

}  // namespace corvalin
