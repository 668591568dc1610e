#include <winsock2.h>
// winsock2.h has to come before windows.h.
#include <windows.h>

#include <csignal>

#include "platform/platform.h"

namespace tolvex::sim::platform {

std::size_t readStandardInput(char* buffer, std::size_t capacity) {
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  DWORD count = 0;
  if (!::ReadFile(input, buffer, static_cast<DWORD>(capacity), &count, nullptr)) return 0;
  return count;
}

std::vector<int> stopSignals() { return {SIGINT, SIGTERM, SIGBREAK}; }

// Writing to a closed pipe is an ordinary error on this system.
void surviveClosedOutput() {}

void prepareToListen(std::uintptr_t nativeSocket) {
  // Without this any other program may bind the same port by asking for reuse, and clients reach
  // one of the two by chance. Ports of ended programs are usable at once without an option.
  const BOOL on = TRUE;
  ::setsockopt(static_cast<SOCKET>(nativeSocket), SOL_SOCKET, SO_EXCLUSIVEADDRUSE,
               reinterpret_cast<const char*>(&on), sizeof on);
}

}  // namespace tolvex::sim::platform
