#include "platform/process.h"

#include <unistd.h>

namespace tolvex::ctl::platform {

// Names of files are bytes here, and go back to the system as they came.
std::vector<std::string> arguments(int argc, const char* const* argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void endNow(int exitCode) { ::_exit(exitCode); }

}  // namespace tolvex::ctl::platform
