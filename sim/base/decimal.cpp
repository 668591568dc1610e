#include "base/decimal.h"

#include <charconv>
#include <cstddef>

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxCharacters = 15;

std::size_t countDigits(std::string_view text) {
  const std::size_t end = text.find_first_not_of("0123456789");
  return end == std::string_view::npos ? text.size() : end;
}

bool isDecimal(std::string_view text) {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  const std::size_t whole = countDigits(text);
  if (whole == 0) return false;
  text.remove_prefix(whole);
  if (text.empty()) return true;
  if (text.front() != '.') return false;
  text.remove_prefix(1);
  return !text.empty() && countDigits(text) == text.size();
}

}  // namespace

std::optional<double> parseDecimal(std::string_view text) {
  if (text.size() > kMaxCharacters || !isDecimal(text)) return std::nullopt;
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

}  // namespace tolvex::sim
