#include "config/ip_address.h"

namespace tolvex::config {
namespace {

constexpr int kParts = 4;
constexpr std::size_t kMostDigits = 3;
constexpr int kLargestPart = 255;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Takes the digits at the front of the text; -1 when there are none or too many.
int takePart(std::string_view& text) {
  int value = 0;
  std::size_t digits = 0;
  while (!text.empty() && isDigit(text.front())) {
    if (++digits > kMostDigits) return -1;
    value = value * 10 + (text.front() - '0');
    text.remove_prefix(1);
  }
  return digits > 0 ? value : -1;
}

}  // namespace

bool isIpv4Address(std::string_view text) {
  for (int part = 0; part < kParts; ++part) {
    if (part > 0) {
      if (text.empty() || text.front() != '.') return false;
      text.remove_prefix(1);
    }
    const int value = takePart(text);
    const int smallest = part == 0 ? 1 : 0;
    if (value < smallest || value > kLargestPart) return false;
  }
  return text.empty();
}

}  // namespace tolvex::config
