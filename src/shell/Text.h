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
std::string TrimAtNull(std::string_view text);

}  // namespace corvalin
