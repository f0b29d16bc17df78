// The translation run: the working table, validated, written as a tree list file.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvalin {

// The tree list has a field for each of the table's 30 columns at most.
inline constexpr int kTranslatedColumns = 30;

// What the translation takes from the grid screen.
struct TranslationRequest {
  // The tree list file to write.
  std::string outputPath;
  // The variant shown; "BC" writes the metric record, any other the imperial.
  std::string variant;
  // The columns 1..30 whose heading is identified (does not begin with "?"):
  // a row is written when it has data in one of them.
  std::array<bool, kTranslatedColumns + 1> identified{};
};

// The identified columns among the first columnCount (at most 30) of the
// grid's headings: those whose heading does not begin with "?".
std::array<bool, kTranslatedColumns + 1> IdentifiedColumns(const std::array<std::string, 32>& headings,
                                                           int16_t columnCount);

// Asks about an existing output file (interactive run), writes the metric or
// imperial tree list by the variant, and says so. False when the user
// cancelled at the append question.
bool RunTranslation(const TranslationRequest& request);
// The metric record of the "BC" variant. An error passes through it.
void TranslateBc(const TranslationRequest& request);
// The imperial record of the U.S. variants. An error is reported through
// ShowMessage, and the routine returns normally.
void TranslateUs(const TranslationRequest& request);

}  // namespace corvalin
