// Text typed by the person goes into single-byte cells: each character
// becomes its Latin-1 byte, the way every text on screen is read.
#pragma once

#include <QString>
#include <optional>
#include <string>

namespace corvalin {

// The bytes of a typed text, or nullopt when a character has no single byte.
std::optional<std::string> Latin1FromQt(const QString& text);

}  // namespace corvalin
