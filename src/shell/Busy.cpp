#include "shell/Busy.h"

#include "shell/RunState.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace {
// frmBusyMessage is made at the first ShowBusy and unmade by HideBusy; its
// load names it as the screen in use, which is what failure reports then show.
bool gBusyWindowLoaded = false;
}  // namespace

void ShowBusy(const std::string& title, const std::string& text) {
  if (!Run().CommandLineMode) {
    if (!gBusyWindowLoaded) {
      gBusyWindowLoaded = true;
      Run().CurrentScreen = "BusyMessage";
    }
    UI().ShowBusyWindow(title, text);
  }
  UI().DoEvents();
}

void HideBusy() {
  if (!Run().CommandLineMode) {
    UI().HideBusyWindow();
    gBusyWindowLoaded = false;
  }
  UI().DoEvents();
}

}  // namespace corvalin
