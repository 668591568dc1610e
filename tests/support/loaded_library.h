// A library loaded at run time, and what it asks of others: to be listed, and to be replaced.
#pragma once

#include <string>
#include <vector>

namespace tolvex::test {

class LoadedLibrary {
 public:
  // Throws std::runtime_error where it cannot be loaded. Each object has the library afresh, so
  // that its first call can be made again: there is one object at a time, and one library in a
  // process. What keeps the library loaded in an application is taken out of it.
  explicit LoadedLibrary(const std::string& path);
  // Unloads it. What it left behind, such as memory and open files, stays.
  ~LoadedLibrary();
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // An export, as a function of the type. Throws std::runtime_error where there is none.
  template <typename Function>
  Function find(const char* name) const {
    return reinterpret_cast<Function>(address(name));
  }

  // The names of the functions that it takes from other libraries.
  std::vector<std::string> imports() const;

  // Has the library, and nobody else in the process, call this function in the place of the import.
  // Returns the function that it called before; null where it has no such import.
  void* replace(const std::string& import, void* function);

 private:
  using Address = void (*)();
  Address address(const char* name) const;

  void* handle_;
};

}  // namespace tolvex::test
