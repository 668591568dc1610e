// The product's library, loaded while the program runs.
#pragma once

#include <string>

#include "app/globals.h"
#include "platform/shared_library.h"

namespace tolvex::ctl {

/// An export and its type, for Library::get and Service.
template <typename Function>
struct Export {
  const char* name;
};

/// TOLVEX_EXPORT(cutPaper): the export with the type that exports.h declares.
#define TOLVEX_EXPORT(function) (::tolvex::ctl::Export<decltype(::function)>{#function})

class Library {
 public:
  /// Loads the one that --library names; else the one beside the application of --app, if there is
  /// one; else the one beside this program, or where the system looks for libraries. Throws a
  /// Failure that says what was tried.
  static Library load(const Globals& globals);

  /// The address of an export, null when the library has none of this name.
  void* find(const char* name) const;

  /// The same, as a function. Throws a Failure when there is none.
  template <typename Function>
  Function* get(Export<Function> wanted) const {
    return reinterpret_cast<Function*>(findOrThrow(wanted.name));
  }
  void* findOrThrow(const char* name) const;

  /// Where it was loaded from, in UTF-8.
  const std::string& path() const { return path_; }

  /// Its version, for example "3.0.3.2", as its file tells it; empty when it does not.
  std::string version() const;

 private:
  Library(platform::LibraryHandle handle, const std::string& path);

  platform::LibraryHandle handle_;
  std::string path_;
};

}  // namespace tolvex::ctl
