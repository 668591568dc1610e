#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "platform/platform.h"

namespace tolvex::sim::platform {

// Names of files are bytes here, and go back to the system as they came.
std::vector<std::string> arguments(int argc, const char* const* argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::size_t readStandardInput(char* buffer, std::size_t capacity) {
  ssize_t count = 0;
  do {
    count = ::read(STDIN_FILENO, buffer, capacity);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

std::vector<int> stopSignals() { return {SIGINT, SIGTERM}; }

void surviveClosedOutput() { std::signal(SIGPIPE, SIG_IGN); }

void prepareToListen(std::uintptr_t nativeSocket) {
  // Here the option only skips the wait for old connections; a second listener is refused anyway.
  const int on = 1;
  ::setsockopt(static_cast<int>(nativeSocket), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
}

bool tellsOfResets() { return true; }

}  // namespace tolvex::sim::platform
