// The gate before every translation: the column assignments on the grid's
// headings are complete and consistent, the run-state indexes and units are
// filled, and every cell of every row taking part passes its column's rule.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "worktable/Recordset.h"

namespace corvalin {

// What validation looks at: the grid's headings (column 0 is LineNum, 1..30
// the cells, 31 Excluded), the variant and measurement system shown, and
// the grid's rows.
struct ValidationInput {
  const std::array<std::string, 32>& headings;
  std::string variant;
  bool metric = true;
  std::shared_ptr<Recordset> rows;
};

// Where validation stopped and what it has to say. The screen selects the
// column or the row first, so the person sees the cell the message is about,
// then shows the message.
struct ValidationResult {
  bool valid = false;
  // The fault's message; empty when all passed, and for the silent failure
  // of a grid whose first column has no assignment heading at all.
  std::string fault;
  // The grid column to select, or -1.
  int16_t column = -1;
  // The row to select, by bookmark of the grid's rows, or -1.
  Recordset::Bookmark row = -1;
};

ValidationResult ValidateTable(const ValidationInput& input);

}  // namespace corvalin
