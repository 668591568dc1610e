#include "base/printable.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

constexpr std::size_t kPlenty = 1000;

TEST(Printable, LeavesOrdinaryTextAlone) {
  const std::string json = R"({"cmd":"getweight","text":"a\\b\"c"})";
  EXPECT_EQ(printable(json, kPlenty), json);
  EXPECT_EQ(printable("", kPlenty), "");
}

TEST(Printable, KeepsUtf8OfEveryLength) {
  const std::string text = "\xC3\xA9 \xE4\xBB\xB7 \xF0\x9F\x8D\x8E";
  EXPECT_EQ(printable(text, kPlenty), text);
}

TEST(Printable, EscapesControlCharacters) {
  EXPECT_EQ(printable("a\r\n\tb\x1B[2J\x7F", kPlenty), R"(a\x0d\x0a\x09b\x1b[2J\x7f)");
  EXPECT_EQ(printable(std::string_view("\0", 1), kPlenty), R"(\x00)");
  // U+009B starts a command on some terminals.
  EXPECT_EQ(printable("\xC2\x9B", kPlenty), R"(\xc2\x9b)");
  EXPECT_EQ(printable("\xC2\xA0", kPlenty), "\xC2\xA0");
}

TEST(Printable, EscapesWhatTurnsTheDirectionOrEndsALine) {
  EXPECT_EQ(printable("\xE2\x80\xA8\xE2\x80\xAE\xE2\x80\xAC", kPlenty),
            R"(\xe2\x80\xa8\xe2\x80\xae\xe2\x80\xac)");
  EXPECT_EQ(printable("\xE2\x81\xA6\xE2\x81\xA9", kPlenty), R"(\xe2\x81\xa6\xe2\x81\xa9)");
  // The characters before and after them.
  const std::string others = "\xE2\x80\xA7\xE2\x80\xAF\xE2\x81\xA5\xE2\x81\xAA";
  EXPECT_EQ(printable(others, kPlenty), others);
}

TEST(Printable, EscapesCharactersThatAreNone) {
  EXPECT_EQ(printable("\xE0\x80\x80", kPlenty), R"(\xe0\x80\x80)");
  EXPECT_EQ(printable("\xED\xA0\x80", kPlenty), R"(\xed\xa0\x80)");
  EXPECT_EQ(printable("\xF4\x90\x80\x80", kPlenty), R"(\xf4\x90\x80\x80)");
  // The replacement character itself is one.
  EXPECT_EQ(printable("\xEF\xBF\xBD", kPlenty), "\xEF\xBF\xBD");
}

TEST(Printable, EscapesBytesThatAreNoUtf8) {
  EXPECT_EQ(printable("\xFF\x80", kPlenty), R"(\xff\x80)");
  EXPECT_EQ(printable("\xC3(", kPlenty), R"(\xc3()");
  EXPECT_EQ(printable("\xE4\xBB", kPlenty), R"(\xe4\xbb)");
  EXPECT_EQ(printable("\xC0\xAF", kPlenty), R"(\xc0\xaf)");
}

TEST(Printable, CutsLongTextAndSaysHowLongItWas) {
  EXPECT_EQ(printable("12345", 5), "12345");
  EXPECT_EQ(printable("123456", 5), "12345... (6 bytes)");
}

TEST(Printable, CutsBetweenCharacters) {
  EXPECT_EQ(printable("ab\xE4\xBB\xB7", 4), "ab... (5 bytes)");
  EXPECT_EQ(printable("ab\xE4\xBB\xB7", 5), "ab\xE4\xBB\xB7");
}

}  // namespace
}  // namespace tolvex::sim
