#include "platform/ansi_text.h"

#include <windows.h>

#include "platform/windows/utf16.h"

namespace tolvex::ctl::platform {

std::optional<std::string> toAnsi(const std::string& utf8) {
  if (::GetACP() == CP_UTF8 || utf8.empty()) return utf8;
  const std::wstring wide = toUtf16(utf8);
  const auto units = static_cast<int>(wide.size());
  BOOL replaced = FALSE;
  // A character that only resembles the wanted one is not the wanted one.
  const int size = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), units, nullptr,
                                         0, nullptr, &replaced);
  if (size <= 0 || replaced != FALSE) return std::nullopt;
  std::string ansi(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), units, ansi.data(), size,
                        nullptr, nullptr);
  return ansi;
}

std::string ansiName() { return "code page " + std::to_string(::GetACP()); }

}  // namespace tolvex::ctl::platform
