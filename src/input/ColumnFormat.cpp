#include "input/ColumnFormat.h"

#include <utility>

#include "shell/Error.h"

namespace corvalin {

namespace {
ColumnMarkerList gMarkers;

std::size_t MarkerSlot(int k) {
  if (k < 1 || k > kMaxMarkers) Raise(err::SubscriptOutOfRange);
  return static_cast<std::size_t>(k - 1);
}
}  // namespace

int16_t& ColumnMarkerList::ColumnMarkers(int k) { return Positions[MarkerSlot(k)]; }
int16_t ColumnMarkerList::ColumnMarkers(int k) const { return Positions[MarkerSlot(k)]; }

void ColumnMarkerList::Sort() {
  for (int pass = 1; pass <= NumMarkers - 1; ++pass)
    for (int k = 1; k <= NumMarkers - 1; ++k)
      if (ColumnMarkers(k) > ColumnMarkers(k + 1)) std::swap(ColumnMarkers(k), ColumnMarkers(k + 1));
}

ColumnMarkerList& Markers() { return gMarkers; }
void ResetMarkers() { gMarkers = ColumnMarkerList{}; }

std::string ComposeColumnDelimiters(bool tab, bool semicolon, bool comma, bool space, bool other,
                                    const std::string& otherCharacters) {
  std::string delimiters;
  if (tab) delimiters += '\t';
  if (semicolon) delimiters += ';';
  if (comma) delimiters += ',';
  if (space) delimiters += ' ';
  if (other) delimiters += otherCharacters;
  return delimiters;
}

}  // namespace corvalin
