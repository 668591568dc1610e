// What holds for the texts of every character set. Each set is an instance of its own, which runs
// in a locale that has the set.
#include <gtest/gtest.h>

#include <clocale>
#include <thread>
#include <vector>

#include "platform/ansi_texts.h"
#include "platform/text_encoding.h"

namespace tolvex::platform {
namespace {

class AnsiText : public testing::TestWithParam<test::AnsiText> {
 protected:
  const std::string ansi_ = GetParam().ansi;
  const std::string utf8_ = GetParam().utf8;
};

TEST_P(AnsiText, IsConverted) { EXPECT_EQ(AnsiToUtf8(ansi_.c_str()), utf8_); }

TEST_P(AnsiText, OfAsciiIsKept) {
  std::string ascii;
  for (char c = 1; c < 0x7F; ++c) ascii += c;
  EXPECT_EQ(AnsiToUtf8(ascii.c_str()), ascii);
}

TEST_P(AnsiText, MayBeEmpty) { EXPECT_EQ(AnsiToUtf8(""), ""); }

TEST_P(AnsiText, MayBeNull) { EXPECT_EQ(AnsiToUtf8(nullptr), ""); }

TEST_P(AnsiText, EndsAtItsTerminator) {
  const std::string longer = ansi_ + '\0' + ansi_;
  EXPECT_EQ(AnsiToUtf8(longer.c_str()), utf8_);
}

TEST_P(AnsiText, OfAnyLengthIsConverted) {
  for (const std::size_t length : {1u, 15u, 16u, 255u, 4095u, 4096u, 4097u}) {
    const std::string filler(length, 'x');
    EXPECT_EQ(AnsiToUtf8((filler + ansi_).c_str()), filler + utf8_);
  }
}

TEST_P(AnsiText, OfAMebibyteIsConverted) {
  const std::size_t times = (std::size_t{1} << 20) / ansi_.size() + 1;
  EXPECT_TRUE(AnsiToUtf8(test::repeated(ansi_, times).c_str()) == test::repeated(utf8_, times));
}

TEST_P(AnsiText, IsConvertedByManyThreadsAtOnce) {
  std::vector<std::string> converted(8);
  std::vector<std::thread> threads;
  for (std::string& result : converted) {
    threads.emplace_back([this, &result] {
      for (int i = 0; i < 100; ++i) result += AnsiToUtf8(ansi_.c_str());
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(converted, std::vector<std::string>(8, test::repeated(utf8_, 100)));
}

TEST_P(AnsiText, IsConvertedWithoutTouchingTheHostsLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  AnsiToUtf8(ansi_.c_str());
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

INSTANTIATE_TEST_SUITE_P(Gbk, AnsiText, testing::Values(test::kGbk));
INSTANTIATE_TEST_SUITE_P(Cp1251, AnsiText, testing::Values(test::kCp1251));
INSTANTIATE_TEST_SUITE_P(Latin1, AnsiText, testing::Values(test::kLatin1));
INSTANTIATE_TEST_SUITE_P(Utf8, AnsiText,
                         testing::Values(test::AnsiText{test::kGbk.utf8, test::kGbk.utf8}));

}  // namespace
}  // namespace tolvex::platform
