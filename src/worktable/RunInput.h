// The input file of a run, as the file check, the preview of the column
// format and the load of the working table read it one after the other. A
// regular file is opened anew by each of them. A pipe, a FIFO or a device
// can be read only once: the step that opened it leaves it open for the
// next one, which goes on where the earlier step stopped, so that no line
// is lost between the preview and the load.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "input/ColumnFormat.h"
#include "worktable/InputLines.h"

namespace corvalin {

// The longest line the load and the preview read. Character positions are
// signed 16-bit: a longer line cannot be cut into cells, and reading on past
// it would only cost time and memory before the same overflow.
inline constexpr std::size_t kLongestInputLine = kLongestDelimitedLine;

struct RunInput {
  InputLines lines;
  // Lines a step before took from this stream: the preview's, which are
  // lines 1 to linesTaken of the input.
  int16_t linesTaken = 0;
};

// The input at path, with the line limit: the stream an earlier step left
// open for this path, or the file opened anew. Raises as InputLines does.
RunInput OpenRunInput(const std::string& path);
// The same, but always at the first line: a stream that a step already read
// from is let go and the path opened anew.
RunInput OpenRunInputAtStart(const std::string& path);
// Leaves the stream open for the next step when it cannot be opened again;
// a regular file is closed.
void KeepRunInput(const std::string& path, RunInput input);
// Closes a stream left open.
void ForgetRunInput();

}  // namespace corvalin
