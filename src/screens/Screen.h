// What every screen controller shares: its name, its place, whether it is
// shown, the load and activation steps, and the view that draws it. A screen
// is loaded on first use (Form_Load runs) and shown or hidden in turn; Show
// brings it to the front, which runs its activation steps. A screen that is
// only loaded never gets its activation, as in an unattended run.
#pragma once

#include <cstdint>
#include <string>

#include "screens/ScreenView.h"
#include "shell/Toolkit.h"

namespace corvalin {

class StateDigest;

// Why a window is asked to close: its control menu (the close box), the
// program's own unload, or anything else (the system shutting down).
enum class CloseReason { ControlMenu, ProgramUnload, Other };

// The close of a wizard screen: by its control menu, the quit question, and
// the close itself is cancelled (true); by the program's own unload, nothing;
// for any other reason the program ends.
bool CloseAsQuit(CloseReason reason);

class Screen : public ModalWindow {
 public:
  Screen();
  ~Screen() override;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  // The screen's own name ("frmTemplate").
  const char* Name() const override = 0;
  // The load routine: runs once per load, shown or not.
  virtual void Form_Load() {}
  // The activation: runs each time the screen comes to the front.
  virtual void Form_Activate() {}
  // The unload: the screen lets go of what it holds (row sets, the database)
  // at once; the object itself goes at the end of the event.
  virtual void Form_Unload() {}

  void Show();
  void Hide();
  // The wizard's step to another screen: it opens where this one stands,
  // comes to the front, and this one goes.
  void HandOverTo(Screen& next);
  bool Visible() const override { return visible_; }
  // A modal dialog that its view (or a test's script) left open ends as
  // though its Cancel had been pressed.
  virtual void DismissAsCancelled() { Hide(); }

  // Where the window's frame stands on the screen, in pixels, once it has
  // a place: the first screen is centred, each other opens where the one
  // before it stood.
  int Left = 0;
  int Top = 0;
  bool Placed = false;
  // Takes the place of another screen.
  void PlaceLike(const Screen& other) {
    Left = other.Left;
    Top = other.Top;
    Placed = other.Placed;
  }
  std::string Caption;
  int HelpContextID = 0;

  // --- the view ---
  // A view attaches once, right after the screen is made; nullptr detaches.
  void Attach(ScreenView* view);
  ScreenView* View() const { return view_; }
  // What changed since the view was last told: the parts of the screen's
  // drawn state whose fingerprint differs, and what the screen's grid
  // recorded. Each call starts a new count.
  ScreenChanges TakeChanges();

  // How many screens exist in the process (loaded, or unloaded and not yet
  // destroyed): what a leak of unloaded screens would show.
  static int Alive();

 protected:
  // Feeds what the view draws of the screen's own controls; a screen adds
  // its controls to the caption and place fed here.
  virtual void DescribeControls(StateDigest& digest) const;
  // A screen with a grid adds the grid's parts.
  virtual void TakeGridChanges(ScreenChanges&) {}
  // The view is to draw the screen afresh: what it sees now is the new base.
  virtual void ForgetChanges();

 private:
  uint64_t ControlsDigest() const;

  bool visible_ = false;
  ScreenView* view_ = nullptr;
  uint64_t drawnControls_ = 0;
};

}  // namespace corvalin
