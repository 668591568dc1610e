#include <windows.h>

#include <stdexcept>

#include "support/shared_library.h"

namespace tolvex::test {

SharedLibrary::SharedLibrary(const std::string& path) : handle_(LoadLibraryA(path.c_str())) {
  if (handle_ == nullptr) throw std::runtime_error("cannot load " + path);
}

SharedLibrary::~SharedLibrary() { FreeLibrary(static_cast<HMODULE>(handle_)); }

SharedLibrary::Address SharedLibrary::address(const char* name) const {
  const FARPROC found = GetProcAddress(static_cast<HMODULE>(handle_), name);
  if (found == nullptr) throw std::runtime_error(std::string("there is no ") + name);
  return reinterpret_cast<Address>(found);
}

}  // namespace tolvex::test
