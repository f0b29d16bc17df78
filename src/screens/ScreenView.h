// The view contract: what a view of a screen is told, and when.
//
//   Shown      the screen came to the front; draw all of it.
//   Hidden     it went; hide the window.
//   Changed    an event ended (or the program is about to wait on the
//              person) and the screen's drawn state differs from what the
//              view last drew; ScreenChanges says which parts.
//   Unloaded   the screen is being destroyed, at the end of the outermost
//              event that unloaded it; the view lets go of it and goes too.
//   RunModal   a dialog shown modally: run a modal loop until it hides.
//
// A view never reads state between these calls that it was not told of, and
// never has to guess what to redraw. All of it is plain C++: the desktop's Qt
// windows and the tests' recording views implement it alike.
#pragma once

namespace corvalin {

// A range of rows of a grid's row set, both ends included; empty when first
// is -1.
struct RowSpan {
  long first = -1;
  long last = -1;
  bool Empty() const { return first < 0; }
  void Include(long from, long to) {
    if (to < from) return;
    if (Empty() || from < first) first = from;
    if (Empty() || to > last) last = to;
  }
  bool operator==(const RowSpan&) const = default;
};

struct ScreenChanges {
  // Any control of the screen: captions, values, items, selection of a
  // list, enabled and visible flags, the window's caption and place.
  bool controls = false;

  // The grid of a screen that has one:
  // a new row set is bound (a model reset; the parts below then say nothing);
  bool rowsReset = false;
  // the cells of these rows changed, their colours included;
  RowSpan cells;
  // rows were added at the end of the row set;
  RowSpan insertedRows;
  // the selected rows or columns;
  bool selection = false;
  // the current row, or the scroll position;
  bool current = false;
  // a column's heading, visibility or cell button.
  bool headings = false;

  bool Any() const {
    return controls || rowsReset || !cells.Empty() || !insertedRows.Empty() || selection || current || headings;
  }
};

class ScreenView {
 public:
  virtual ~ScreenView() = default;
  virtual void Shown() = 0;
  virtual void Hidden() = 0;
  virtual void Changed(const ScreenChanges& changes) = 0;
  virtual void Unloaded() = 0;
  // Only the views of dialogs shown modally run a loop; others return.
  virtual void RunModal() {}
};

}  // namespace corvalin
