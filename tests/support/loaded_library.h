// A library loaded at run time, and what it asks of others: to be listed, and to be replaced.
#pragma once

#include <string>
#include <vector>

#include "support/shared_library.h"

namespace tolvex::test {

class LoadedLibrary {
 public:
  // Throws std::runtime_error where it cannot be loaded. Each object has the library afresh, so
  // that its first call can be made again: there is one object at a time, and one library in a
  // process. What keeps the library loaded in an application is taken out of it.
  // What it leaves behind when it is unloaded, such as memory and open files, stays.
  explicit LoadedLibrary(const std::string& path);

  // An export, as a function of the type. Throws std::runtime_error where there is none.
  template <typename Function>
  Function find(const char* name) const {
    return library_.find<Function>(name);
  }

  // The names of the functions that it takes from other libraries.
  std::vector<std::string> imports() const;

  // Has the library, and nobody else in the process, call this function in the place of the import.
  // Returns the function that it called before; null where it has no such import.
  void* replace(const std::string& import, void* function);

 private:
  SharedLibrary library_;
};

}  // namespace tolvex::test
