// frmHeaders: the screen's controller (its controls as state, its events as
// member functions).
#pragma once

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class frmHeaders : public Screen {
 public:
  const char* Name() const override { return "frmHeaders"; }
};

}  // namespace corvalin
