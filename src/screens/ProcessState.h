// Everything process-wide, back to the state of a fresh process: the run
// state, the screens, the column markers, the template commands, the species
// list and the database door. Tests start from here.
#pragma once

namespace corvalin {

void ResetProcessState();

}  // namespace corvalin
