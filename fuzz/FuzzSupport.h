// What the fuzz targets share: a scratch HOME made once per process, a quiet
// Toolkit that ends no process, the installation files beside the fuzz
// programs, and small file helpers.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/UnattendedToolkit.h"

namespace corvalin::fuzz {

// A new temporary folder set as HOME and (with .config) XDG_CONFIG_HOME,
// holding Data/ and Work/; made at the first call and removed at exit.
// Returned with a trailing "/".
const std::string& ScratchHome();

// The unattended Toolkit without its standard error output, whose EndProcess
// throws ProcessEnded for the target to catch instead of ending the fuzzer.
// It keeps the text of the boxes it answered, for a finding's report.
class QuietToolkit : public UnattendedToolkit {
 public:
  std::vector<std::string> boxes;
  // Plays the person at a modal screen; without it, the screen ends as
  // cancelled, as nobody answers it.
  std::function<void(ModalWindow&)> answerModal;

  Answer Message(const MessageRequest& request) override;
  std::string BrowseForFolder(const std::string& title, const std::string& initialFolder) override;
  AppendChoice AskAppendOverwriteCancel(const std::string& text) override;
  void RunModal(ModalWindow& window) override;
  [[noreturn]] void EndProcess(int exitCode) override;
};

// The build tree's share/corvalin/ (beside the fuzz/ folder of the programs),
// with a trailing "/".
std::string InstalledFilesFolder();

void WriteBytes(const std::string& path, std::string_view bytes);
std::string ReadBytes(const std::string& path);

// Ends the fuzzer with a finding when the condition does not hold; what names
// the broken rule in the report.
void Require(bool condition, const char* what);

}  // namespace corvalin::fuzz
