#include "counts/till.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "support/os_support.h"
#include "support/scarce_calls.h"
#include "support/scarce_memory.h"

namespace tolvex::test {
namespace {

constexpr char kReplyOfTheTill[] =
    R"({"result":"0","net":"1.250","tare":"0.200","zero":"0","tareType":"N","weightUnit":"kg",)"
    R"("maxRange1":"15","minRange":"40","resolution1":"5","systemVersion":"7.1",)"
    R"("PrinterList":"ticket,label"})";

const char* configOf(LogKeeps keeps) {
  switch (keeps) {
    case LogKeeps::kNothing:
      return "DLL=7\nSocket=7\n";
    case LogKeeps::kEverything:
      return "DLL=-1\nSocket=-1\n";
    case LogKeeps::kItsDefaults:
      break;
  }
  return "";
}

}  // namespace

const char* nameOf(LogKeeps keeps) {
  if (keeps == LogKeeps::kNothing) return "log silent";
  return keeps == LogKeeps::kEverything ? "log of everything" : "log at its defaults";
}

Till::Till() : service_(host_.address()) {
  // The texts of the application are then UTF-8 as they are, whatever the user's locale.
  setEnvironment("LC_ALL", "C.UTF-8");
  for (ServicePort* const port : {&service_.weighing(), &service_.printing()}) {
    port->keepsNoRequests();
    port->alwaysAnswers(kReplyOfTheTill);
  }
}

Till::~Till() { unload(); }

void Till::unload() {
  library_.reset();
  closeLibraryHandles();
}

void Till::loadAfresh(LogKeeps keeps) {
  unload();
  for (const auto& folder : {host_.logFolder(), host_.defaultLogFolder()}) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "NLog.ini", std::ios::binary) << configOf(keeps);
  }
  library_ = std::make_unique<LoadedLibrary>(TOLVEX_LIBRARY);
  haveScarceMemory(*library_);
  haveScarceCalls(*library_);
#define TOLVEX_FIND(name) exports_.name = library_->find<decltype(&::name)>(#name);
  TOLVEX_COUNTED_EXPORTS(TOLVEX_FIND)
#undef TOLVEX_FIND
}

Till::LogSize Till::logSize() const {
  std::ifstream file(host_.logFile(), std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return {static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')), text.size()};
}

}  // namespace tolvex::test
