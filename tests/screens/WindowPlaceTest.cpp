// A window's frame is kept wholly inside the screen's working area.
#include <gtest/gtest.h>

#include "screens/WindowPlace.h"

namespace corvalin {
namespace {

const WindowRect kLaptop{0, 0, 1366, 740};  // 1366x768 less a panel of 28 pixels

TEST(WindowPlace, AFrameInsideTheAreaStaysWhereItIs) {
  EXPECT_EQ(FitInside({120, 90, 673, 437}, kLaptop), (WindowRect{120, 90, 673, 437}));
}

TEST(WindowPlace, AFramePastTheRightAndBottomEdgesMovesBackJustEnough) {
  EXPECT_EQ(FitInside({900, 500, 673, 437}, kLaptop), (WindowRect{693, 303, 673, 437}));
}

TEST(WindowPlace, AFrameAboveOrLeftOfTheAreaMovesIn) {
  EXPECT_EQ(FitInside({-20, -30, 673, 437}, kLaptop), (WindowRect{0, 0, 673, 437}));
  EXPECT_EQ(FitInside({10, 10, 100, 100}, {50, 28, 1316, 740}), (WindowRect{50, 28, 100, 100}));
}

TEST(WindowPlace, AFrameLargerThanTheAreaIsMadeToFitIt) {
  // The grid as it was designed, on a 1366x768 screen.
  EXPECT_EQ(FitInside({263, 174, 1182, 785}, kLaptop), (WindowRect{184, 0, 1182, 740}));
  EXPECT_EQ(FitInside({263, 174, 1500, 785}, kLaptop), (WindowRect{0, 0, 1366, 740}));
}

TEST(WindowPlace, CentredInTheArea) {
  EXPECT_EQ(CentredIn(673, 437, kLaptop), (WindowRect{346, 151, 673, 437}));
  EXPECT_EQ(CentredIn(2000, 437, kLaptop), (WindowRect{0, 151, 1366, 437}));
}

}  // namespace
}  // namespace corvalin
