#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tolvex::ctl {

/// Reads a whole number in decimal digits, with an optional '-' and nothing else around it.
inline std::optional<std::int64_t> parseWholeNumber(std::string_view text) {
  std::int64_t number = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  if (error != std::errc() || end != last) return std::nullopt;
  return number;
}

}  // namespace tolvex::ctl
