// This process: how it was called and how it ends.
#pragma once

#include <string>
#include <vector>

namespace tolvex::ctl::platform {

/// The program's arguments in UTF-8, without its name, from what main() got.
std::vector<std::string> arguments(int argc, const char* const* argv);

/// Ends the process at once, whatever its threads are at. Nothing is flushed or destroyed.
[[noreturn]] void endNow(int exitCode);

}  // namespace tolvex::ctl::platform
