// Looking through a long table on two threads finds what a pass from the
// first row finds: the first row that stops it, having seen every row before.
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <stdexcept>
#include <vector>

#include "shell/FirstRowThat.h"

namespace corvalin {
namespace {

long FirstOf(long count, const std::set<long>& stopping) {
  return FirstRowThat(count, [&](long row) { return stopping.count(row) > 0; });
}

TEST(FirstRowThat, NoRowStoppingGivesTheCount) {
  EXPECT_EQ(FirstOf(0, {}), 0);
  EXPECT_EQ(FirstOf(10, {}), 10);
  EXPECT_EQ(FirstOf(100000, {}), 100000);
}

TEST(FirstRowThat, ShortTableGivesItsFirstStoppingRow) { EXPECT_EQ(FirstOf(4000, {3999, 17, 2000}), 17); }

TEST(FirstRowThat, LongTableGivesTheFirstStoppingRowWhereverTheOthersLie) {
  for (const long first : {0L, 1L, 1023L, 1024L, 4095L, 50000L, 99999L}) {
    for (int repeat = 0; repeat < 20; ++repeat)
      EXPECT_EQ(FirstOf(100000, {first, first + 1, first + 1025, 99999}), first) << "first " << first;
  }
}

TEST(FirstRowThat, EveryRowBeforeTheAnswerIsLookedAtOnce) {
  std::vector<std::atomic<int>> looks(60000);
  const long first = FirstRowThat(60000, [&](long row) {
    ++looks[static_cast<std::size_t>(row)];
    return row == 41234 || row == 55000;
  });
  EXPECT_EQ(first, 41234);
  for (long row = 0; row <= first; ++row) ASSERT_EQ(looks[static_cast<std::size_t>(row)].load(), 1) << row;
}

TEST(FirstRowThat, RowThatThrowsStopsLikeOneThatStops) {
  const auto throwsAt = [](long at, long stopsAt) {
    return [at, stopsAt](long row) {
      if (row == at) throw std::runtime_error("unreadable row");
      return row == stopsAt;
    };
  };
  EXPECT_EQ(FirstRowThat(100000, throwsAt(70000, 80000)), 70000);
  EXPECT_EQ(FirstRowThat(100000, throwsAt(80000, 70000)), 70000);
  EXPECT_EQ(FirstRowThat(100, throwsAt(5, 50)), 5);
}

}  // namespace
}  // namespace corvalin
