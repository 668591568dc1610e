// Reads what the library wrote to its log files.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "support/log_lines.h"
#include "support/temporary_folder.h"

namespace tolvex::test {

// One log file as lines without their times: "[W] L:172 M:DLL [DLL] setting ...".
class LogReader {
 public:
  explicit LogReader(std::string file) : file_(std::move(file)) {}

  const std::string& file() const { return file_; }

  Lines lines() const { return recordsOf(file_); }

  std::size_t count(const std::string& line) const {
    const Lines all = lines();
    return static_cast<std::size_t>(std::count(all.begin(), all.end(), line));
  }

  bool has(const std::string& line) const { return count(line) > 0; }

  // The lines after the start-up banner, which every log of a used library begins with.
  Lines sinceBanner() const {
    const Lines all = lines();
    const auto isRule = [](const std::string& line) {
      return line == "[T] L:182 M:DLL ===========================================";
    };
    const auto end = std::find_if(all.begin(), all.end(), isRule);
    EXPECT_NE(end, all.end()) << "no banner in " << file_;
    return end == all.end() ? Lines() : Lines(end + 1, all.end());
  }

 private:
  std::string file_;
};

}  // namespace tolvex::test
