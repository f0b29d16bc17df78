// The translation run: the working table, validated, written as a tree list file.
#pragma once

namespace corvalin {

// Asks about an existing output file (interactive run), writes the metric or
// imperial tree list by the variant shown on frmHeaders, and says so. False
// when the user cancelled at the append question.
bool RunTranslation();
// The metric record of the "BC" variant. An error passes through it.
void TranslateBc();
// The imperial record of the U.S. variants. An error is reported through
// ShowMessage, and the routine returns normally.
void TranslateUs();

}  // namespace corvalin
