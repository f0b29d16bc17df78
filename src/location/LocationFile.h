// The records of a location file (.loc): one record A per location, giving
// its name (quoted, case kept) and the stand list file that belongs to it.
// Tokens 3, 5 and 6 are reserved and always written as "@".
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

inline constexpr const char* InvalidLocationRecordMessage = "Invalid Location record - should start with 'A'.";
inline constexpr const char* MustSpecifyLocationName = "Must specify location name.";
inline constexpr const char* NoQuotesInLocationName = "Can't use double quotes in location name.";

struct LocationRecord {
  std::string name;           // txtLocationName
  std::string standListFile;  // lblSlf's caption
};

// Whether a line opens for editing: its first character, upper-cased, is "A".
bool IsLocationRecord(std::string_view line);
// Token 2 is the name; token 4, through ExpandWorkPath and upper-cased, is
// the stand list file. No quote or field count is checked.
LocationRecord ReadLocationRecord(std::string_view line);
// The message that refuses a name, or the empty text when it passes: empty
// first, then a double quote inside.
std::string LocationNameFault(const std::string& name);
// A, a blank, the quoted name, " @ ", the stand list path shortened against
// the working directory and lower-cased, " @ @".
std::string BuildLocationRecord(const LocationRecord& record);

}  // namespace corvalin
