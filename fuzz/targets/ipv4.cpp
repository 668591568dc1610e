#include <cstdint>
#include <string>
#include <vector>

#include "config/ip_address.h"
#include "platform/socket.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

std::vector<std::string> splitAtDots(std::string_view text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == '.') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool isNumber(const std::string& part) {
  return !part.empty() && part.size() <= 3 &&
         part.find_first_not_of("0123456789") == std::string::npos;
}

bool isAddress(const std::vector<std::string>& parts) {
  if (parts.size() != 4) return false;
  for (const std::string& part : parts) {
    if (!isNumber(part) || std::stoi(part) > 255) return false;
  }
  return std::stoi(parts[0]) != 0;
}

bool hasLeadingZeros(const std::vector<std::string>& parts) {
  for (const std::string& part : parts) {
    if (part.size() > 1 && part[0] == '0') return true;
  }
  return false;
}

}  // namespace

void targets::ipv4(std::string_view input) {
  const std::vector<std::string> parts = splitAtDots(input);
  const bool accepted = config::isIpv4Address(input);
  require(accepted == isAddress(parts),
          "four numbers from 0 to 255, the first from 1, and no more");
  if (!accepted || hasLeadingZeros(parts)) return;
  std::uint32_t address = 0;
  for (const std::string& part : parts) {
    address = address * 256 + static_cast<std::uint32_t>(std::stoi(part));
  }
  require(platform::net::parseAddress(std::string(input).c_str()) == address,
          "what is accepted is connected to");
}

}  // namespace tolvex::fuzz
