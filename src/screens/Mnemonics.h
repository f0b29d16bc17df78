// The access keys of a window's controls: Alt with the underlined letter of
// a caption presses the button, ticks the box or reaches the field its label
// names. Each window chooses its own, from its captions as they are, so that
// no two controls of a window share a key.
#pragma once

#include <string>
#include <vector>

namespace corvalin {

// For each caption, the position of the character that becomes its access
// key, or -1 for none. The captions, in turn, first take the first letter of
// one of their words that no caption before took; those left without one
// then take, in turn, their first letter or digit not taken; one that finds
// every letter taken moves the owner of one of them to a letter still free
// (the first letter of a word if it can); else none. The captions come in
// the order they should be served: the controls a person can use now first. Keys are told apart without regard to case. Letters that are taken
// already (keys the window uses otherwise) are given in `taken`.
std::vector<int> ChooseMnemonics(const std::vector<std::string>& captions, const std::string& taken = "");

}  // namespace corvalin
