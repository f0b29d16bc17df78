// A fingerprint of what a screen draws, so that its view is told of a change
// exactly when there is one, whichever routine or layer made it. A screen
// feeds its controls and the rest of its drawn state into a digest; two
// digests differ when any fed value differs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "screens/Controls.h"

namespace corvalin {

class StateDigest {
 public:
  StateDigest& operator<<(std::string_view text);
  StateDigest& operator<<(const std::string& text) { return *this << std::string_view(text); }
  StateDigest& operator<<(const char* text) { return *this << std::string_view(text); }
  StateDigest& operator<<(long long number);
  StateDigest& operator<<(int number) { return *this << static_cast<long long>(number); }
  StateDigest& operator<<(long number) { return *this << static_cast<long long>(number); }
  StateDigest& operator<<(short number) { return *this << static_cast<long long>(number); }
  StateDigest& operator<<(double number);
  StateDigest& operator<<(bool flag) { return *this << static_cast<long long>(flag ? 1 : 0); }

  StateDigest& operator<<(const Control& control);
  StateDigest& operator<<(const Label& label);
  StateDigest& operator<<(const Button& button);
  StateDigest& operator<<(const CheckBox& box);
  StateDigest& operator<<(const OptionButton& option);
  StateDigest& operator<<(const TextBox& box);
  StateDigest& operator<<(const ListControl& list);
  StateDigest& operator<<(const TabStrip& tabs);

  template <class T>
  StateDigest& operator<<(const std::vector<T>& items) {
    *this << static_cast<long long>(items.size());
    for (const auto& item : items) *this << item;
    return *this;
  }

  uint64_t Value() const { return hash_; }

 private:
  void Mix(const void* bytes, std::size_t size);
  // FNV-1a over the fed values, each framed by its size, so that "ab","c"
  // and "a","bc" differ.
  uint64_t hash_ = 14695981039346656037ULL;
};

}  // namespace corvalin
