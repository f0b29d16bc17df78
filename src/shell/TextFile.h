// The stand list and the location file: written line by line with CR LF, the
// whole file replaced at once (shell/FileReplace), so that a process killed
// while saving leaves the old file or the new one, never a part. A failure
// after the new bytes began to go out counts as a file left open until the
// program ends: a second writing of the same path in the same run meets
// "File already open", as when these files were written in place.
#pragma once

#include <string>
#include <vector>

namespace corvalin {

// The run-time error an open or a write reports for a system error code:
// 76 path not found, 61 disk full, 75 path/file access error otherwise.
[[noreturn]] void RaiseFileError(int code);

// Replaces the file at the path with each line followed by CR LF (a new file
// when there is none). Raises the run-time error of a failure; the old file
// is then as it was.
void WriteLinesInPlace(const std::string& path, const std::vector<std::string>& lines);

// Forgets the files that failed writings left open (a new start of the
// process state, for tests).
void ForgetFilesLeftOpen();

}  // namespace corvalin
