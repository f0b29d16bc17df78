#include "screens/Screen.h"

#include "screens/StateDigest.h"
#include "shell/Failure.h"

namespace corvalin {

bool CloseAsQuit(CloseReason reason) {
  switch (reason) {
    case CloseReason::ControlMenu:
      ConfirmQuit();
      return true;
    case CloseReason::ProgramUnload:
      return false;
    case CloseReason::Other:
      EndProgram();
      return false;
  }
  return false;
}

namespace {
int gAlive = 0;
}  // namespace

Screen::Screen() { ++gAlive; }
Screen::~Screen() { --gAlive; }
int Screen::Alive() { return gAlive; }

void Screen::Show() {
  visible_ = true;
  if (view_ != nullptr) {
    // The view draws all of it now; changes count from here.
    ForgetChanges();
    view_->Shown();
  }
  Form_Activate();
}

void Screen::Hide() {
  visible_ = false;
  if (view_ != nullptr) view_->Hidden();
}

void Screen::HandOverTo(Screen& next) {
  next.PlaceLike(*this);
  next.Show();
  Hide();
}

void Screen::Attach(ScreenView* view) {
  view_ = view;
  if (view_ != nullptr) ForgetChanges();
}

void Screen::DescribeControls(StateDigest& digest) const { digest << Caption << Left << Top << HelpContextID; }

uint64_t Screen::ControlsDigest() const {
  StateDigest digest;
  DescribeControls(digest);
  return digest.Value();
}

void Screen::ForgetChanges() { drawnControls_ = ControlsDigest(); }

ScreenChanges Screen::TakeChanges() {
  ScreenChanges changes;
  const uint64_t controls = ControlsDigest();
  changes.controls = controls != drawnControls_;
  drawnControls_ = controls;
  TakeGridChanges(changes);
  return changes;
}

}  // namespace corvalin
