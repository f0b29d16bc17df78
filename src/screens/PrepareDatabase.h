// The step between the format screens and the grid: the working table filled
// anew from the input file when the format or the input changed, the grid
// screen loaded, and the template's commands replayed on the fresh rows.
#pragma once

namespace corvalin {

// When the format or the input changed: a fresh copy of the empty database,
// every input line loaded, frmHeaders loaded and the template commands
// replayed; otherwise only frmHeaders loaded. Reports its own failures.
void PrepareDatabase();
// Loads every input line into tft by the format of frmColumns (its markers
// sorted first in fixed width mode); expects the database open.
void CreateColumnsTable();

}  // namespace corvalin
