#include "support/library.h"

#include <dlfcn.h>

#include <cstring>
#include <stdexcept>

namespace bench {
namespace {

template <typename Function>
void find(void* module, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(module, name));
  if (function == nullptr) throw std::runtime_error(std::string("the library has no ") + name);
}

}  // namespace

Library loadLibrary(const std::string& path) {
  void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw std::runtime_error(dlerror());
  Library library;
  find(module, "SetServerIpForRemoteAccess", library.setServerIp);
  find(module, "checkConnection", library.checkConnection);
  find(module, "read_standard", library.readStandard);
  find(module, "sendRawCmdToLC", library.sendRawCmdToLC);
  find(module, "printTextById", library.printTextById);
  find(module, "PrintText", library.printText);
  find(module, "PrintTextByPaperWidth", library.printTextByPaperWidth);
  find(module, "BeginPrint", library.beginPrint);
  find(module, "getLastErrCode", library.getLastErrCode);
  return library;
}

Library loadLibrary(const std::string& path, const std::string& address) {
  const Library library = loadLibrary(path);
  if (library.setServerIp(address.c_str()) != TOLVEX_OK) {
    throw std::runtime_error("the library refuses " + address);
  }
  return library;
}

void connectLibrary(const Library& library, const std::string& address) {
  if (library.setServerIp(address.c_str()) != TOLVEX_OK || library.checkConnection() != 1) {
    throw std::runtime_error("the library does not reach " + address);
  }
}

void readWeight(const Library& library) {
  // The fields at their places: the net weight runs into the mark, 'P'.
  constexpr char kNetAndMark[] = "01.2500P";
  char record[sizeof(tolvex_weight)] = {};
  if (library.readStandard(record) != TOLVEX_OK ||
      std::memcmp(record + 1, kNetAndMark, sizeof(kNetAndMark) - 1) != 0) {
    throw std::runtime_error("read_standard failed, or read another weight");
  }
}

}  // namespace bench
