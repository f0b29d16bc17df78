// Files the program writes in place: a stand list or a location file is
// created or emptied at the open, then written line by line with CR LF. There
// is no temporary file and no backup, so a failure can leave a file half
// written. A file whose writing failed after the open stays open until the
// program ends, and a second writing of the same path in the same run meets
// "File already open".
#pragma once

#include <string>
#include <vector>

namespace corvalin {

// The run-time error an open or a write reports for a system error code:
// 76 path not found, 61 disk full, 75 path/file access error otherwise.
[[noreturn]] void RaiseFileError(int code);

// Opens the path for output (created or emptied at once), writes each line
// followed by CR LF, and closes it. Raises the run-time error of a failure.
void WriteLinesInPlace(const std::string& path, const std::vector<std::string>& lines);

// Closes the files that failed writings left open (a new start of the
// process state, for tests).
void ForgetFilesLeftOpen();

}  // namespace corvalin
