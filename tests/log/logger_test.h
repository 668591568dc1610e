// The logger in a folder of its own, with a clock that stands still.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "log/fakes.h"
#include "log/nlog.h"
#include "support/log_lines.h"
#include "support/temporary_folder.h"

namespace tolvex::test {

// The logger lives as long as its process, and CTest gives each test a process of its own.
class LoggerTest : public testing::Test {
 protected:
  // NLog.ini is there and empty until a test says otherwise, so that a log begins with the test's
  // own record.
  LoggerTest() { configure(""); }

  void configure(const std::string& text) const { writeBytes(folder_.file("NLog.ini"), text); }
  void configureNothing() const { removeTree(folder_.file("NLog.ini")); }

  NLog* open() const { return NLog::GetInstance("DLL", folder_.path().c_str()); }

  // Writes one record, of the given length where one is given.
  static void log(const std::string& message) {
    NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "%s", message.c_str());
  }
  static std::string record(const std::string& message) {
    return kClockStamp + ("[E] L:001 M:DLL " + message);
  }

  std::string file(unsigned index) const {
    return folder_.file("DLL_" + std::to_string(index) + ".log");
  }
  Lines lines(unsigned index = 0) const { return linesOf(file(index)); }

  // What the call prints to standard output.
  template <typename Call>
  static std::string printedBy(Call call) {
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
  }

  TemporaryFolder folder_;
};

}  // namespace tolvex::test
