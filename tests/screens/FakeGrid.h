// The grid's geometry as the tests draw it: rows 20 pixels high from the
// top of the grid, every row of the set on view from the first; a strip of
// row selectors 30 pixels wide; columns 60 wide after the strip.
#pragma once

#include <algorithm>

#include "screens/GridGeometry.h"

namespace corvalin::testing {

class FakeGrid : public GridGeometry {
 public:
  long rowCount = 0;
  long firstOnView = 0;
  int rowsOnView = 10;
  int formWidth = 800;
  int formHeight = 600;
  int RowContaining(int y) const override {
    const int row = y / 20;
    return y >= 0 && row < rowsOnView && firstOnView + row < rowCount ? row : -1;
  }
  Recordset::Bookmark RowBookmark(int row) const override {
    return row >= 0 && firstOnView + row < rowCount ? firstOnView + row : -1;
  }
  int VisibleRows() const override { return static_cast<int>(std::min<long>(rowsOnView, rowCount - firstOnView)); }
  int RowTop(int row) const override { return row * 20; }
  int RowHeight() const override { return 20; }
  int ColumnLeft(int column) const override { return 30 + 60 * column; }
  int ColumnWidth(int) const override { return 60; }
  int GridLeft() const override { return 10; }
  int GridTop() const override { return 100; }
  int FormWidth() const override { return formWidth; }
  int FormHeight() const override { return formHeight; }
  int ListWidth() const override { return 150; }
  int ListHeight(int) const override { return 120; }
  int RowSelectorWidth() const override { return 30; }
  int LeftColumn() const override { return 0; }
  int VisibleColumns() const override { return 8; }
};

}  // namespace corvalin::testing
