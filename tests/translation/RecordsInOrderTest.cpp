// Records made on two threads go out as made one after another: in row
// order, without the rows that write none, and up to the first failure.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "translation/RecordsInOrder.h"

namespace corvalin {
namespace {

// Row n's record is its number; every seventh row writes none.
void Numbered(long row, std::string& text) {
  if (row % 7 != 3) text += std::to_string(row) + ";";
}

std::vector<std::string> Written(long count, bool together, const MakeRecord& make, std::string* failure = nullptr) {
  std::vector<std::string> written;
  try {
    WriteRecordsInOrder(count, together, make, [&](std::string_view record) { written.emplace_back(record); });
  } catch (const std::runtime_error& error) {
    if (failure) *failure = error.what();
  }
  return written;
}

TEST(RecordsInOrder, BothWaysWriteTheSameRecordsInRowOrder) {
  for (const long count : {0L, 1L, 4095L, 4096L, 30000L}) {
    const std::vector<std::string> alone = Written(count, false, Numbered);
    ASSERT_EQ(alone.size(), static_cast<std::size_t>(count - (count + 3) / 7)) << count;
    for (int repeat = 0; repeat < 5; ++repeat) EXPECT_EQ(Written(count, true, Numbered), alone) << count;
  }
  const std::vector<std::string> some = Written(12, false, Numbered);
  EXPECT_EQ(some, (std::vector<std::string>{"0;", "1;", "2;", "4;", "5;", "6;", "7;", "8;", "9;", "11;"}));
}

TEST(RecordsInOrder, FailureWritesTheRecordsBeforeItsRowAndIsTheOneThrown) {
  const auto failing = [](long row, std::string& text) {
    if (row == 21000) throw std::runtime_error("row 21000");
    if (row == 25000) throw std::runtime_error("row 25000");
    if (row == 2000) text += "partial";
    Numbered(row, text);
  };
  for (const bool together : {false, true}) {
    std::string failure;
    const std::vector<std::string> written = Written(30000, together, failing, &failure);
    EXPECT_EQ(failure, "row 21000");
    ASSERT_EQ(written.size(), static_cast<std::size_t>(21000 - 3000));
    EXPECT_EQ(written.back(), "20999;");
    EXPECT_EQ(written[2000 - 286], "partial2000;");
  }
}

TEST(RecordsInOrder, FailureOfTheWritingEndsItAtThatRecord) {
  for (const bool together : {false, true}) {
    long writes = 0;
    try {
      WriteRecordsInOrder(30000, together, Numbered, [&](std::string_view record) {
        ++writes;
        if (record == "5000;") throw std::runtime_error("disk full");
      });
      FAIL() << "no failure";
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), "disk full");
    }
    EXPECT_EQ(writes, 5001 - 714);
  }
}

}  // namespace
}  // namespace corvalin
