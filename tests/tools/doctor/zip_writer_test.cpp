#include "bundle/zip_writer.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tolvex::ctl {
namespace {

constexpr ZipTime kTime = {0x5865, 0x70E4};  // 2024-03-05 14:07:08

std::uint32_t number(const std::string& bytes, std::size_t at, unsigned size) {
  std::uint32_t value = 0;
  for (unsigned i = 0; i < size; ++i) {
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  }
  return value;
}

TEST(ZipWriter, WritesAnEmptyArchive) {
  std::ostringstream out;
  ZipWriter zip(out, kTime);
  EXPECT_TRUE(zip.finish());
  EXPECT_EQ(out.str(), std::string("PK\5\6") + std::string(18, '\0'));
}

TEST(ZipWriter, TellsSizesChecksumNameAndTimeInBothHeaders) {
  std::ostringstream out;
  ZipWriter zip(out, kTime);
  zip.begin("log/a.txt");
  zip.write("1234");
  zip.write("56789");
  ASSERT_TRUE(zip.finish());
  const std::string bytes = out.str();
  const std::size_t central = bytes.find("PK\1\2");
  ASSERT_NE(central, std::string::npos);
  EXPECT_EQ(number(bytes, 0, 4), 0x04034B50u);
  EXPECT_EQ(number(bytes, 14, 4), 0xCBF43926u) << "CRC-32 of 123456789";
  EXPECT_EQ(number(bytes, 18, 4), central - 30 - 9) << "packed size";
  EXPECT_EQ(number(bytes, 22, 4), 9u);
  EXPECT_EQ(bytes.substr(30, 9), "log/a.txt");
  EXPECT_EQ(bytes.substr(6, 22), bytes.substr(central + 8, 22));
  EXPECT_EQ(number(bytes, 10, 2), kTime.time);
  EXPECT_EQ(number(bytes, 12, 2), kTime.date);
}

TEST(ZipWriter, PacksWhatRepeats) {
  std::ostringstream out;
  ZipWriter zip(out, kTime);
  zip.begin("a");
  for (int i = 0; i < 10000; ++i) zip.write("the same line of a log, over and over again\n");
  ASSERT_TRUE(zip.finish());
  EXPECT_LT(out.str().size(), 10000u);
}

TEST(ZipWriter, ReportsAStreamThatFails) {
  std::ostringstream out;
  ZipWriter zip(out, kTime);
  zip.add("a", "text");
  out.setstate(std::ios::badbit);
  EXPECT_FALSE(zip.finish());
}

}  // namespace
}  // namespace tolvex::ctl
