#include "screens/Screen.h"

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

void Screen::Show() {
  visible_ = true;
  if (ViewShown) ViewShown(*this);
  Form_Activate();
}

void Screen::Hide() {
  visible_ = false;
  if (ViewHidden) ViewHidden(*this);
}

void Screen::HandOverTo(Screen& next) {
  next.Left = Left;
  next.Top = Top;
  next.Show();
  Hide();
}

}  // namespace corvalin
