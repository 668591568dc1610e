#include <gtest/gtest.h>
#include <stdlib.h>

#include "platform/ansi_texts.h"
#include "platform/posix/charset.h"

namespace tolvex::platform {
namespace {

TEST(LocaleName, IsTheFirstThatIsSetAndNotEmpty) {
  EXPECT_EQ(localeName("a", "b", "c"), "a");
  EXPECT_EQ(localeName(nullptr, "b", "c"), "b");
  EXPECT_EQ(localeName("", "b", "c"), "b");
  EXPECT_EQ(localeName("", nullptr, "c"), "c");
  EXPECT_EQ(localeName(nullptr, "", "c"), "c");
}

TEST(LocaleName, IsEmptyWhereNothingIsSet) {
  EXPECT_EQ(localeName(nullptr, nullptr, nullptr), "");
  EXPECT_EQ(localeName("", "", ""), "");
}

TEST(CharsetInALocalesName, StandsBehindThePoint) {
  EXPECT_EQ(charsetInName("ru_RU.KOI8-R"), "KOI8-R");
  EXPECT_EQ(charsetInName("de_DE.ISO-8859-15@euro"), "ISO-8859-15");
}

TEST(CharsetInALocalesName, MayBeMissing) {
  EXPECT_EQ(charsetInName(""), "");
  EXPECT_EQ(charsetInName("C"), "");
  EXPECT_EQ(charsetInName("de_DE"), "");
  EXPECT_EQ(charsetInName("de_DE@euro"), "");
  EXPECT_EQ(charsetInName("de_DE@a.b"), "");
  EXPECT_EQ(charsetInName("de_DE."), "");
  EXPECT_EQ(charsetInName("de_DE.@euro"), "");
}

TEST(Charset, IsUsableWhereItHoldsAscii) {
  for (const char* const charset : {"GBK", "gb18030", "CP1251", "ISO-8859-1", "BIG5", "EUC-JP"}) {
    EXPECT_TRUE(isUsable(charset)) << charset;
  }
}

TEST(Charset, IsNotUsableWithoutAsciiInBytes) {
  for (const char* const charset : {"UTF-16", "UCS-4LE", "WCHAR_T", "IBM037"}) {
    EXPECT_FALSE(isUsable(charset)) << charset;
  }
}

TEST(Charset, IsNotUsableUnderANameNobodyKnows) {
  EXPECT_FALSE(isUsable("NOSUCH"));
  EXPECT_FALSE(isUsable(""));
  EXPECT_FALSE(isUsable("GBK//TRANSLIT"));
  EXPECT_FALSE(isUsable("/"));
}

TEST(Charset, IsUtf8UnderSeveralNames) {
  EXPECT_TRUE(isUtf8("UTF-8"));
  EXPECT_TRUE(isUtf8("utf8"));
  EXPECT_TRUE(isUtf8("Utf_8"));
  EXPECT_FALSE(isUtf8("UTF-7"));
  EXPECT_FALSE(isUtf8("UTF-80"));
  EXPECT_FALSE(isUtf8(""));
}

TEST(ConvertedText, IsRefusedWhereTheSystemDoesNotFindTheCharset) {
  EXPECT_THROW(convertedToUtf8("NOSUCH", "a", 1), std::bad_alloc);
}

TEST(ConvertedText, MayHoldEveryByte) {
  EXPECT_EQ(convertedToUtf8("CP1251", "\0\xE6", 2), std::string("\0\xD0\xB6", 3));
}

TEST(ConvertedText, OfAStatefulCharsetIsConvertedToItsEnd) {
  EXPECT_EQ(convertedToUtf8("ISO-2022-JP", "\x1B$B2A\x1B(Ba", 9),
            "\xE4\xBE\xA1"
            "a");
  EXPECT_EQ(convertedToUtf8("ISO-2022-JP", "\x1B$B2A", 5), "\xE4\xBE\xA1");
}

TEST(ConvertedText, UnfinishedCharacterOfFourBytesIsReplacedByteByByte) {
  EXPECT_EQ(convertedToUtf8("GB18030", "a\x81\x30\x81", 4),
            "a\xEF\xBF\xBD"
            "0\xEF\xBF\xBD");
}

// Locales that are installed nowhere, so that their names alone count.
class CharsetOfTheUser : public testing::Test {
 protected:
  static void environment(const char* lcAll, const char* lcCtype, const char* lang) {
    setenv("LC_ALL", lcAll, 1);
    setenv("LC_CTYPE", lcCtype, 1);
    setenv("LANG", lang, 1);
  }
};

TEST_F(CharsetOfTheUser, IsThatOfTheFirstVariable) {
  environment("xx_XX.KOI8-R", "xx_XX.GBK", "xx_XX.CP1251");
  EXPECT_EQ(userCharset(), "KOI8-R");
  environment("", "xx_XX.GBK", "xx_XX.CP1251");
  EXPECT_EQ(userCharset(), "GBK");
  environment("", "", "xx_XX.CP1251@modifier");
  EXPECT_EQ(userCharset(), "CP1251");
}

TEST_F(CharsetOfTheUser, IsNotThatOfALaterVariableWhereTheFirstNamesNone) {
  environment("C", "xx_XX.GBK", "xx_XX.CP1251");
  EXPECT_EQ(userCharset(), "UTF-8");
  environment("xx_XX", "xx_XX.GBK", "xx_XX.CP1251");
  EXPECT_EQ(userCharset(), "UTF-8");
}

TEST_F(CharsetOfTheUser, IsUtf8WhereNothingIsSaid) {
  for (const char* const locale :
       {"", "C", "POSIX", "C.UTF-8", "xx_XX.utf8", "xx_XX.NOSUCH", "xx_XX.UTF-16"}) {
    environment(locale, "", "");
    EXPECT_EQ(userCharset(), "UTF-8") << locale;
  }
}

TEST_F(CharsetOfTheUser, IsUtf8WithoutAnyVariable) {
  for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"}) unsetenv(name);
  EXPECT_EQ(userCharset(), "UTF-8");
}

}  // namespace
}  // namespace tolvex::platform
