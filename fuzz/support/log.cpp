#include "support/log.h"

#include "log/fake_disk.h"
#include "log/fakes.h"
#include "log/nlog.h"

namespace tolvex::fuzz {

void startLog() {
  test::disk = {};
  NLog* const log = NLog::GetInstance("DLL", "log");
  log->SetModuleLevel(kModuleDll, kLevelTraffic);
  log->SetModuleLevel(kModuleSocket, kLevelTraffic);
  test::disk = {};
  test::debuggerTexts.clear();
}

std::string logged() {
  std::string text;
  for (const auto& [path, contents] : test::disk.files) text += contents;
  return text;
}

}  // namespace tolvex::fuzz
