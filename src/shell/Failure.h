// Failure reporting and the orderly end of the program. In an interactive run
// a message goes to a box and the run goes on; in an unattended run the first
// message ends the process and leaves one line in "result.txt".
#pragma once

#include <functional>
#include <string>

#include "shell/Error.h"

namespace corvalin {

// The result file of an unattended run, in the Work folder.
inline constexpr const char* ResultFileName = "result.txt";
inline constexpr const char* ResultSuccess = "TRANSLATION SUCCESSFUL";

// The one message routine for ordinary messages.
void ShowMessage(const std::string& text);
// Writes the one line of "result.txt" and ends the process. Returns only when
// the file could not be written (after a box saying so).
void WriteResult(const std::string& text);
// Internal consistency check.
void Assert(bool condition);
// Ends the process (in an unattended run through WriteResult("EndProgram()")).
void EndProgram();
// Asks "Do you really want to quit?" and ends on Yes.
void ConfirmQuit();
// Resets the column assignments saved in the settings store.
void ClearSavedColumnHeaders();

// The handler at the outer edge of every event routine: a box with the
// exclamation icon and "[" + number + "] " + description; the routine ends.
void ReportEventError(const RuntimeError& error);
// Runs an event routine under that handler. Errors of the standard library
// (a bad index, a failed conversion) are reported as the run-time errors
// they stand for.
void RunEvent(const std::function<void()>& routine);
// Turns any exception of the standard library into the run-time error it
// stands for; a RuntimeError is returned as it is.
RuntimeError AsRuntimeError(const std::exception& error);

}  // namespace corvalin
