#include "desktop/Latin1Text.h"

namespace corvalin {

std::optional<std::string> Latin1FromQt(const QString& text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar c : text) {
    if (c.unicode() > 0xFF) return std::nullopt;
    bytes.push_back(static_cast<char>(c.unicode()));
  }
  return bytes;
}

}  // namespace corvalin
