#include "platform/shared_library.h"

#include <dlfcn.h>

namespace tolvex::ctl::platform {

const bool kOnWindows = false;

const char* const kLibraryNames[] = {"libtolvex_dll.so", "libtolvex_dll.so.3"};
const int kLibraryNameCount = 2;

LibraryHandle loadLibrary(const std::string& path, std::string& problem) {
  LibraryHandle library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    const char* const reason = ::dlerror();
    problem = reason != nullptr ? reason : "";
  }
  return library;
}

void* findFunction(LibraryHandle library, const char* name) { return ::dlsym(library, name); }

std::string libraryPath(LibraryHandle /*library*/, void* function) {
  Dl_info info{};
  if (::dladdr(function, &info) == 0 || info.dli_fname == nullptr) return "";
  return info.dli_fname;
}

}  // namespace tolvex::ctl::platform
