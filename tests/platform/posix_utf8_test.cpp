#include <gtest/gtest.h>

#include "platform/ansi_texts.h"
#include "platform/posix/utf8.h"

namespace tolvex::platform {
namespace {

std::string repaired(const std::string& text) { return repairedUtf8(text.data(), text.size()); }

// That many characters in the place of what was no UTF-8.
std::string bad(std::size_t count) { return test::repeated("\xEF\xBF\xBD", count); }

TEST(Utf8Text, IsKept) {
  const std::string text = "a\xC3\xA4\xE4\xBB\xB7\xF0\x9F\xA5\x95\x7F";
  EXPECT_EQ(repaired(text), text);
}

TEST(Utf8Text, IsKeptAtTheEdgesOfEachLength) {
  for (const std::string text :
       {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\xBF\xBF", "\xED\x9F\xBF",
        "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(repaired(text), text);
  }
}

TEST(Utf8Text, MayBeEmpty) { EXPECT_EQ(repaired(""), ""); }

TEST(Utf8Text, StrayFollowingBytesAreReplacedOneByOne) {
  EXPECT_EQ(repaired("a\x80\xBF"
                     "b"),
            "a" + bad(2) + "b");
}

TEST(Utf8Text, BytesOfNoCharacterAreReplacedOneByOne) {
  EXPECT_EQ(repaired("\xFE\xFF\xF8\x88\x80\x80\x80"), bad(7));
}

TEST(Utf8Text, OverlongFormsAreReplacedByteByByte) {
  EXPECT_EQ(repaired("\xC0\xAF\xC1\xBF"), bad(4));
  EXPECT_EQ(repaired("\xE0\x80\xAF"), bad(3));
  EXPECT_EQ(repaired("\xE0\x9F\xBF"), bad(3));
  EXPECT_EQ(repaired("\xF0\x80\x80\xAF"), bad(4));
  EXPECT_EQ(repaired("\xF0\x8F\xBF\xBF"), bad(4));
}

TEST(Utf8Text, SurrogatesAreReplacedByteByByte) {
  EXPECT_EQ(repaired("\xED\xA0\x80\xED\xBF\xBF"), bad(6));
}

TEST(Utf8Text, NumbersThatAreTooLargeAreReplacedByteByByte) {
  EXPECT_EQ(repaired("\xF4\x90\x80\x80"), bad(4));
  EXPECT_EQ(repaired("\xF5\x80\x80\x80"), bad(4));
}

TEST(Utf8Text, UnfinishedCharactersAreReplacedAsAWhole) {
  EXPECT_EQ(repaired("\xF0\x9F\xA5z"), bad(1) + "z");
  EXPECT_EQ(repaired("\xE4\xBB\xE4\xBB\xB7"), bad(1) + "\xE4\xBB\xB7");
  EXPECT_EQ(repaired("\xC3\xC3\xA4"), bad(1) + "\xC3\xA4");
}

TEST(Utf8Text, UnfinishedCharactersAtTheEndAreReplacedAsAWhole) {
  EXPECT_EQ(repaired("a\xC3"), "a" + bad(1));
  EXPECT_EQ(repaired("a\xE4\xBB"), "a" + bad(1));
  EXPECT_EQ(repaired("a\xF0\x9F\xA5"), "a" + bad(1));
}

// The example in the Unicode standard's chapter on U+FFFD in conversions.
TEST(Utf8Text, IsRepairedAsTheStandardRecommends) {
  EXPECT_EQ(repaired("a\xF1\x80\x80\xE1\x80\xC2"
                     "b\x80"
                     "c\x80\xBF"
                     "d"),
            "a" + bad(3) + "b" + bad(1) + "c" + bad(2) + "d");
}

}  // namespace
}  // namespace tolvex::platform
