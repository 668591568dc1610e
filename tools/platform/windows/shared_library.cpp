#include "platform/shared_library.h"

#include <windows.h>

#include "platform/windows/utf16.h"

namespace tolvex::ctl::platform {
namespace {

std::string messageOf(DWORD error) {
  wchar_t text[512] = {};
  ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                   text, 512, nullptr);
  std::string message = toUtf8(text);
  message.erase(message.find_last_not_of("\r\n .") + 1);
  return message + " (error " + std::to_string(error) + ")";
}

}  // namespace

const bool kOnWindows = true;

const char* const kLibraryNames[] = {"tolvex_dll.dll"};
const int kLibraryNameCount = 1;

LibraryHandle loadLibrary(const std::string& path, std::string& problem) {
  // No window about a missing file, and the folder of the library before that of the program.
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  HMODULE library = ::LoadLibraryExW(toUtf16(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (library == nullptr) problem = messageOf(::GetLastError());
  return library;
}

void* findFunction(LibraryHandle library, const char* name) {
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(library), name));
}

std::string libraryPath(LibraryHandle library, void* /*function*/) {
  wchar_t path[1024] = {};
  if (::GetModuleFileNameW(static_cast<HMODULE>(library), path, 1023) == 0) return "";
  return toUtf8(path);
}

}  // namespace tolvex::ctl::platform
