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
// Runs an event routine that has no handler of its own. An error that
// reaches its end is the run-time's: a box with the critical icon and "[" +
// number + "] " + description, then the program ends in order (what was
// written to settings and files stays as it was written).
void RunUnhandledEvent(const std::function<void()>& routine);
// The named reporters: routines that compose a message of their own, show
// it through ShowMessage and end normally, so that their callers do not learn
// of the failure. Their headings:
inline constexpr const char* ReadingInputFileFailed = "Error reading input file.";
inline constexpr const char* TranslatingFileFailed = "Error translating file.";
inline constexpr const char* WritingSlfFileFailed = "Error writing .SLF file.";
inline constexpr const char* WritingLocationFileFailed = "Error writing Location file.";
// heading + "Module = " + CurrentScreen + CR LF + number + ": " + description
std::string ReporterText(const std::string& heading, const RuntimeError& error);
// ShowMessage(ReporterText(heading, error)).
void ReportNamedFailure(const std::string& heading, const RuntimeError& error);
// The report of the database load: "Error preparing database" + CR LF +
// number + " - '" + description + "'" + CR LF + "Line: " + TraceStep.
std::string PrepareDatabaseReportText(const RuntimeError& error);

// The handler of the start sequence does not go through ShowMessage: a box,
// OK only and no icon, with "Error in form: " + form + CR LF + number + ": " +
// description, in both run modes, and no result file.
std::string FormErrorText(const std::string& formName, const RuntimeError& error);
void ReportFormError(const std::string& formName, const RuntimeError& error);

// The folder routines raise an error again with a trail in its source: in
// front ("KelmarUtil.LocateDataFolder(), " + old source) or behind (old
// source + ",AppUtil.GetMyDocumentsFolderPath()").
RuntimeError WithSourceInFront(const std::exception& error, const std::string& trail);
RuntimeError WithSourceBehind(const std::exception& error, const std::string& trail);

// Turns any exception of the standard library into the run-time error it
// stands for; a RuntimeError is returned as it is.
RuntimeError AsRuntimeError(const std::exception& error);

}  // namespace corvalin
