// What the tour's scenes of the grid share.
#pragma once

namespace corvalin {
class frmHeadersWindow;
}

namespace corvalin::tour {

class Tour;

// The lolo survey loaded with the lolo template and the grid shown, at the
// person's size, with an unknown species typed on line 3.
frmHeadersWindow* GridOfLolo(Tour& tour);

}  // namespace corvalin::tour
