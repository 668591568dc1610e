#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "log/fakes.h"
#include "log/nlog.h"

namespace tolvex {
namespace {

// What stands in the brackets of a header.
std::string letterOf(int level) {
  char header[512];
  NLog::FormatHeader("DLL", level, 7, header, sizeof(header));
  const std::string text = header;
  const std::string start = test::kClockStamp + std::string("[");
  const std::string end = "] L:007 M:DLL ";
  if (text.size() < start.size() + end.size()) return "too short: " + text;
  EXPECT_EQ(text.substr(0, start.size()), start);
  EXPECT_EQ(text.substr(text.size() - end.size()), end);
  return text.substr(start.size(), text.size() - start.size() - end.size());
}

TEST(LevelLetter, OfLevel1IsV) { EXPECT_EQ(letterOf(1), "V"); }
TEST(LevelLetter, OfLevel2IsD) { EXPECT_EQ(letterOf(2), "D"); }
TEST(LevelLetter, OfLevel3IsI) { EXPECT_EQ(letterOf(3), "I"); }
TEST(LevelLetter, OfLevel4IsN) { EXPECT_EQ(letterOf(4), "N"); }
TEST(LevelLetter, OfLevel5IsW) { EXPECT_EQ(letterOf(5), "W"); }
TEST(LevelLetter, OfLevel6IsT) { EXPECT_EQ(letterOf(6), "T"); }
TEST(LevelLetter, OfLevel7IsE) { EXPECT_EQ(letterOf(7), "E"); }

TEST(LevelLetter, OfLevel0IsAStar) { EXPECT_EQ(letterOf(0), "*"); }
TEST(LevelLetter, OfLevel8IsAStar) { EXPECT_EQ(letterOf(8), "*"); }
TEST(LevelLetter, OfLevel9IsAStar) { EXPECT_EQ(letterOf(9), "*"); }
TEST(LevelLetter, OfANegativeLevelIsAStar) {
  EXPECT_EQ(letterOf(-1), "*");
  EXPECT_EQ(letterOf(std::numeric_limits<int>::min()), "*");
}
TEST(LevelLetter, OfTheHighestNumberIsAStar) {
  EXPECT_EQ(letterOf(std::numeric_limits<int>::max()), "*");
}

}  // namespace
}  // namespace tolvex
