#include "shell/Busy.h"

#include "shell/RunState.h"
#include "shell/Toolkit.h"

namespace corvalin {

void ShowBusy(const std::string& title, const std::string& text) {
  if (!Run().CommandLineMode) {
    // The window's load names it as the screen in use, which is what a
    // failure report during a translation then shows.
    if (!Run().BusyWindowLoaded) {
      Run().BusyWindowLoaded = true;
      Run().CurrentScreen = "BusyMessage";
    }
    UI().ShowBusyWindow(title, text);
  }
  UI().DoEvents();
}

void ShowBusyCount(std::string_view title, std::string_view prefix, long count) {
  if (Run().CommandLineMode) {
    UI().DoEvents();
    return;
  }
  ShowBusy(std::string(title), std::string(prefix) + std::to_string(count));
}

void HideBusy() {
  if (!Run().CommandLineMode) {
    UI().HideBusyWindow();
    Run().BusyWindowLoaded = false;
  }
  UI().DoEvents();
}

void HideBusyLeftOver() {
  if (Run().CommandLineMode || !Run().BusyWindowLoaded) return;
  UI().HideBusyWindow();
  Run().BusyWindowLoaded = false;
}

}  // namespace corvalin
