// frmTemplate: the screen's controller (its controls as state, its events as
// member functions).
#pragma once

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class frmTemplate : public Screen {
 public:
  const char* Name() const override { return "frmTemplate"; }
};

}  // namespace corvalin
