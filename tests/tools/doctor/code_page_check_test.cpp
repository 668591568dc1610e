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

}  // namespace
}  // namespace tolvex::ctl
