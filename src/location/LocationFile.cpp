#include "location/LocationFile.h"

#include <cctype>

#include "shell/AppUtil.h"
#include "shell/Text.h"
#include "standlist/StandLevelFile.h"

namespace corvalin {

bool IsLocationRecord(std::string_view line) {
  return !line.empty() && std::toupper(static_cast<unsigned char>(line.front())) == 'A';
}

LocationRecord ReadLocationRecord(std::string_view line) {
  LocationRecord record;
  record.name = GetRecordToken(line, 2);
  record.standListFile = ToUpper(ExpandWorkPath(GetRecordToken(line, 4)));
  return record;
}

std::string LocationNameFault(const std::string& name) {
  if (name.empty()) return MustSpecifyLocationName;
  // The name is written between double quotes, so one inside would end it.
  if (name.find('"') != std::string::npos) return NoQuotesInLocationName;
  return "";
}

std::string BuildLocationRecord(const LocationRecord& record) {
  return "A \"" + record.name + "\" @ " + ToLower(ShortenWorkPath(record.standListFile)) + " @ @";
}

}  // namespace corvalin
