#include "base/utf8.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

std::u32string charactersOf(std::string_view text) {
  std::u32string characters;
  while (!text.empty()) characters += takeCharacter(text);
  return characters;
}

std::string utf8Of(const std::u32string& characters) {
  std::string text;
  for (const char32_t character : characters) appendUtf8(text, character);
  return text;
}

TEST(Utf8, ReadsCharactersOfEveryLength) {
  EXPECT_EQ(
      charactersOf("a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
      (std::u32string{'a', 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF}));
}

TEST(Utf8, ReadsAZeroAsACharacter) {
  EXPECT_EQ(charactersOf(std::string_view("a\0b", 3)), (std::u32string{'a', 0, 'b'}));
}

TEST(Utf8, ReplacesBytesThatBeginNoCharacter) {
  EXPECT_EQ(charactersOf("\x80x\xBF\xF8\xFF"),
            (std::u32string{0xFFFD, 'x', 0xFFFD, 0xFFFD, 0xFFFD}));
}

TEST(Utf8, ReplacesTheBytesOfABrokenCharacterOneByOne) {
  EXPECT_EQ(charactersOf("\xC3("), (std::u32string{0xFFFD, '('}));
  EXPECT_EQ(charactersOf("\xE4\xBB"), (std::u32string{0xFFFD, 0xFFFD}));
  EXPECT_EQ(charactersOf("\xF0\x9F\x8D"), (std::u32string{0xFFFD, 0xFFFD, 0xFFFD}));
}

TEST(Utf8, ReplacesOverlongFormsSurrogatesAndWhatIsBeyondUnicode) {
  EXPECT_EQ(charactersOf("\xC0\xAF"), std::u32string(2, 0xFFFD));
  EXPECT_EQ(charactersOf("\xE0\x9F\xBF"), std::u32string(3, 0xFFFD));
  EXPECT_EQ(charactersOf("\xF0\x8F\xBF\xBF"), std::u32string(4, 0xFFFD));
  EXPECT_EQ(charactersOf("\xED\xA0\x80"), std::u32string(3, 0xFFFD));
  EXPECT_EQ(charactersOf("\xF4\x90\x80\x80"), std::u32string(4, 0xFFFD));
}

TEST(Utf8, WritesCharactersOfEveryLength) {
  EXPECT_EQ(utf8Of({'a', 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF}),
            "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf8, WellFormedTextIsKnown) {
  for (const char* text : {"", "abc", "K\xC3\xA4se", "\xEF\xBF\xBD", "\xF0\x9F\x9B\x92"}) {
    EXPECT_TRUE(isUtf8(text)) << text;
  }
  for (const char* text : {"\xFF", "K\xE4se", "\xC3", "\xC0\x80", "\xED\xA0\x80", "a\xEF\xBF"}) {
    EXPECT_FALSE(isUtf8(text)) << text;
  }
}

}  // namespace
}  // namespace tolvex::sim
