// Reads what the library wrote to its log files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tolvex::testing {

// The bytes of a file; empty where there is none.
inline std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

#ifdef _WIN32
constexpr char kLogLineEnd[] = "\r\n";
#else
constexpr char kLogLineEnd[] = "\n";
#endif

// "2024-03-05 14:07:09 Ms:042 ", with nothing said about the numbers.
inline bool beginsWithTime(const std::string& line) {
  const std::string shape = "dddd-dd-dd dd:dd:dd Ms:ddd ";
  if (line.size() < shape.size()) return false;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    const bool digit = line[i] >= '0' && line[i] <= '9';
    if (shape[i] == 'd' ? !digit : line[i] != shape[i]) return false;
  }
  return true;
}

// One log file as lines without their times: "[W] L:172 M:DLL [DLL] setting ...". Every line must
// end the way this system ends lines, and begin with a time unless it is a text without a header.
class LogReader {
 public:
  explicit LogReader(std::filesystem::path file) : file_(std::move(file)) {}

  const std::filesystem::path& file() const { return file_; }

  std::vector<std::string> lines() const {
    const std::string bytes = bytesOf(file_);
    const std::string end = kLogLineEnd;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t next = bytes.find(end, at);
      EXPECT_NE(next, std::string::npos) << "the last line is torn";
      if (next == std::string::npos) break;
      std::string line = bytes.substr(at, next - at);
      if (beginsWithTime(line)) line.erase(0, kTimeLength);
      lines.push_back(line);
      at = next + end.size();
    }
    return lines;
  }

  bool has(const std::string& line) const { return count(line) > 0; }

  unsigned count(const std::string& line) const {
    unsigned found = 0;
    for (const std::string& candidate : lines()) found += candidate == line ? 1U : 0U;
    return found;
  }

  // The lines after the start-up banner, which every log of a used library begins with.
  std::vector<std::string> sinceBanner() const {
    const std::vector<std::string> all = lines();
    unsigned rules = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
      rules += all[i].find(" M:DLL =====================") != std::string::npos ? 1U : 0U;
      if (rules == 2) return {all.begin() + static_cast<std::ptrdiff_t>(i) + 1, all.end()};
    }
    ADD_FAILURE() << "no banner in " << file_;
    return {};
  }

 private:
  static constexpr std::size_t kTimeLength = 27;
  std::filesystem::path file_;
};

}  // namespace tolvex::testing
