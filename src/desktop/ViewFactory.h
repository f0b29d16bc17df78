// The desktop's view factory: the window of each screen, made as the
// application object loads the screen.
#pragma once

namespace corvalin {

// From now on every screen loaded gets its window.
void AttachDesktopViews();

}  // namespace corvalin
