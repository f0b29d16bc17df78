// The short way to the tree list, from the first screen's or the column
// screen's Translate: the working table filled, the grid screen loaded where
// the screen stands, the table validated and, when it passes, translated.
#pragma once

namespace corvalin {

class Screen;

// Returns true when the table passed and the translation ran; otherwise the
// grid screen has come up in place of `from`, with the cell at fault
// selected, or with the rows loaded so far when the person cancelled the
// load.
//
// With a template in force, a grid screen loaded by this press takes the
// template's columns, units and variant before the validation, as an
// unattended run does: the person chose the template so as not to assign
// them by hand. A grid screen already loaded keeps what the person set on
// it; without a template the fresh grid has no assignments, the validation
// fails quietly and the grid is shown for the person to assign them.
bool TranslateAtOnce(Screen& from);

}  // namespace corvalin
