#include "screens/Mnemonics.h"

#include <cctype>

namespace corvalin {

namespace {

bool IsKeyCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

char KeyOf(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

}  // namespace

std::vector<int> ChooseMnemonics(const std::vector<std::string>& captions, const std::string& taken) {
  std::string used;
  for (char c : taken) used += KeyOf(c);
  auto isFree = [&used](char c) { return IsKeyCharacter(c) && used.find(KeyOf(c)) == std::string::npos; };
  std::vector<int> chosen(captions.size(), -1);
  // First every caption that can have the first letter of one of its words
  // ("Show excluded rows" takes S, E or R), in turn; then the others take a
  // letter inside a word. So "Help" keeps its H though "Comma" came first
  // and found its C taken.
  for (std::size_t n = 0; n < captions.size(); ++n) {
    const std::string& caption = captions[n];
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const bool startsWord = i == 0 || !IsKeyCharacter(caption[i - 1]);
      if (startsWord && isFree(caption[i])) {
        chosen[n] = static_cast<int>(i);
        used += KeyOf(caption[i]);
        break;
      }
    }
  }
  for (std::size_t n = 0; n < captions.size(); ++n) {
    if (chosen[n] >= 0) continue;
    const std::string& caption = captions[n];
    for (std::size_t i = 0; i < caption.size(); ++i) {
      if (isFree(caption[i])) {
        chosen[n] = static_cast<int>(i);
        used += KeyOf(caption[i]);
        break;
      }
    }
  }
  return chosen;
}

}  // namespace corvalin
