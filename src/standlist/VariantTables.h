// The growth model's regional variants and the code lists of the stand record
// dialog that go with them: site species and location codes by variant, and
// the habitat types and growth translation codes that all variants share.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "columns/SpeciesCodes.h"

namespace corvalin {

// The variants are those of the column vocabulary (VariantNames()), in the
// order of the variant list; lower-cased, the order of the tags of a record A.
inline constexpr int kVariantCount = 15;
// The one variant with metric units.
inline constexpr const char* MetricVariant = "BC";

// The site species list always has this many rows, the variant's species
// slots; a place without a species holds "--".
inline constexpr int kSiteSpeciesRows = kSpeciesSlots;
// The rows of the site species list for a variant (exact, case-sensitive
// name); any other text gives 15 empty rows.
std::array<std::string, kSiteSpeciesRows> SiteSpeciesRows(std::string_view variant);

// The location rows whose key equals the variant text (exact). The key "WN"
// is borne by no variant, so its rows are never reached, and "WS" and "KT"
// have none: the user types the code.
std::vector<std::string> LocationRows(std::string_view variant);

// The habitat types are the 30 rows of the plot habitat list of the column
// vocabulary (PlotHabitatItems()).

inline constexpr int kGrowthTranslationRows = 4;
extern const std::array<const char*, kGrowthTranslationRows> GrowthTranslationRows;

}  // namespace corvalin
