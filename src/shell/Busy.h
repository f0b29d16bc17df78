// The progress window of long operations (frmBusyMessage) and the way a long
// loop lets the interface breathe.
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

// In an unattended run only lets pending events run; otherwise shows the
// busy window with this title and text, then lets pending events run (which
// is when its Cancel can arrive).
void ShowBusy(const std::string& title, const std::string& text);
// The same with the text prefix + count, put together only where a window
// shows it: the loops of the load and the translation call it per line, and
// an unattended run makes no text of them at all.
void ShowBusyCount(std::string_view title, std::string_view prefix, long count);
// Takes the busy window down (interactive run) and lets pending events run.
void HideBusy();
// Takes down a busy window that the event which showed it left up: a load or
// a translation that failed half way reports its failure and ends without
// its HideBusy, and the window it showed must not stay on the screen with
// nothing behind it. Runs no pending events.
void HideBusyLeftOver();

}  // namespace corvalin
