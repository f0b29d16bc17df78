#include "screens/Screen.h"

namespace corvalin {

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
