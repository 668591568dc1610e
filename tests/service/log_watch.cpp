#include "service/log_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "log/nlog.h"
#include "platform/file.h"

namespace tolvex {
namespace {

namespace fs = std::filesystem;

fs::path makeLogger() {
  const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test->test_suite_name()) + '.' + test->name();
  std::replace(name.begin(), name.end(), '/', '-');
  fs::path folder = fs::current_path() / "logs" / name;
  fs::remove_all(folder);
  fs::create_directories(folder);
  const std::ofstream emptyConfiguration(folder / "NLog.ini");
  NLog::GetInstance("DLL", folder.string().c_str());
  return folder / "DLL_0.log";
}

std::string logged() {
  static const fs::path file = makeLogger();
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

std::string withoutTimeStamp(const std::string& line) {
  const std::string shape = "0000-00-00 00:00:00 Ms:000 ";
  std::string digitsAsZeros = line.substr(0, shape.size());
  for (char& c : digitsAsZeros) {
    if (c >= '0' && c <= '9') c = '0';
  }
  if (digitsAsZeros != shape) return "(no time stamp) " + line;
  return line.substr(shape.size());
}

}  // namespace

LogWatch::LogWatch() : start_(logged().size()) {
  NLog::GetInstance()->SetModuleLevel(kModuleDll, 5);
  NLog::GetInstance()->SetModuleLevel(kModuleSocket, 5);
}

std::vector<std::string> LogWatch::records() const {
  const std::string end = platform::kLineEnd;
  std::string text = logged().substr(start_);
  std::vector<std::string> found;
  while (!text.empty()) {
    const std::size_t at = text.find(end);
    if (at == std::string::npos) {
      found.push_back("(no line end) " + text);
      break;
    }
    found.push_back(withoutTimeStamp(text.substr(0, at)));
    text.erase(0, at + end.size());
  }
  return found;
}

}  // namespace tolvex
