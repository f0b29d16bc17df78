// Everything process-wide below the screens, back to the state of a fresh
// process: the run state, the column markers, the template commands, the
// species list, files left open and the door to the working database.
#pragma once

namespace corvalin {

void ResetWorkState();

}  // namespace corvalin
