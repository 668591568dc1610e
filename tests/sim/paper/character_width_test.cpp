#include "paper/character_width.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(CharacterWidth, IsOneForAlphabetsAndSigns) {
  for (const char32_t character :
       {U'A', U'~', U'\u00E4', U'\u02FF', U'\u0370', U'\u0416', U'\u05D0', U'\u0E01', U'\u20AC',
        U'\u2500', U'\uFF61', U'\uFF9F', U'\uFFFD'}) {
    EXPECT_EQ(cellsOf(character), 1) << std::hex << static_cast<unsigned long>(character);
  }
}

TEST(CharacterWidth, IsTwoForEastAsianCharacters) {
  for (const char32_t character :
       {U'\u1100', U'\u3000', U'\u3042', U'\u30A2', U'\u4E00', U'\u9FFF', U'\uAC00', U'\uD7A3',
        U'\uF900', U'\uFF01', U'\uFF60', U'\uFFE5', U'\U00020000', U'\U0003FFFD'}) {
    EXPECT_EQ(cellsOf(character), 2) << std::hex << static_cast<unsigned long>(character);
  }
}

TEST(CharacterWidth, IsTwoForEmoji) {
  for (const char32_t character : {U'\u231A', U'\u2705', U'\u2B55', U'\U0001F34E', U'\U0001F600',
                                   U'\U0001F9FF', U'\U0001FAF6'}) {
    EXPECT_EQ(cellsOf(character), 2) << std::hex << static_cast<unsigned long>(character);
  }
}

TEST(CharacterWidth, IsNoneForMarks) {
  for (const char32_t character :
       {U'\u0300', U'\u036F', U'\u05B0', U'\u064B', U'\u093C', U'\u094D', U'\u0E31', U'\u0E34',
        U'\u0E4E', U'\u1AB0', U'\u1AFF', U'\u1DC0', U'\u1DFF', U'\u20D0', U'\u20FF', U'\u3099',
        U'\uFE20', U'\uFE2F'}) {
    EXPECT_EQ(cellsOf(character), 0) << std::hex << static_cast<unsigned long>(character);
  }
}

TEST(CharacterWidth, IsNoneForJoinersAndVariationSelectors) {
  for (const char32_t character : {U'\u200C', U'\u200D', U'\uFE00', U'\uFE0F', U'\U000E0100'}) {
    EXPECT_EQ(cellsOf(character), 0) << std::hex << static_cast<unsigned long>(character);
  }
}

TEST(CharacterWidth, IsNoneForTheRestOfAHangulSyllable) {
  EXPECT_EQ(cellsOf(U'\u115F'), 2);
  EXPECT_EQ(cellsOf(U'\u1160'), 0);
  EXPECT_EQ(cellsOf(U'\u11FF'), 0);
}

}  // namespace
}  // namespace tolvex::sim
