// Small text helpers used all over. Text is single-byte: one byte, one character.
#pragma once

#include <string>
#include <string_view>

namespace corvalin {

// Leading and trailing blanks (the space character only) removed; a tab stays.
std::string TrimBlanks(std::string_view text);
std::string TrimLeftBlanks(std::string_view text);
std::string TrimRightBlanks(std::string_view text);
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsWith(std::string_view text, std::string_view prefix);
// The text up to, not including, its first NUL; a text without one unchanged.
// The form for the result of the documents-folder lookup.
std::string TrimAtNull(std::string_view text);
// The form for a filled read buffer: the NUL must be there, and a text
// without one is the error "Invalid procedure call or argument".
std::string TrimBufferAtNull(std::string_view text);

// Flags in files and settings are the words "YES" and "NO", read by their
// first letter: true when it is "Y" or "y". The empty text is no.
bool IsYes(std::string_view text);
// The same test as a check box's value: 1 or 0.
int IsYesValue(std::string_view text);
// "YES" for 1 (a checked box), "NO" for anything else.
std::string YesNoText(int value);
// True for the empty text and for a text with no blank left after trimming.
bool IsSingleWord(std::string_view text);
// Each "'" doubled, for use inside an SQL literal.
std::string SqlQuote(std::string_view text);
// Each tab replaced by the broken bar (character 166), so that tabs can be
// seen in the column format preview.
std::string MarkTabs(std::string_view text);
inline constexpr char kTabMark = static_cast<char>(166);

}  // namespace corvalin
