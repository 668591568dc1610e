// What the system makes of bytes that are not in its ANSI code page. Each suite runs in a locale
// with the code page of its name.
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/ansi_texts.h"
#include "platform/text_encoding.h"

namespace tolvex::test {

std::string pathOf(const AnsiText& ansiPath) { return ansiPath.utf8; }

}  // namespace tolvex::test

namespace tolvex::platform {
namespace {

TEST(InCodePage936, SystemHasTheCodePage) { EXPECT_EQ(GetACP(), 936u); }

TEST(InCodePage936, LeadByteAtTheEndIsReplaced) {
  EXPECT_EQ(AnsiToUtf8("\xBC\xDB\xBC"), "\xE4\xBB\xB7?");
}

TEST(InCodePage936, InvalidPairIsReplacedAndTheRestSurvives) {
  EXPECT_EQ(AnsiToUtf8("a\xBC b\xBC\xDB"), "a?b\xE4\xBB\xB7");
}

TEST(InCodePage936, EuroSignIsASingleByte) { EXPECT_EQ(AnsiToUtf8("\x80"), "\xE2\x82\xAC"); }

TEST(InCodePage1251, SystemHasTheCodePage) { EXPECT_EQ(GetACP(), 1251u); }

TEST(InCodePage1251, ByteWithoutACharacterIsAControlCharacter) {
  EXPECT_EQ(AnsiToUtf8("a\x98z"), "a\xC2\x98z");
}

TEST(InCodePage1252, SystemHasTheCodePage) { EXPECT_EQ(GetACP(), 1252u); }

TEST(InCodePage1252, EuroSignIsConverted) {
  EXPECT_EQ(AnsiToUtf8("1 \x80 \x84\xE4\x93"), "1 \xE2\x82\xAC \xE2\x80\x9E\xC3\xA4\xE2\x80\x9C");
}

TEST(InCodePage1252, ByteWithoutACharacterIsAControlCharacter) {
  EXPECT_EQ(AnsiToUtf8("a\x81z"), "a\xC2\x81z");
}

}  // namespace
}  // namespace tolvex::platform
