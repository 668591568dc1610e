#include "doctor/code_page_check.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tolvex::ctl {
namespace {

const char kReplacement[] = "\xEF\xBF\xBD";

std::string utf8(const char* text) { return text; }

// A code page of one byte that has nothing but an a umlaut and a euro sign.
std::string poor(const char* text) {
  std::string result;
  for (; *text != '\0'; ++text) {
    const auto byte = static_cast<unsigned char>(*text);
    result += byte < 0x80    ? std::string(1, *text)
              : byte == 0xE4 ? u8"ä"
              : byte == 0x80 ? u8"€"
                             : kReplacement;
  }
  return result;
}

// One of two bytes that has one character.
std::string pairs(const char* text) {
  if (std::strcmp(text, "\xB0\xA1") == 0) return u8"啊";
  return poor(text);
}

TEST(CharactersOf, KnowsUtf8) { EXPECT_EQ(charactersOf(utf8), std::nullopt); }

TEST(CharactersOf, FindsThoseOfOneAndOfTwoBytes) {
  EXPECT_EQ(charactersOf(poor), (std::set<std::string>{u8"ä", u8"€"}));
  EXPECT_EQ(charactersOf(pairs), (std::set<std::string>{u8"ä", u8"€", u8"啊"}));
}

TEST(LostCharacters, AreNamedOnce) {
  EXPECT_EQ(lostCharacters(u8"Käse 5 € für für", {u8"ä", u8"€"}), u8"ü");
  EXPECT_EQ(lostCharacters("plain", {}), "");
}

TEST(CheckCodePage, IsContentWithUtf8) {
  const std::vector<Finding> findings = checkCodePage("UTF-8", utf8, "advice");
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].mark, Mark::Fine);
  EXPECT_EQ(findings[0].text,
            "texts are in code page UTF-8: every script goes through to the service");
}

TEST(CheckCodePage, NamesWhatAPoorOneDoesNotHave) {
  const std::vector<Finding> findings = checkCodePage("poor", poor, "advice");
  ASSERT_EQ(findings.size(), 2u);
  EXPECT_EQ(findings[0].text,
            "texts are in code page poor, which has none of the scripts tried whole");
  EXPECT_EQ(findings[1].text,
            "code page poor does not have: Western European, Central European, Cyrillic, Greek, "
            "Turkish, Hebrew, Arabic, Thai, Chinese, Japanese, Korean");
  EXPECT_EQ(findings[1].fix, "advice");
}

// The letters of Western European, with or without the euro sign.
std::string western(const char* text, const std::string& euro) {
  const std::vector<std::string> letters = {u8"Ä", u8"Ö", u8"Ü", u8"ä", u8"ö", u8"ü", u8"ß", u8"À",
                                            u8"É", u8"È", u8"Ê", u8"Ç", u8"é", u8"è", u8"ê", u8"ç",
                                            u8"à", u8"ñ", u8"Ñ", u8"å", u8"ø", u8"æ", u8"£", euro};
  const std::string bytes = text;
  const auto index = static_cast<unsigned char>(bytes[0]) - std::size_t{0x80};
  return bytes.size() == 1 && index < letters.size() ? letters[index] : u8"\uFFFD";
}
std::string withEuro(const char* text) { return western(text, u8"€"); }
std::string withoutEuro(const char* text) { return western(text, u8"\uFFFD"); }

TEST(CheckCodePage, DoesNotWarnOfOtherScriptsWhenItHasOneWhole) {
  const std::vector<Finding> findings = checkCodePage("western", withEuro, "advice");
  ASSERT_EQ(findings.size(), 3u);
  EXPECT_EQ(findings[0].mark, Mark::Fine);
  EXPECT_EQ(findings[0].text,
            "texts are in code page western: these go through whole: Western European");
  EXPECT_EQ(findings[1].mark, Mark::Info);
  EXPECT_EQ(findings[1].text, u8"texts are in code page western, which lacks ĞİŞğış of Turkish");
  EXPECT_EQ(findings[2].mark, Mark::Info);
}

TEST(CheckCodePage, WarnsOfTheOnlyScriptThatItHasInPart) {
  const std::vector<Finding> findings = checkCodePage("old western", withoutEuro, "advice");
  ASSERT_GE(findings.size(), 2u);
  EXPECT_EQ(findings[1].mark, Mark::Warning);
  EXPECT_EQ(findings[1].text,
            u8"texts are in code page old western, which lacks € of Western European");
  EXPECT_EQ(findings[1].fix, "advice");
}

}  // namespace
}  // namespace tolvex::ctl
