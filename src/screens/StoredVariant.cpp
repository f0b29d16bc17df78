#include "screens/StoredVariant.h"

#include "shell/Error.h"
#include "shell/Failure.h"

namespace corvalin {

namespace {

constexpr int kInvalidPropertyValue = 380;

}  // namespace

int FindStoredVariant(const ListControl& list, const std::string& variant) {
  for (int i = 1; i <= list.ListCount(); ++i) {
    const bool pastLast = i >= list.ListCount();
    const std::string row = pastLast ? "" : list.Items[static_cast<std::size_t>(i)];
    if (row != variant) continue;
    if (pastLast) Raise(kInvalidPropertyValue, "Corvalin", "Invalid property value");
    return i;
  }
  ShowMessage("Unknown Orvan Variant specified: " + variant);
  return -1;
}

}  // namespace corvalin
