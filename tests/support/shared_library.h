// Libraries that a test loads at run time.
#pragma once

#include <string>

namespace tolvex::test {

// A library that is loaded at run time, by its path.
class SharedLibrary {
 public:
  // Throws std::runtime_error where it cannot be loaded.
  explicit SharedLibrary(const std::string& path);
  ~SharedLibrary();  // gives it back; it goes when nobody else holds it
  SharedLibrary(const SharedLibrary&) = delete;
  SharedLibrary& operator=(const SharedLibrary&) = delete;

  // A function of it. Throws std::runtime_error where there is none of that name.
  template <typename Function>
  Function find(const char* name) const {
    return reinterpret_cast<Function>(address(name));
  }

  // What the system calls it: as dlopen or LoadLibrary gave it.
  void* handle() const { return handle_; }

 private:
  using Address = void (*)();
  Address address(const char* name) const;

  void* handle_;
};

}  // namespace tolvex::test
