#include "platform/text_encoding.h"

#include <windows.h>

#include <climits>
#include <cstring>

namespace tolvex::platform {
namespace {

// The system is asked for lengths with the terminator, so that a text that cannot be converted is
// told by a length of 0. Each buffer has room for a terminator more, whatever the system writes.
std::wstring wideAnsi(const char* ansi) {
  const int length = MultiByteToWideChar(CP_ACP, 0, ansi, -1, nullptr, 0);
  if (length <= 0) return {};
  std::wstring wide(static_cast<std::size_t>(length) + 1, L'\0');
  if (MultiByteToWideChar(CP_ACP, 0, ansi, -1, wide.data(), length) == 0) return {};
  wide.resize(wide.find(L'\0'));
  return wide;
}

std::string narrowUtf8(const std::wstring& wide) {
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), -1, nullptr, 0, nullptr, nullptr);
  if (length <= 0) return {};
  std::string utf8(static_cast<std::size_t>(length) + 1, '\0');
  if (WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), -1, utf8.data(), length, nullptr, nullptr) ==
      0) {
    return {};
  }
  utf8.resize(utf8.find('\0'));
  return utf8;
}

}  // namespace

std::string AnsiToUtf8(const char* text) {
  // The system counts in int, the terminator included.
  if (text == nullptr || std::strlen(text) >= INT_MAX) return {};
  return narrowUtf8(wideAnsi(text));
}

}  // namespace tolvex::platform
