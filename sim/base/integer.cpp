#include "base/integer.h"

#include <charconv>
#include <system_error>

namespace tolvex::sim {

std::optional<int> parseInteger(std::string_view text) {
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || rest != end) return std::nullopt;
  return value;
}

}  // namespace tolvex::sim
