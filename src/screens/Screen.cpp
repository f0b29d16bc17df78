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

}  // namespace corvalin
