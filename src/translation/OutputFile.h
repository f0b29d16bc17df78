// File number 1: the tree list file being written. A translation holds it
// open only while it runs; a run that fails leaves it open, as far as it was
// written, so that the next run in the same process meets "File already open".
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

// The test of an existing output: the path opens for reading as file number 1
// (then closed at once). False for any failure: missing, unreadable, a
// folder, a bad path, or file number 1 still open.
bool OutputOpensForInput(const std::string& path);
// Opens file number 1 for writing: appended to, or replaced. Raises "File
// already open" (55) when it is open, else the error of the open.
void OpenOutput(const std::string& path, bool append);
// One record as one line, CR LF behind it.
void WriteOutputLine(std::string_view record);
// Makes what was written reach the file, leaving it open.
void FlushOutput();
// Closes file number 1.
void CloseOutput();
// Whether file number 1 is open.
bool OutputOpen();
// Closes file number 1 if a failed run left it open, without raising (a new
// start of the process state, for tests).
void ForgetOutput();

}  // namespace corvalin
