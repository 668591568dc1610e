#include "platform/process.h"

#include <windows.h>
// shellapi.h needs windows.h.
#include <shellapi.h>

#include <cstdlib>

#include "platform/windows/utf16.h"

namespace tolvex::ctl::platform {

// What main() got has been through the ANSI code page and has lost what that does not know.
std::vector<std::string> arguments(int /*argc*/, const char* const* /*argv*/) {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(toUtf8(words[i]));
  ::LocalFree(words);
  return arguments;
}

// Not ExitProcess, which tells the loaded libraries and waits for them.
void endNow(int exitCode) {
  ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(exitCode));
  std::abort();
}

}  // namespace tolvex::ctl::platform
