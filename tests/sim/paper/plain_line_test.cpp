#include "paper/plain_line.h"

#include <gtest/gtest.h>

#include <string>

namespace tolvex::sim {
namespace {

constexpr int kPlain = 12;
constexpr int kTwice = 24;

TEST(PlainLine, OfThePlainFontIsTheText) {
  EXPECT_EQ(plainLine("  a   b c ", kPlain, kPlain), "  a   b c ");
}

TEST(PlainLine, OfASmallerFontIsTheText) {
  EXPECT_EQ(plainLine("  a   b c", 8, kPlain), "  a   b c");
}

TEST(PlainLine, BeginsAtTheLeftEnd) {
  EXPECT_EQ(plainLine("SUM", kTwice, kPlain), "SUM");
  EXPECT_EQ(plainLine("THE SUM", kTwice, kPlain), "THE SUM");
}

TEST(PlainLine, KeepsTheRightEndOfWhatAGapSetsApart) {
  // 10 large cells are 20 plain ones.
  EXPECT_EQ(plainLine("SUM   8,17", kTwice, kPlain), "SUM             8,17");
  EXPECT_EQ(plainLine("A  B  C", kTwice, kPlain), "A      B     C");
}

TEST(PlainLine, KeepsTheMiddleOfWhatLeadingBlanksSetApart) {
  // Cells 2 to 6 of the large font are 4 to 12 of the plain one.
  EXPECT_EQ(plainLine("  NAME", kTwice, kPlain), "      NAME");
  EXPECT_EQ(plainLine(" NAME", kTwice, kPlain), "    NAME");
}

TEST(PlainLine, KeepsSingleBlanksInsideAPart) {
  EXPECT_EQ(plainLine("A B  C D", kTwice, kPlain), "A B          C D");
}

TEST(PlainLine, CountsWideCellsAsTwo) {
  EXPECT_EQ(plainLine("\u8C22  \u8C22", kTwice, kPlain), "\u8C22        \u8C22");
}

TEST(PlainLine, LeavesOutBlanksAtTheEnd) { EXPECT_EQ(plainLine("A   ", kTwice, kPlain), "A"); }

TEST(PlainLine, KeepsPartsApartWhereTheFontsAreNearlyTheSame) {
  EXPECT_EQ(plainLine("ABCDEFGHIJKL  M", 13, kPlain), "ABCDEFGHIJKL   M");
  EXPECT_EQ(plainLine("  ABCDEFGHIJKL  M", 13, kPlain), "  ABCDEFGHIJKL   M");
}

TEST(PlainLine, OfBlanksOrNothingIsEmpty) {
  EXPECT_EQ(plainLine("", kTwice, kPlain), "");
  EXPECT_EQ(plainLine("     ", kTwice, kPlain), "");
}

}  // namespace
}  // namespace tolvex::sim
