// frmHeaders: the grid screen. Its controller holds the grid's state (the
// headings of columns 0 to 30 and Excluded, visibility, selection, current
// row), the check boxes, the variant and the measurement system.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"
#include "worktable/Recordset.h"

namespace corvalin {

// The data source that binds a row set to the grid.
struct DataControl {
  std::shared_ptr<corvalin::Recordset> Recordset;
};

class frmHeaders : public Screen {
 public:
  const char* Name() const override { return "frmHeaders"; }

  // Grid column 0 is LineNum, 1..30 are c1..c30, 31 is Excluded.
  static constexpr int kExcludedColumn = 31;
  std::array<std::string, 32> ColumnCaption{};
  std::array<bool, 32> ColumnVisible{};

  DataControl Adodc1;
  ListControl cmbVariant;
  OptionButton optMetric;
  OptionButton optImperial;
  CheckBox chkShowExcludedRows;
  CheckBox chkShowAllColumns;
  CheckBox chkAutoValidate;
  Button cmdNext;
};

}  // namespace corvalin
