#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace tolvex::ctl {

/// The options that every command has. Paths are UTF-8.
struct Globals {
  bool json = false;
  bool verbose = false;
  std::string host;  // dotted IPv4; empty: as the library finds it
  std::optional<std::chrono::milliseconds> timeout;
  std::string library;  // path; empty: searched for
  std::string app;      // a POS application's executable or its folder; empty: none
};

}  // namespace tolvex::ctl
