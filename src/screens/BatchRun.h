// The unattended run after the setup screen is loaded.
#pragma once

namespace corvalin {

// Steps 4 to 9 of an unattended run: the column format, the load of the
// working table with the template's commands, the grid, validation, then the
// translation and "TRANSLATION SUCCESSFUL", or the output deleted and
// "FAILED: Invalid format.". Ends the process through WriteResult.
void ContinueBatchRun();

}  // namespace corvalin
