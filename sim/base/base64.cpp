#include "base/base64.h"

#include <cstddef>
#include <cstdint>

namespace tolvex::sim {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kGroupBytes = 3;
constexpr std::size_t kGroupDigits = 4;

// Three bytes as one number; those beyond the end are 0.
std::uint32_t groupOf(std::string_view bytes) {
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < kGroupBytes; ++i) {
    group = (group << 8U) | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
  }
  return group;
}

}  // namespace

std::string base64Of(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + kGroupBytes - 1) / kGroupBytes * kGroupDigits);
  for (; !bytes.empty();
       bytes.remove_prefix(bytes.size() < kGroupBytes ? bytes.size() : kGroupBytes)) {
    const std::uint32_t group = groupOf(bytes);
    for (std::size_t digit = 0; digit < kGroupDigits; ++digit) {
      // One byte fills two digits, two fill three.
      text += digit <= bytes.size() ? kAlphabet[(group >> (18 - 6 * digit)) & 0x3FU] : '=';
    }
  }
  return text;
}

std::optional<std::string> bytesOfBase64(std::string_view text) {
  if (text.size() % kGroupDigits != 0) return std::nullopt;
  const std::size_t padding = text.size() - (text.find_last_not_of('=') + 1);
  if (padding > 2) return std::nullopt;
  const std::string_view digits(kAlphabet);
  std::string bytes;
  std::uint32_t kept = 0;  // bits that no byte has taken yet
  std::size_t bits = 0;
  for (const char c : text.substr(0, text.size() - padding)) {
    const auto value = digits.find(c);
    if (value == std::string_view::npos) return std::nullopt;
    kept = (kept << 6U) | static_cast<std::uint32_t>(value);
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes += static_cast<char>(kept >> bits);
    kept &= (1U << bits) - 1;
  }
  if (kept != 0) return std::nullopt;
  return bytes;
}

}  // namespace tolvex::sim
