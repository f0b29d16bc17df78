#include "screens/StateDigest.h"

#include <cstring>

namespace corvalin {

void StateDigest::Mix(const void* bytes, std::size_t size) {
  const auto* p = static_cast<const unsigned char*>(bytes);
  for (std::size_t i = 0; i < size; ++i) {
    hash_ ^= p[i];
    hash_ *= 1099511628211ULL;
  }
}

StateDigest& StateDigest::operator<<(std::string_view text) {
  const uint64_t size = text.size();
  Mix(&size, sizeof size);
  Mix(text.data(), text.size());
  return *this;
}

StateDigest& StateDigest::operator<<(long long number) {
  Mix(&number, sizeof number);
  return *this;
}

StateDigest& StateDigest::operator<<(double number) {
  Mix(&number, sizeof number);
  return *this;
}

StateDigest& StateDigest::operator<<(const Control& c) {
  return *this << c.Enabled << c.Visible << c.TabStop << c.Left << c.Width;
}

StateDigest& StateDigest::operator<<(const Label& label) {
  return *this << static_cast<const Control&>(label) << label.Caption << label.Red;
}

StateDigest& StateDigest::operator<<(const Button& button) {
  return *this << static_cast<const Control&>(button) << button.Caption;
}

StateDigest& StateDigest::operator<<(const CheckBox& box) {
  return *this << static_cast<const Control&>(box) << box.Caption << box.Value;
}

StateDigest& StateDigest::operator<<(const OptionButton& option) {
  return *this << static_cast<const Control&>(option) << option.Caption << option.Value;
}

StateDigest& StateDigest::operator<<(const TextBox& box) {
  return *this << static_cast<const Control&>(box) << box.Text;
}

StateDigest& StateDigest::operator<<(const ListControl& list) {
  return *this << static_cast<const Control&>(list) << list.Items << list.ListIndex << list.Text;
}

StateDigest& StateDigest::operator<<(const TabStrip& tabs) {
  *this << static_cast<const Control&>(tabs) << tabs.TabCaption << tabs.Tab;
  *this << static_cast<long long>(tabs.TabEnabled.size());
  for (bool enabled : tabs.TabEnabled) *this << enabled;
  return *this;
}

}  // namespace corvalin
