#pragma once

#include <cstddef>
#include <string_view>

namespace tolvex::ctl {

/// The text without the blanks, tabs and line ends at its ends.
inline std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \r\n\t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace tolvex::ctl
