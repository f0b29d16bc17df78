// Species codes by model variant. The fourteen U.S. variants test a cell
// against their short list; "BC" accepts the 106 codes of inventory practice
// through MapBcSpecies instead.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace corvalin {

inline constexpr int kSpeciesSlots = 15;
// The slot filler of a variant with fewer species; an entry like any other.
inline constexpr const char* SpeciesFiller = "--";

// The list of the variant in force, entry 0 is slot 1. Replaced as a whole
// when a known variant is set; starts as 15 empty texts.
using SpeciesList = std::array<std::string, kSpeciesSlots>;
SpeciesList& SpeciesCodes();
void ResetSpeciesCodes();

// The 15 slots of a variant, or nullptr for a name that is no variant.
const SpeciesList* SpeciesRowOf(std::string_view variant);

// Upper-cases code and replaces it by its "BC" target, or by the empty
// string when it is no key.
void MapBcSpecies(std::string& code);
// All keys of the "BC" mapping with their targets, for inspection.
const std::vector<std::pair<std::string, std::string>>& BcSpeciesKeys();

// True when the trimmed, upper-cased text is a code of the variant. Under
// "BC" it also rewrites text to the mapped target.
bool IsValidSpecies(std::string& text, const std::string& variant);

}  // namespace corvalin
