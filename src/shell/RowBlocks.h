#pragma once
// How the long passes over a table share their rows between two threads:
// blocks of rows large enough that handing one over costs nothing beside the
// work on it, small enough that both threads stay busy to the end. Below a
// few blocks a second thread would cost more than it saves.

namespace corvalin {

inline constexpr long kRowsPerBlock = 1024;
inline constexpr long kRowsForTwoThreads = 4 * kRowsPerBlock;

}  // namespace corvalin
