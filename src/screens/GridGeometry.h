// What the grid screen asks of the grid its view draws: which row lies under
// the mouse, the bookmark of a row on view, where a row and a column are, and
// how big the window and an open pick list are. The desktop's table view
// answers in pixels; without a view (an unattended run, the tests' own
// geometry) the grid shows no rows.
#pragma once

#include "worktable/Recordset.h"

namespace corvalin {

class GridGeometry {
 public:
  virtual ~GridGeometry() = default;
  // The row on view at a vertical position of the grid (0 = the first row
  // shown), -1 when none is there.
  virtual int RowContaining(int y) const = 0;
  // The bookmark of a row on view, -1 when there is none.
  virtual Recordset::Bookmark RowBookmark(int row) const = 0;
  // How many rows are on view.
  virtual int VisibleRows() const = 0;
  // The top of a row on view, within the grid, and the height of a row.
  virtual int RowTop(int row) const = 0;
  virtual int RowHeight() const = 0;
  // A column's left edge within the grid and its width.
  virtual int ColumnLeft(int column) const = 0;
  virtual int ColumnWidth(int column) const = 0;
  // The grid's place in the window, and the window's size.
  virtual int GridLeft() const = 0;
  virtual int GridTop() const = 0;
  virtual int FormWidth() const = 0;
  virtual int FormHeight() const = 0;
  // The size of a pick list when open: as tall as its entries, up to a
  // most it scrolls beyond.
  virtual int ListWidth() const = 0;
  virtual int ListHeight(int entries) const = 0;
  // The width of the strip of row selectors at the grid's left.
  virtual int RowSelectorWidth() const = 0;
  // The leftmost column on view and how many columns show; -1 when unknown.
  virtual int LeftColumn() const = 0;
  virtual int VisibleColumns() const = 0;
};

// The grid with no view: no rows on view, nothing has a size.
class NoGridGeometry : public GridGeometry {
 public:
  int RowContaining(int) const override { return -1; }
  Recordset::Bookmark RowBookmark(int) const override { return -1; }
  int VisibleRows() const override { return 0; }
  int RowTop(int) const override { return 0; }
  int RowHeight() const override { return 0; }
  int ColumnLeft(int) const override { return 0; }
  int ColumnWidth(int) const override { return 0; }
  int GridLeft() const override { return 0; }
  int GridTop() const override { return 0; }
  int FormWidth() const override { return 0; }
  int FormHeight() const override { return 0; }
  int ListWidth() const override { return 0; }
  int ListHeight(int) const override { return 0; }
  int RowSelectorWidth() const override { return 0; }
  int LeftColumn() const override { return -1; }
  int VisibleColumns() const override { return -1; }
};

}  // namespace corvalin
