// Filling the working table from the input file: a fresh copy of the empty
// database, then every input line cut into its cells and inserted as a row.
#pragma once

#include <functional>
#include <string>

#include "input/ColumnFormat.h"

namespace corvalin {

// The old working database goes, read-only or not, and a fresh copy of the
// pristine empty one takes its place. trace names each step as it begins
// ("FileCopy sAppDir emptytft.mdb"), for the report of a failure.
void ReplaceWorkingDatabase(const std::function<void(const char*)>& trace);

// Loads every line of the input file into tft, cut by the format, with the
// busy window naming each line; nothing for "*** No input file ***". Expects
// the database open. Cancel in the busy window stops after the line in hand;
// the rows so far stay.
void LoadInputLines(const std::string& inputPath, const ColumnFormat& format);

}  // namespace corvalin
