#include "platform/paths.h"

#include <windows.h>

#include "platform/windows/wide_text.h"

namespace tolvex::platform {

const char kPathSeparator = '\\';

std::string hostExecutable() {
  char path[260] = {};
  GetModuleFileNameA(nullptr, path, sizeof(path));
  path[sizeof(path) - 1] = '\0';
  return path;
}

std::string hostExecutableUtf8() {
  wchar_t path[256] = {};
  GetModuleFileNameW(nullptr, path, 256);
  path[255] = L'\0';
  char utf8[256 * 3] = {};  // a UTF-16 unit takes at most three bytes of UTF-8
  WideCharToMultiByte(CP_UTF8, 0, path, -1, utf8, sizeof(utf8), nullptr, nullptr);
  return utf8;
}

std::string libraryLogDirectory() { return "c:/VARN/Log/"; }

std::string loggerDefaultDirectory() { return "c:\\Corvane\\Log\\"; }

std::wstring wideText(const char* utf8) {
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8, -1, nullptr, 0);
  if (units <= 1) return {};
  std::wstring wide(static_cast<std::size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8, -1, wide.data(), units);
  wide.pop_back();  // the terminator that -1 counted in
  return wide;
}

}  // namespace tolvex::platform
