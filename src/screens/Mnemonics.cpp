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
  // A caption whose letters are all taken ("Save" after Show, Auto-validate,
  // Validate and Edit) asks the owner of one of them to move to a letter
  // still free, the first letter of a word if it has one.
  auto owner = [&](char key) -> std::size_t {
    for (std::size_t m = 0; m < captions.size(); ++m)
      if (chosen[m] >= 0 && KeyOf(captions[m][static_cast<std::size_t>(chosen[m])]) == key) return m;
    return captions.size();
  };
  auto freeLetter = [&](std::size_t m, bool wordStartsOnly) -> int {
    const std::string& caption = captions[m];
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const bool startsWord = i == 0 || !IsKeyCharacter(caption[i - 1]);
      if ((startsWord || !wordStartsOnly) && isFree(caption[i])) return static_cast<int>(i);
    }
    return -1;
  };
  for (std::size_t n = 0; n < captions.size(); ++n) {
    if (chosen[n] >= 0) continue;
    const std::string& caption = captions[n];
    for (const bool wordStartsOnly : {true, false}) {
      for (std::size_t i = 0; i < caption.size() && chosen[n] < 0; ++i) {
        if (!IsKeyCharacter(caption[i])) continue;
        const std::size_t m = owner(KeyOf(caption[i]));
        if (m == captions.size()) continue;
        const int moveTo = freeLetter(m, wordStartsOnly);
        if (moveTo < 0) continue;
        chosen[m] = moveTo;
        used += KeyOf(captions[m][static_cast<std::size_t>(moveTo)]);
        chosen[n] = static_cast<int>(i);
      }
      if (chosen[n] >= 0) break;
    }
  }
  return chosen;
}

}  // namespace corvalin
