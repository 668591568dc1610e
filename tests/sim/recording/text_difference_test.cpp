#include "recording/text_difference.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(TextDifference, IsMarkedBelowItsFirstByte) {
  EXPECT_EQ(describeDifference(R"({"distance":"5"})", R"({"distance":"7"})"),
            "  expected  {\"distance\":\"5\"}\n"
            "  came      {\"distance\":\"7\"}\n"
            "                         ^ byte 14");
}

TEST(TextDifference, MayBeAnEnd) {
  EXPECT_EQ(describeDifference("ab", "abc"),
            "  expected  ab\n"
            "  came      abc\n"
            "              ^ byte 3");
  EXPECT_EQ(describeDifference("a", ""),
            "  expected  a\n"
            "  came      \n"
            "            ^ byte 1");
}

TEST(TextDifference, StandsBelowWideAndEscapedCharacters) {
  EXPECT_EQ(describeDifference("谢\nx", "谢\ny"),
            "  expected  谢\\x0ax\n"
            "  came      谢\\x0ay\n"
            "                  ^ byte 5");
}

TEST(TextDifference, InsideACharacterMarksTheCharacter) {
  EXPECT_EQ(describeDifference("K\xC3\xA4", "K\xC3\xB6"),
            "  expected  K\xC3\xA4\n"
            "  came      K\xC3\xB6\n"
            "             ^ byte 3");
}

TEST(TextDifference, OfLongTextsShowsItsSurroundings) {
  const std::string before(100, 'a');
  const std::string behind(100, 'z');
  EXPECT_EQ(describeDifference(before + "1" + behind, before + "2" + behind),
            "  expected  ..." + std::string(56, 'a') + "1" + std::string(23, 'z') +
                "...\n"
                "  came      ..." +
                std::string(56, 'a') + "2" + std::string(23, 'z') + "...\n" +
                std::string(12 + 3 + 56, ' ') + "^ byte 101");
}

}  // namespace
}  // namespace tolvex::sim
