#pragma once
// Making the records of a long run on two threads while they are written in
// table order by the thread that asked for them.

#include <functional>
#include <string>
#include <string_view>

namespace corvalin {

// Appends the record of one row to the text, or nothing when the row writes
// no record; may throw, as making the record would.
using MakeRecord = std::function<void(long row, std::string& text)>;
// Writes one record; runs on the calling thread, in row order.
using WriteRecord = std::function<void(std::string_view record)>;

// Makes the records of rows 0 to count - 1 and writes them in row order.
// With `together`, a second thread makes blocks of rows ahead of the writing;
// `make` must then only read what no one changes meanwhile. Whatever the
// threads, what is written, and the failure that ends the writing, are those
// of making and writing the rows one after another: the records of the rows
// before a failed one are written, and its failure is the one thrown.
void WriteRecordsInOrder(long count, bool together, const MakeRecord& make, const WriteRecord& write);

}  // namespace corvalin
