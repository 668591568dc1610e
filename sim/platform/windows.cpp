#include <winsock2.h>
// winsock2.h has to come before windows.h.
#include <windows.h>
// shellapi.h needs windows.h.
#include <shellapi.h>

#include <csignal>

#include "platform/platform.h"

namespace tolvex::sim::platform {

namespace {

std::string toUtf8(const wchar_t* text) {
  const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return "";
  std::string utf8(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the terminator
  return utf8;
}

}  // namespace

// What main() got has been through the ANSI code page and has lost what that does not know.
std::vector<std::string> arguments(int /*argc*/, const char* const* /*argv*/) {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(toUtf8(words[i]));
  ::LocalFree(words);
  return arguments;
}

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

bool tellsOfResets() { return false; }

}  // namespace tolvex::sim::platform
