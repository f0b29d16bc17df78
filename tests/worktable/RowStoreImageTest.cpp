// The image of tft that the load keeps as it writes the rows: rows given in
// pieces read back field by field, and the room the next rows will fill.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "worktable/RowStore.h"

namespace corvalin {
namespace {

std::shared_ptr<RowStore> ThreeFieldImage() { return RowStore::Image("t", {"LineNum", "c1", "Excluded"}); }

TEST(RowStoreImage, ARowGivenInPiecesReadsBackFieldByField) {
  auto image = ThreeFieldImage();
  image->ReserveImage(10, 100);
  // "12" + "abc" + "N": LineNum ends at 2, c1 at 5, Excluded at 6.
  const std::array<std::string_view, 3> pieces{"12", "abc", "N"};
  const std::array<uint32_t, 3> ends{2, 5, 6};
  const char* stored = image->AppendImageRow(1, pieces, ends.data());
  EXPECT_EQ(std::string_view(stored, 6), "12abcN");
  const std::array<std::string_view, 2> second{"13", "N"};
  const std::array<uint32_t, 3> secondEnds{2, 2, 3};
  image->AppendImageRow(2, second, secondEnds.data());
  ASSERT_EQ(image->Count(), 2);
  EXPECT_EQ(image->Cell(0, 0), "12");
  EXPECT_EQ(image->Cell(0, 1), "abc");
  EXPECT_EQ(image->Cell(0, 2), "N");
  EXPECT_EQ(image->Cell(1, 0), "13");
  EXPECT_EQ(image->Cell(1, 1), "");
  EXPECT_EQ(image->Cell(1, 2), "N");
}

TEST(RowStoreImage, RowsStayWhereTheyLieWhileThereIsRoom) {
  auto image = ThreeFieldImage();
  image->ReserveImage(100, 1000);
  const std::array<std::string_view, 1> pieces{"1xN"};
  const std::array<uint32_t, 3> ends{1, 2, 3};
  const char* first = image->AppendImageRow(1, pieces, ends.data());
  for (long long row = 2; row <= 100; ++row) {
    ASSERT_TRUE(image->ImageHasRoomFor(3));
    image->AppendImageRow(row, pieces, ends.data());
  }
  EXPECT_EQ(std::string_view(first, 3), "1xN");
  EXPECT_EQ(image->Cell(99, 1), "x");
}

TEST(RowStoreImage, TheRoomAheadIsWhatTheNextRowsFillAsFarAsTheRoomTaken) {
  auto image = ThreeFieldImage();
  image->ReserveImage(1000, 4000);
  const std::array<std::string_view, 1> pieces{"123abcdefN"};  // 10 bytes a row
  const std::array<uint32_t, 3> ends{3, 9, 10};
  for (long long row = 1; row <= 8; ++row) image->AppendImageRow(row, pieces, ends.data());
  const char* next = image->AppendImageRow(9, pieces, ends.data()) + 10;

  // 100 rows of 10 bytes, an eighth more: 1,125 bytes of text; each row has
  // four field starts, one null word, one row id and one edit mark.
  const std::vector<std::span<char>> room = image->ImageRoomAhead(100);
  ASSERT_EQ(room.size(), 5u);
  EXPECT_EQ(room[0].data(), next);
  EXPECT_EQ(room[0].size(), 1125u);
  EXPECT_EQ(room[1].size(), 100u * 4 * sizeof(uint32_t));
  EXPECT_EQ(room[2].size(), 100u * sizeof(uint64_t));
  EXPECT_EQ(room[3].size(), 100u * sizeof(long long));
  EXPECT_EQ(room[4].size(), 100u * sizeof(int32_t));

  // Past the room taken nothing is given: 991 rows are left, 3,910 bytes.
  const std::vector<std::span<char>> all = image->ImageRoomAhead(5000);
  EXPECT_EQ(all[0].size(), 4000u - 90);
  EXPECT_EQ(all[1].size(), (1000u - 9) * 4 * sizeof(uint32_t));
  EXPECT_EQ(all[3].size(), (1000u - 9) * sizeof(long long));
}

}  // namespace
}  // namespace corvalin
