// Text kept back to back in one block: the cells of a row set. Room is taken
// without clearing it first, since every byte of it is written before it is
// read, and a load that takes room for a whole file touches only the pages
// its rows fill.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace corvalin {

class TextArena {
 public:
  TextArena() = default;
  TextArena(const TextArena& other) { *this = other; }
  TextArena& operator=(const TextArena& other) {
    if (this != &other) {
      TextArena copy;
      copy.reserve(other.size_);
      copy.append(other.data(), other.size_);
      *this = std::move(copy);
    }
    return *this;
  }
  TextArena(TextArena&&) noexcept = default;
  TextArena& operator=(TextArena&&) noexcept = default;

  std::size_t size() const { return size_; }
  std::size_t capacity() const { return capacity_; }
  const char* data() const { return text_.get(); }
  char* data() { return text_.get(); }

  // The n characters from start.
  std::string_view view(std::size_t start, std::size_t n) const { return {text_.get() + start, n}; }

  // Room for n characters in all; the text moves when it grows.
  void reserve(std::size_t n) {
    if (n <= capacity_) return;
    std::unique_ptr<char[]> grown(new char[n]);
    // size_ <= capacity_ < n; the bound is said again for the compiler.
    if (size_ > 0) std::memcpy(grown.get(), text_.get(), std::min(size_, n));
    text_ = std::move(grown);
    capacity_ = n;
  }

  void append(const char* text, std::size_t n) {
    if (n > capacity_ - size_) reserve(std::max(size_ + n, capacity_ * 2));
    if (n > 0) std::memcpy(text_.get() + size_, text, n);
    size_ += n;
  }

 private:
  std::unique_ptr<char[]> text_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace corvalin
