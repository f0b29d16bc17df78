#pragma once
// Looking through the rows of a long table on two threads for the first one
// that stops a pass over it.

#include <functional>

namespace corvalin {

// The first of rows 0 to count - 1 for which `stops` returns true or throws,
// or count when there is none: what a pass from the first row that ends at
// such a row would find. Long tables are looked through in blocks of rows on
// two threads, so `stops` must only read what no one changes meanwhile.
long FirstRowThat(long count, const std::function<bool(long row)>& stops);

}  // namespace corvalin
