// Where a window goes on the screen. A screen opens with its frame where the
// frame of the screen before it stood; a place that would put part of the
// window off the screen (a larger window than the one before, a smaller
// screen than last time, a window moved to the edge) gives way just enough
// for the whole window to show, and a window larger than the screen's
// working area is made to fit it.
#pragma once

namespace corvalin {

struct WindowRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const WindowRect&) const = default;
};

// The frame rectangle shrunk to the area where it is larger, then moved the
// least distance that brings it wholly inside the area.
WindowRect FitInside(WindowRect frame, const WindowRect& area);

// A frame of the given size centred in the area (and fitted into it).
WindowRect CentredIn(int width, int height, const WindowRect& area);

}  // namespace corvalin
