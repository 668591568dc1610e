#include "platform/text_encoding.h"

#include <windows.h>

#include <climits>
#include <cstring>
#include <new>

namespace tolvex::platform {
namespace {

// What the system cannot convert now, for want of memory, is no empty text.
void throwWithoutMemory() {
  const DWORD error = GetLastError();
  if (error == ERROR_NOT_ENOUGH_MEMORY || error == ERROR_OUTOFMEMORY) throw std::bad_alloc();
}

// The system is asked for lengths with the terminator, so that a text that cannot be converted is
// told by a length of 0. Each buffer has room for a terminator more, whatever the system writes.
std::wstring wideAnsi(const char* ansi) {
  const int length = MultiByteToWideChar(CP_ACP, 0, ansi, -1, nullptr, 0);
  if (length <= 0) {
    throwWithoutMemory();
    return {};
  }
  std::wstring wide(static_cast<std::size_t>(length) + 1, L'\0');
  if (MultiByteToWideChar(CP_ACP, 0, ansi, -1, wide.data(), length) == 0) {
    throwWithoutMemory();
    return {};
  }
  wide.resize(wide.find(L'\0'));
  return wide;
}

std::string narrowUtf8(const std::wstring& wide) {
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), -1, nullptr, 0, nullptr, nullptr);
  if (length <= 0) {
    throwWithoutMemory();
    return {};
  }
  std::string utf8(static_cast<std::size_t>(length) + 1, '\0');
  if (WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), -1, utf8.data(), length, nullptr, nullptr) ==
      0) {
    throwWithoutMemory();
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
