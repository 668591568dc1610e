#include "support/log_lines.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::test {
namespace {

const std::string kStampShape = "dddd-dd-dd dd:dd:dd Ms:ddd ";

bool beginsWithStamp(const std::string& line) {
  if (line.size() < kStampShape.size()) return false;
  for (std::size_t i = 0; i < kStampShape.size(); ++i) {
    const bool digit = line[i] >= '0' && line[i] <= '9';
    if (kStampShape[i] == 'd' ? !digit : line[i] != kStampShape[i]) return false;
  }
  const auto number = [&line](std::size_t at, std::size_t digits) {
    return std::atoi(line.substr(at, digits).c_str());
  };
  const int month = number(5, 2);
  const int day = number(8, 2);
  return number(0, 4) >= 2020 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
         number(11, 2) <= 23 && number(14, 2) <= 59 && number(17, 2) <= 60;
}

}  // namespace

Lines splitLines(const std::string& bytes) {
  Lines lines;
  std::size_t start = 0;
  for (std::size_t end; (end = bytes.find(kLineEnd, start)) != std::string::npos;) {
    lines.push_back(bytes.substr(start, end - start));
    start = end + kLineEnd.size();
  }
  EXPECT_EQ(bytes.substr(start), "") << "a line without an end";
  return lines;
}

Lines linesOf(const std::string& path) { return splitLines(readBytes(path)); }

Lines recordsOf(const std::string& path) {
  Lines lines = linesOf(path);
  for (std::string& line : lines) {
    if (beginsWithStamp(line)) line.erase(0, kStampShape.size());
  }
  return lines;
}

}  // namespace tolvex::test
