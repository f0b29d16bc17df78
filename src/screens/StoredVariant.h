// Finding the stored variant in a screen's variant list: the grid's options,
// the defaults and the stand list search it the same way.
#pragma once

#include <string>

#include "screens/Controls.h"

namespace corvalin {

// The row of the list that holds the variant. The search starts at row 1 and
// runs one past the last row, whose text is empty: row 0, "AK", is never
// compared, so a stored "AK" is not found, and an empty variant matches the
// row past the last, which is the invalid property value error. When no row
// holds it, the person is told so and the answer is -1.
int FindStoredVariant(const ListControl& list, const std::string& variant);

}  // namespace corvalin
