// What a command works with.
#pragma once

#include <optional>

#include "app/globals.h"
#include "app/output.h"
#include "library/library.h"
#include "library/service.h"

namespace tolvex::ctl {

class Context {
 public:
  Context(const Globals& options, Output& output) : globals(options), out(output) {}

  const Globals& globals;
  Output& out;

  /// The library, loaded at first use. Throws a Failure when that does not work.
  Library& library() {
    if (!library_) library_ = Library::load(globals);
    return *library_;
  }

  /// The library's exports, with the address settled at first use.
  Service& service() {
    if (!service_) service_.emplace(library(), globals, out);
    return *service_;
  }

 private:
  std::optional<Library> library_;
  std::optional<Service> service_;
};

}  // namespace tolvex::ctl
