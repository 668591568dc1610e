// UTF-16, as the system takes it, for the windows/ files only.
#pragma once

#include <windows.h>

#include <string>

namespace tolvex::ctl::platform {

inline std::string toUtf8(const wchar_t* text) {
  const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return "";
  std::string utf8(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the terminator
  return utf8;
}

/// Bytes that are not UTF-8 become U+FFFD.
inline std::wstring toUtf16(const std::string& utf8) {
  const auto length = static_cast<int>(utf8.size());
  const int size = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
  if (size <= 0) return {};
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), size);
  return text;
}

}  // namespace tolvex::ctl::platform
