// The gate before every translation: the column assignments on the grid's
// headings are complete and consistent, the run-state indexes and units are
// filled, and every cell of every row taking part passes its column's rule.
#pragma once

namespace corvalin {

class frmHeaders;

// True when all checks pass; false after a reported fault, or silently when
// the first grid column has no assignment heading at all.
bool ValidateTable(frmHeaders& headers);

}  // namespace corvalin
