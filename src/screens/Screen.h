// What every screen controller shares: its name, its place, whether it is
// shown, and the load and activation steps. A screen is loaded on first use
// (Form_Load runs) and shown or hidden in turn; Show brings it to the front,
// which runs its activation steps. A screen that is only loaded never gets
// its activation, as in an unattended run.
#pragma once

#include <functional>
#include <string>

namespace corvalin {

// Why a window is asked to close: its control menu (the close box), the
// program's own unload, or anything else (the system shutting down).
enum class CloseReason { ControlMenu, ProgramUnload, Other };

// The close of a wizard screen: by its control menu, the quit question, and
// the close itself is cancelled (true); by the program's own unload, nothing;
// for any other reason the program ends.
bool CloseAsQuit(CloseReason reason);

class Screen {
 public:
  virtual ~Screen() = default;

  // The screen's own name ("frmTemplate").
  virtual const char* Name() const = 0;
  // The load routine: runs once per load, shown or not.
  virtual void Form_Load() {}
  // The activation: runs each time the screen comes to the front.
  virtual void Form_Activate() {}

  void Show();
  void Hide();
  // The wizard's step to another screen: it opens where this one stands,
  // comes to the front, and this one goes.
  void HandOverTo(Screen& next);
  bool Visible() const { return visible_; }
  // A modal dialog that its view (or a test's script) left open ends as
  // though its Cancel had been pressed.
  virtual void DismissAsCancelled() { Hide(); }

  int Left = 0;
  int Top = 0;
  std::string Caption;
  int HelpContextID = 0;

  // Set by a view that draws this screen: called after Show and Hide, and
  // after an event changed what is to be drawn.
  std::function<void(Screen&)> ViewShown;
  std::function<void(Screen&)> ViewHidden;

 private:
  bool visible_ = false;
};

}  // namespace corvalin
