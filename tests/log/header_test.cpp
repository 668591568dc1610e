#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "log/fakes.h"
#include "log/nlog.h"

namespace tolvex {
namespace {

const std::string kWhole = "2024-03-05 14:07:09 Ms:042 [W] L:044 M:Socket ";

// The header, and a buffer one byte longer than the room it is told of, to see what is written.
struct Formatted {
  explicit Formatted(int size, const char* module = "Socket")
      : buffer(1024, '#'), length(NLog::FormatHeader(module, 5, 44, buffer.data(), size)) {}
  std::string text() const { return buffer.data(); }

  std::vector<char> buffer;
  int length;
};

std::string headerOf(const char* module, unsigned line) {
  char header[512];
  const int length = NLog::FormatHeader(module, 5, line, header, sizeof(header));
  EXPECT_EQ(std::string(header).size(), static_cast<std::size_t>(length));
  return header;
}

TEST(FormatHeader, NamesTimeLevelLineAndModule) { EXPECT_EQ(headerOf("Socket", 44), kWhole); }

TEST(FormatHeader, EndsInTheBlankAfterTheLineWithoutAModule) {
  EXPECT_EQ(headerOf(nullptr, 44), "2024-03-05 14:07:09 Ms:042 [W] L:044 ");
}

TEST(FormatHeader, ShowsAnEmptyModule) {
  EXPECT_EQ(headerOf("", 44), "2024-03-05 14:07:09 Ms:042 [W] L:044 M: ");
}

TEST(FormatHeader, PadsTheLineToThreeDigits) {
  EXPECT_EQ(headerOf("DLL", 7), "2024-03-05 14:07:09 Ms:042 [W] L:007 M:DLL ");
}

TEST(FormatHeader, ShowsALongLineNumberWhole) {
  EXPECT_EQ(headerOf("DLL", 1234), "2024-03-05 14:07:09 Ms:042 [W] L:1234 M:DLL ");
  EXPECT_EQ(headerOf("DLL", 4294967295), "2024-03-05 14:07:09 Ms:042 [W] L:4294967295 M:DLL ");
}

TEST(FormatHeader, PadsEveryPartOfTheTime) {
  test::clockTime = {2031, 1, 2, 3, 4, 5, 6};
  EXPECT_EQ(headerOf("DLL", 1), "2031-01-02 03:04:05 Ms:006 [W] L:001 M:DLL ");
}

TEST(FormatHeader, ShowsTheLargestPartsOfTheTime) {
  test::clockTime = {9999, 12, 31, 23, 59, 60, 999};
  EXPECT_EQ(headerOf("DLL", 1), "9999-12-31 23:59:60 Ms:999 [W] L:001 M:DLL ");
}

TEST(FormatHeader, TakesAPercentSignInTheModuleAsText) {
  EXPECT_EQ(headerOf("%s", 1), "2024-03-05 14:07:09 Ms:042 [W] L:001 M:%s ");
}

TEST(FormatHeader, FitsABufferWithRoomForTheTerminator) {
  const int size = static_cast<int>(kWhole.size()) + 1;
  const Formatted header(size);
  EXPECT_EQ(header.text(), kWhole);
  EXPECT_EQ(header.length, size - 1);
  EXPECT_EQ(header.buffer[kWhole.size() + 1], '#');
}

TEST(FormatHeader, IsCutAndTerminatedInAShorterBuffer) {
  const int size = static_cast<int>(kWhole.size());
  const Formatted header(size);
  EXPECT_EQ(header.text(), kWhole.substr(0, kWhole.size() - 1));
  EXPECT_EQ(header.length, size - 1);
  EXPECT_EQ(header.buffer[kWhole.size()], '#');
}

TEST(FormatHeader, CutsALongModule) {
  const std::string module(600, 'm');
  const Formatted header(512, module.c_str());
  EXPECT_EQ(header.length, 511);
  EXPECT_EQ(header.text(), ("2024-03-05 14:07:09 Ms:042 [W] L:044 M:" + module).substr(0, 511));
  EXPECT_EQ(header.buffer[512], '#');
}

TEST(FormatHeader, LeavesNothingButTheTerminatorInOneByte) {
  const Formatted header(1);
  EXPECT_EQ(header.length, 0);
  EXPECT_EQ(header.text(), "");
  EXPECT_EQ(header.buffer[1], '#');
}

TEST(FormatHeader, LeavesABufferWithoutRoomAlone) {
  const Formatted none(0);
  EXPECT_EQ(none.length, 0);
  EXPECT_EQ(none.buffer[0], '#');
  const Formatted negative(-1);
  EXPECT_EQ(negative.length, 0);
  EXPECT_EQ(negative.buffer[0], '#');
}

}  // namespace
}  // namespace tolvex
