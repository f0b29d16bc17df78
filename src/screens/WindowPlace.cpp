#include "screens/WindowPlace.h"

#include <algorithm>

namespace corvalin {

namespace {

// The start of a span of the given length moved into [areaStart, areaStart
// + areaLength), the length being at most the area's.
int Within(int start, int length, int areaStart, int areaLength) {
  return std::clamp(start, areaStart, areaStart + areaLength - length);
}

}  // namespace

WindowRect FitInside(WindowRect frame, const WindowRect& area) {
  frame.width = std::min(frame.width, area.width);
  frame.height = std::min(frame.height, area.height);
  frame.left = Within(frame.left, frame.width, area.left, area.width);
  frame.top = Within(frame.top, frame.height, area.top, area.height);
  return frame;
}

WindowRect CentredIn(int width, int height, const WindowRect& area) {
  return FitInside({area.left + (area.width - width) / 2, area.top + (area.height - height) / 2, width, height}, area);
}

}  // namespace corvalin
