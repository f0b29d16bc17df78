// The text of a row set, kept back to back and grown without clearing.
#include <gtest/gtest.h>

#include <string>

#include "worktable/TextArena.h"

namespace corvalin {
namespace {

std::string Whole(const TextArena& arena) { return std::string(arena.view(0, arena.size())); }

TEST(TextArena, AppendedTextIsKeptInOrderAcrossGrowth) {
  TextArena arena;
  std::string expected;
  for (int n = 0; n < 2000; ++n) {
    const std::string piece = std::to_string(n) + ",";
    arena.append(piece.data(), piece.size());
    expected += piece;
  }
  EXPECT_EQ(arena.size(), expected.size());
  EXPECT_GE(arena.capacity(), arena.size());
  EXPECT_EQ(Whole(arena), expected);
  EXPECT_EQ(arena.view(4, 6), "2,3,4,");
}

TEST(TextArena, RoomTakenAtOnceKeepsTheTextWhereItIs) {
  TextArena arena;
  arena.append("abc", 3);
  arena.reserve(1000);
  EXPECT_EQ(arena.capacity(), 1000u);
  const char* before = arena.data();
  for (int n = 0; n < 99; ++n) arena.append("0123456789", 10);
  EXPECT_EQ(arena.data(), before);
  EXPECT_EQ(arena.size(), 993u);
  EXPECT_EQ(arena.view(0, 5), "abc01");
  // Less room than held changes nothing.
  arena.reserve(10);
  EXPECT_EQ(arena.capacity(), 1000u);
  EXPECT_EQ(arena.data(), before);
}

TEST(TextArena, ACopyHasTextOfItsOwn) {
  TextArena arena;
  arena.append("first", 5);
  TextArena copy = arena;
  arena.append(" and more", 9);
  EXPECT_EQ(Whole(copy), "first");
  EXPECT_EQ(Whole(arena), "first and more");
  copy = arena;
  EXPECT_EQ(Whole(copy), "first and more");
  EXPECT_NE(copy.data(), arena.data());
}

TEST(TextArena, NothingAppendedIsEmpty) {
  TextArena arena;
  arena.append(nullptr, 0);
  EXPECT_EQ(arena.size(), 0u);
  TextArena copy = arena;
  EXPECT_EQ(copy.size(), 0u);
}

}  // namespace
}  // namespace corvalin
