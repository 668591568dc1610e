#include "base/duration.h"

#include <charconv>
#include <cstdint>

namespace tolvex::ctl {
namespace {

constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;

// Milliseconds in a unit, 0 for what is no unit.
std::int64_t unitOf(std::string_view name) {
  if (name.empty() || name == "ms") return 1;
  if (name == "s") return 1000;
  if (name == "m") return 60000;
  return 0;
}

}  // namespace

std::optional<std::chrono::milliseconds> parseDuration(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || text.front() == '-') return std::nullopt;
  const std::int64_t unit = unitOf(text.substr(static_cast<std::size_t>(end - text.data())));
  if (unit == 0 || number < 1 || number > kDay / unit) return std::nullopt;
  return std::chrono::milliseconds(number * unit);
}

std::string toText(std::chrono::milliseconds duration) {
  const std::int64_t count = duration.count();
  if (count < 1000) return std::to_string(count) + " ms";
  std::string text = std::to_string(count / 1000);
  if (count % 1000 != 0) {
    std::string fraction = std::to_string(1000 + count % 1000).substr(1);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    text += '.' + fraction;
  }
  return text + " s";
}

}  // namespace tolvex::ctl
