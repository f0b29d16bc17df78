// Files that belong to this process alone (the working database of an
// unattended run, a result line on its way to result.txt) and go when the
// process ends, whichever way it ends: through the Toolkit, by returning
// from main, or by a signal that ends it (interrupt, termination, hang-up,
// quit, a broken pipe). A process killed outright leaves them; the next
// unattended run clears what such a run left (see WorkingDatabase).
#pragma once

#include <string>

namespace corvalin {

// From now on the file is removed when the process ends.
void RemoveWhenProcessEnds(const std::string& path);
// The file is no longer this process's to remove (it was removed or took
// another name).
void KeepWhenProcessEnds(const std::string& path);
// Removes the files now; the ends of the process call it.
void RemoveScratchFiles();

}  // namespace corvalin
