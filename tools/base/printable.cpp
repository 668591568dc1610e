#include "base/printable.h"

#include <cstddef>

namespace tolvex::ctl {
namespace {

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

struct Character {
  char32_t value;
  std::size_t bytes;
};

// The length that the first byte of a character announces, 0 for a byte that begins none.
std::size_t announcedLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

bool isAcceptable(char32_t value, std::size_t bytes) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = value >= 0xD800 && value < 0xE000;
  return value >= kLeast[bytes] && value <= 0x10FFFF && !isSurrogate;
}

Character firstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t bytes = announcedLength(first);
  if (bytes == 1) return {first, 1};
  if (bytes == 0 || bytes > text.size()) return {kNoCharacter, 1};
  char32_t value = first & (0x7Fu >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0u) != 0x80u) return {kNoCharacter, 1};
    value = value << 6 | (next & 0x3Fu);
  }
  return isAcceptable(value, bytes) ? Character{value, bytes} : Character{kNoCharacter, 1};
}

bool isHarmless(char32_t value) {
  if (value == kNoCharacter || value < 0x20 || (value >= 0x7F && value < 0xA0)) return false;
  const bool turnsWriting = value == 0x061C || value == 0x200E || value == 0x200F ||
                            (value >= 0x202A && value <= 0x202E) ||
                            (value >= 0x2066 && value <= 0x2069);
  const bool endsLine = value == 0x2028 || value == 0x2029;
  return !turnsWriting && !endsLine;
}

void appendEscaped(std::string& out, std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    out += "\\x";
    out += kDigits[byte >> 4];
    out += kDigits[byte & 0x0Fu];
  }
}

}  // namespace

std::string printable(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    const std::string_view bytes = text.substr(0, character.bytes);
    if (isHarmless(character.value)) {
      out += bytes;
    } else {
      appendEscaped(out, bytes);
    }
    text.remove_prefix(character.bytes);
  }
  return out;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    if (character.value == kNoCharacter) return false;
    text.remove_prefix(character.bytes);
  }
  return true;
}

}  // namespace tolvex::ctl
