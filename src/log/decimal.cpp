#include "log/decimal.h"

#include <algorithm>
#include <limits>

namespace tolvex {
namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

}  // namespace

std::int32_t textToInt(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);

  constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
  std::int64_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    value = std::min(value * 10 + (c - '0'), most + 1);
  }
  return static_cast<std::int32_t>(negative ? -value : std::min(value, most));
}

}  // namespace tolvex
