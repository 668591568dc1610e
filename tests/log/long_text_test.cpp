#include "log/logger_test.h"

namespace tolvex {
namespace {

using test::Lines;

class LongText : public test::LoggerTest {
 protected:
  LongText() { open(); }

  static void write(const std::string& text, int level = 6) {
    NLog::LogString(NLog::GetInstance(), "DLL", level, 77, text);
  }
  static std::string header() { return "2024-03-05 14:07:09 Ms:042 [T] L:077 M:DLL "; }
};

TEST_F(LongText, FollowsItsHeaderOnALineOfItsOwn) {
  write("Tomatoes 1.25 kg");
  EXPECT_EQ(lines(), (Lines{header(), "Tomatoes 1.25 kg"}));
}

TEST_F(LongText, IsNotCut) {
  const std::string text(100000, 't');
  write(text);
  EXPECT_EQ(lines(), (Lines{header(), text}));
}

TEST_F(LongText, IsNoFormat) {
  write("100%s %n %d");
  EXPECT_EQ(lines(), (Lines{header(), "100%s %n %d"}));
}

TEST_F(LongText, MayBeEmpty) {
  write("");
  EXPECT_EQ(lines(), (Lines{header(), ""}));
}

TEST_F(LongText, KeepsItsLines) {
  write("a\nb\n");
  EXPECT_EQ(lines(), (Lines{header(), "a", "b", ""}));
}

TEST_F(LongText, KeepsLineEndsWhereverTheyFall) {
  // Around the size that the file takes at a time.
  for (std::size_t length = 2040; length <= 2056; ++length) {
    write(std::string(length, 'a') + "\n" + std::string(length, 'b'));
    const Lines found = lines();
    ASSERT_GE(found.size(), 3u);
    EXPECT_EQ(found[found.size() - 2], std::string(length, 'a'));
    EXPECT_EQ(found.back(), std::string(length, 'b'));
  }
}

TEST_F(LongText, IsHeldBackBelowTheThreshold) {
  write("traffic", 2);
  EXPECT_FALSE(test::exists(file(0)));
}

TEST_F(LongText, IsWrittenAtTheThreshold) {
  NLog::GetInstance()->SetModuleLevel("DLL", 6);
  write("trace");
  EXPECT_EQ(lines(), (Lines{header(), "trace"}));
}

TEST_F(LongText, OfASilencedModuleIsHeldBack) {
  NLog::GetInstance()->SetModuleLevel("DLL", 0);
  write("trace", 7);
  EXPECT_FALSE(test::exists(file(0)));
}

TEST_F(LongText, IsShownToTheDebuggerAfterItsHeader) {
  write("a\nb");
  EXPECT_EQ(test::debuggerTexts, (Lines{header(), "a\nb"}));
}

TEST_F(LongText, HasAHeaderWithoutModulePartWithoutAModule) {
  NLog::LogString(NLog::GetInstance(), nullptr, 6, 77, "text");
  EXPECT_EQ(lines(), (Lines{"2024-03-05 14:07:09 Ms:042 [T] L:077 ", "text"}));
}

}  // namespace
}  // namespace tolvex
