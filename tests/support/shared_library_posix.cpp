#include <dlfcn.h>

#include <stdexcept>

#include "support/shared_library.h"

namespace tolvex::test {

SharedLibrary::SharedLibrary(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
}

SharedLibrary::~SharedLibrary() { dlclose(handle_); }

SharedLibrary::Address SharedLibrary::address(const char* name) const {
  void* const found = dlsym(handle_, name);
  if (found == nullptr) throw std::runtime_error(dlerror());
  return reinterpret_cast<Address>(found);
}

}  // namespace tolvex::test
