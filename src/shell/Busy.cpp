#include "shell/Busy.h"

#include "shell/RunState.h"
#include "shell/Toolkit.h"

namespace corvalin {

void ShowBusy(const std::string& title, const std::string& text) {
  if (!Run().CommandLineMode) UI().ShowBusyWindow(title, text);
  UI().DoEvents();
}

void HideBusy() {
  if (!Run().CommandLineMode) UI().HideBusyWindow();
  UI().DoEvents();
}

}  // namespace corvalin
