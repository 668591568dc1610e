#include "support/log_watch.h"

#include "log/nlog.h"
#include "support/log_lines.h"
#include "support/temporary_folder.h"

namespace tolvex {
namespace {

std::string startLogger() {
  static const test::TemporaryFolder folder;
  test::writeBytes(folder.file("NLog.ini"), "");
  NLog::GetInstance("DLL", folder.path().c_str());
  return folder.file("DLL_0.log");
}

test::Lines logged() {
  static const std::string file = startLogger();
  return test::exists(file) ? test::recordsOf(file) : test::Lines();
}

}  // namespace

LogWatch::LogWatch() : start_(logged().size()) {
  NLog::GetInstance()->SetModuleLevel(kModuleDll, 5);
  NLog::GetInstance()->SetModuleLevel(kModuleSocket, 5);
}

std::vector<std::string> LogWatch::records() const {
  const test::Lines all = logged();
  return {all.begin() + static_cast<std::ptrdiff_t>(start_), all.end()};
}

}  // namespace tolvex
