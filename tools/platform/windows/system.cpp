#include "platform/system.h"

#include <windows.h>

namespace tolvex::ctl::platform {
namespace {

using RtlGetVersion = LONG(WINAPI*)(OSVERSIONINFOW*);

}  // namespace

std::string systemName() {
  // GetVersionEx tells programs without a manifest what they want to hear.
  OSVERSIONINFOW version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  const HMODULE kernel = GetModuleHandleW(L"ntdll.dll");
  const auto tell = kernel == nullptr ? nullptr
                                      : reinterpret_cast<RtlGetVersion>(reinterpret_cast<void*>(
                                            GetProcAddress(kernel, "RtlGetVersion")));
  if (tell == nullptr || tell(&version) != 0) return "Windows";
  return "Windows " + std::to_string(version.dwMajorVersion) + '.' +
         std::to_string(version.dwMinorVersion) + '.' + std::to_string(version.dwBuildNumber);
}

std::string codePageName() { return std::to_string(GetACP()); }

std::string adviceForUtf8() {
  return "Give the application a manifest with <activeCodePage>UTF-8</activeCodePage> (Windows 10 "
         "version 1903 and later), and let it pass UTF-8.";
}

}  // namespace tolvex::ctl::platform
