#include "paper/bitmap.h"

#include <gtest/gtest.h>

#include <limits>

#include "samples.h"

namespace tolvex::sim {
namespace {

const Rows kFlag = {"##.",  //
                    "#.."};

TEST(Bitmap, StartsOutWhite) { EXPECT_EQ(rowsOf(Bitmap(3, 2)), (Rows{"...", "..."})); }

TEST(Bitmap, KeepsEachDot) {
  Bitmap bitmap = picture(kFlag);
  bitmap.set(2, 1, true);
  bitmap.set(0, 0, false);
  EXPECT_EQ(rowsOf(bitmap), (Rows{".#.", "#.#"}));
}

TEST(Bitmap, IsEqualInSizeAndDots) {
  EXPECT_TRUE(picture(kFlag) == picture(kFlag));
  EXPECT_FALSE(picture(kFlag) == picture({"##.", "..."}));
  EXPECT_FALSE(Bitmap(2, 3) == Bitmap(3, 2));
}

TEST(Bitmap, MayBeEmpty) {
  EXPECT_EQ(Bitmap(0, 5).height(), 5);
  EXPECT_EQ(turned(Bitmap(0, 5), Turn::Quarter).width(), 5);
}

TEST(Turned, LeavesThePictureWithoutATurn) {
  EXPECT_EQ(rowsOf(turned(picture(kFlag), Turn::None)), kFlag);
}

TEST(Turned, TurnsClockwise) {
  EXPECT_EQ(rowsOf(turned(picture(kFlag), Turn::Quarter)), (Rows{"##", ".#", ".."}));
  EXPECT_EQ(rowsOf(turned(picture(kFlag), Turn::Half)), (Rows{"..#", ".##"}));
  EXPECT_EQ(rowsOf(turned(picture(kFlag), Turn::ThreeQuarters)), (Rows{"..", "#.", "##"}));
}

TEST(Turned, IsBackAfterFourQuarters) {
  Bitmap bitmap = picture(kFlag);
  for (int i = 0; i < 4; ++i) bitmap = turned(bitmap, Turn::Quarter);
  EXPECT_EQ(rowsOf(bitmap), kFlag);
}

TEST(TurnOf, TakesDegreesInQuarters) {
  EXPECT_EQ(turnOf(0), Turn::None);
  EXPECT_EQ(turnOf(90), Turn::Quarter);
  EXPECT_EQ(turnOf(180), Turn::Half);
  EXPECT_EQ(turnOf(270), Turn::ThreeQuarters);
  EXPECT_EQ(turnOf(360), Turn::None);
  EXPECT_EQ(turnOf(450), Turn::Quarter);
  EXPECT_EQ(turnOf(65430), Turn::ThreeQuarters);
}

TEST(TurnOf, TakesNegativeDegreesAsTurnsBack) {
  EXPECT_EQ(turnOf(-90), Turn::ThreeQuarters);
  EXPECT_EQ(turnOf(-180), Turn::Half);
  EXPECT_EQ(turnOf(-270), Turn::Quarter);
  EXPECT_EQ(turnOf(-720), Turn::None);
}

TEST(TurnOf, TakesNumbersOfQuarters) {
  EXPECT_EQ(turnOf(1), Turn::Quarter);
  EXPECT_EQ(turnOf(2), Turn::Half);
  EXPECT_EQ(turnOf(3), Turn::ThreeQuarters);
}

TEST(TurnOf, TakesAnythingElseAsNoTurn) {
  for (const int angle :
       {4, -1, -3, 45, 89, 91, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(turnOf(angle), Turn::None) << angle;
  }
}

TEST(CutToWidth, KeepsTheLeftPart) {
  EXPECT_EQ(rowsOf(cutToWidth(picture(kFlag), 2)), (Rows{"##", "#."}));
  EXPECT_EQ(cutToWidth(picture(kFlag), 0).width(), 0);
  EXPECT_EQ(cutToWidth(picture(kFlag), -5).width(), 0);
}

TEST(CutToWidth, LeavesWhatFits) {
  EXPECT_EQ(rowsOf(cutToWidth(picture(kFlag), 3)), kFlag);
  EXPECT_EQ(rowsOf(cutToWidth(picture(kFlag), 4)), kFlag);
}

TEST(CutToHeight, KeepsTheUpperPart) {
  EXPECT_EQ(rowsOf(cutToHeight(picture(kFlag), 1)), Rows{kFlag[0]});
  EXPECT_EQ(cutToHeight(picture(kFlag), 0).height(), 0);
  EXPECT_EQ(cutToHeight(picture(kFlag), -5).height(), 0);
  EXPECT_EQ(rowsOf(cutToHeight(picture(kFlag), 2)), kFlag);
}

}  // namespace
}  // namespace tolvex::sim
