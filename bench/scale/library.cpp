#include "library.h"

#include <dlfcn.h>

#include <stdexcept>

namespace bench::scale {
namespace {

void* load(const std::string& path) {
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return library;
}

template <typename Function>
void find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function == nullptr) throw std::runtime_error(std::string("the library has no ") + name);
}

}  // namespace

Library::Library(const std::string& path) {
  // With a separator, lest the system's own folders are searched.
  void* const library = load(path.find('/') == std::string::npos ? "./" + path : path);
  find(library, "SetServerIpForRemoteAccess", setAddress);
  find(library, "checkConnection", checkConnection);
  find(library, "read_standard", readStandard);
  find(library, "sendRawCmdToLC", rawWeighing);
  find(library, "printTextById", printNow);
  find(library, "PrintText", printText);
  find(library, "BeginPrint", beginPrint);
}

void Library::use(const std::string& address) const {
  if (setAddress(address.c_str()) != TOLVEX_OK || checkConnection() != 1) {
    throw std::runtime_error("the library does not reach " + address);
  }
}

}  // namespace bench::scale
