#include "base/ipv4.h"

#include <charconv>

namespace tolvex::sim {

namespace {

bool isPart(std::string_view text) {
  if (text.empty() || text.size() > 3 || (text.size() > 1 && text.front() == '0')) return false;
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return false;
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value <= 255;
}

}  // namespace

bool isIpv4Address(std::string_view text) {
  for (int part = 0; part < 3; ++part) {
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || !isPart(text.substr(0, dot))) return false;
    text.remove_prefix(dot + 1);
  }
  return isPart(text);
}

}  // namespace tolvex::sim
