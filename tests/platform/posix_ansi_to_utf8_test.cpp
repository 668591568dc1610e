// Bytes that are not of the locale's character set, and locales that say little or nothing. Each
// suite runs in a locale of its name.
#include <gtest/gtest.h>

#include "platform/ansi_texts.h"
#include "platform/text_encoding.h"

namespace tolvex::test {

std::string pathOf(const AnsiText& ansiPath) { return ansiPath.ansi; }

}  // namespace tolvex::test

namespace tolvex::platform {
namespace {

const std::string kReplaced = "\xEF\xBF\xBD";
constexpr std::size_t kMebibyte = 1u << 20;
// Sanitizers look at all that is left of the text in each call of iconv, of which an invalid byte takes
// two.
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kManyBytes = 1u << 15;
#else
constexpr std::size_t kManyBytes = kMebibyte;
#endif

const char kEuroInUtf8[] = "1 \xE2\x82\xAC";

TEST(InGbk, LeadByteAtTheEndIsReplaced) {
  EXPECT_EQ(AnsiToUtf8("\xBC\xDB\xBC"), "\xE4\xBB\xB7" + kReplaced);
}

TEST(InGbk, InvalidBytesAreReplacedAndTheRestSurvives) {
  EXPECT_EQ(AnsiToUtf8("a\xFF\xBC\xDB\xFF"
                       "b\xBC c"),
            "a" + kReplaced + "\xE4\xBB\xB7" + kReplaced + "b" + kReplaced + " c");
}

TEST(InGbk, EuroSignIsASingleByte) { EXPECT_EQ(AnsiToUtf8("\x80"), "\xE2\x82\xAC"); }

TEST(InGbk, ManyInvalidBytesAreReplaced) {
  EXPECT_TRUE(AnsiToUtf8(std::string(kManyBytes, '\xFF').c_str()) ==
              test::repeated(kReplaced, kManyBytes));
}

TEST(InCp1251, ByteWithoutACharacterIsReplaced) {
  EXPECT_EQ(AnsiToUtf8("a\x98\xE6"), "a" + kReplaced + "\xD0\xB6");
}

TEST(InCp1251, ManyInvalidBytesAreReplaced) {
  EXPECT_TRUE(AnsiToUtf8(std::string(kManyBytes, '\x98').c_str()) ==
              test::repeated(kReplaced, kManyBytes));
}

TEST(InLatin1, EveryByteIsACharacter) {
  std::string ansi;
  std::string utf8;
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    ansi += static_cast<char>(byte);
    utf8 += byte < 0xC0 ? '\xC2' : '\xC3';
    utf8 += static_cast<char>(byte & 0xBF);
  }
  EXPECT_EQ(AnsiToUtf8(ansi.c_str()), utf8);
}

TEST(InUtf8, InvalidBytesAreReplacedAndTheRestSurvives) {
  EXPECT_EQ(AnsiToUtf8("a\xE4\xBB"
                       "b\xE4\xBB\xB7\xFF"),
            "a" + kReplaced + "b\xE4\xBB\xB7" + kReplaced);
}

TEST(InUtf8, MebibyteOfInvalidBytesIsReplaced) {
  EXPECT_TRUE(AnsiToUtf8(std::string(kMebibyte, '\x80').c_str()) ==
              test::repeated(kReplaced, kMebibyte));
}

TEST(InHebrew, LetterHeldBackForAnAccentIsKeptAtTheEnd) {
  EXPECT_EQ(AnsiToUtf8("\xE0\xE1"), "\xD7\x90\xD7\x91");
}

TEST(InHebrew, LetterHeldBackForAnAccentStaysBeforeAnInvalidByte) {
  EXPECT_EQ(AnsiToUtf8("\xE1\xFF\xE0"), "\xD7\x91" + kReplaced + "\xD7\x90");
}

TEST(InLocaleC, TextIsTakenAsUtf8) {
  EXPECT_EQ(AnsiToUtf8(kEuroInUtf8), kEuroInUtf8);
  EXPECT_EQ(AnsiToUtf8("\xE4"), kReplaced);
}

TEST(InAMissingLocale, CharsetIsTheOneInItsName) {
  EXPECT_EQ(AnsiToUtf8("\xEB\xC1\xD3\xD3\xC1"), "\xD0\x9A\xD0\xB0\xD1\x81\xD1\x81\xD0\xB0");
}

TEST(InAnUnknownLocale, TextIsTakenAsUtf8) {
  EXPECT_EQ(AnsiToUtf8(kEuroInUtf8), kEuroInUtf8);
  EXPECT_EQ(AnsiToUtf8("\xE4"), kReplaced);
}

}  // namespace
}  // namespace tolvex::platform
