// The order of records a stand list must keep: stand groups of one A, then
// one B with the same stand identification code, then any number of C and
// then any number of D with that code. And the writing of a whole list.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvalin {

// Walks the lines, reporting each fault through ShowMessage. A wrong code
// carries on (several messages in one run); a record out of order stops at
// once. selection is the list's selected index; the walk moves it to the
// offending line where the rules say so, and runs moved (when given) right
// after each move, before the message is shown. An empty list is valid.
bool CheckStandListSequence(const std::vector<std::string>& lines, int& selection,
                            const std::function<void()>& moved = nullptr);

// The messages of the walk.
inline constexpr const char* FirstRecordMustBeA = "First record must be of type A.";
inline constexpr const char* RecordBSameStandId = "Record B should have same Stand Id as record A above.";
inline constexpr const char* RecordAMustBeFollowedByB = "Record of type A must be followed by record of type B.";
inline constexpr const char* RecordCSameStandId = "Record C should have same Stand Id as record A above.";
inline constexpr const char* RecordDSameStandId = "Record D should have same Stand Id as record A above.";
inline constexpr const char* RecordBMustFollowA = "Record of type B must follow a record of type A.";
inline constexpr const char* RecordCMustFollowBOrC = "Record of type C must follow a record of type B or C.";

}  // namespace corvalin
