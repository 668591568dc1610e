// The samples of the settings, as the readers of the library understand them.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "config/ini_reader.h"
#include "log/log_config.h"

namespace tolvex {
namespace {

using Thresholds = std::vector<std::pair<std::string, int>>;

std::string textOf(const char* name) {
  std::ifstream file(std::string(TOLVEX_SAMPLE_FOLDER) + '/' + name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

// As the packages for Windows hold it.
std::string withCarriageReturns(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

// With every setting that the file only shows switched on.
std::string switchedOn(std::string text) {
  for (const char* shown : {";DLL", ";Socket"}) {
    for (std::size_t at; (at = text.find(shown)) != std::string::npos;) text.erase(at, 1);
  }
  return text;
}

Thresholds thresholdsIn(const std::string& text) {
  Thresholds thresholds;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = text.find('\n', begin);
    Threshold threshold{};
    if (readThreshold(std::string_view(text).substr(begin, end - begin), threshold)) {
      thresholds.emplace_back(threshold.module, threshold.level);
    }
    begin = end == std::string::npos ? text.size() : end + 1;
  }
  return thresholds;
}

TEST(SampleSettings, HoldTheAddressOfThisMachineAndNothingElse) {
  const std::string text = textOf("zelkad_ip_config.ini");
  const config::IniMap expected{{"zelkad.ip_addr", "127.0.0.1"}};
  EXPECT_EQ(config::parseIni(text), expected);
  EXPECT_EQ(config::parseIni(withCarriageReturns(text)), expected);
}

TEST(SampleSettings, ShowHowResyncIsSwitchedOn) {
  std::string text = textOf("zelkad_ip_config.ini");
  text.erase(text.find(";resync"), 1);
  const config::IniMap expected{{"zelkad.ip_addr", "127.0.0.1"}, {"zelkad.resync", "1"}};
  EXPECT_EQ(config::parseIni(text), expected);
  EXPECT_EQ(config::parseIni(withCarriageReturns(text)), expected);
}

TEST(SampleSettings, LeaveTheLogAsItIs) {
  EXPECT_EQ(thresholdsIn(textOf("NLog.ini")), Thresholds{});
}

TEST(SampleSettings, ShowThresholdsThatCountOnceTheyAreSwitchedOn) {
  const std::string text = switchedOn(textOf("NLog.ini"));
  const Thresholds expected{{"DLL", 2}, {"DLL", 6}, {"Socket", 7}};
  EXPECT_EQ(thresholdsIn(text), expected);
  EXPECT_EQ(thresholdsIn(withCarriageReturns(text)), expected);
}

}  // namespace
}  // namespace tolvex
