// Filling the working table from the input file.
#pragma once

namespace corvalin {

// When the format or the input changed: a fresh copy of the empty database,
// every input line loaded, frmHeaders loaded and the template commands
// replayed; otherwise only frmHeaders loaded. Reports its own failures.
void PrepareDatabase();
// Loads every input line into tft; expects the database open.
void CreateColumnsTable();

}  // namespace corvalin
