#include "base/utf8.h"

#include <cstddef>

namespace tolvex::sim {

namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

bool isSurrogate(char32_t character) { return character >= 0xD800 && character <= 0xDFFF; }

// What the first byte of a sequence says: how many bytes follow, the bits of the character that it
// carries itself, and the smallest character that may be written at that length.
struct Lead {
  std::size_t following;
  char32_t bits;
  char32_t smallest;
};

Lead readLead(unsigned char byte) {
  if (byte < 0x80) return {0, byte, 0};
  if ((byte & 0xE0U) == 0xC0U) return {1, byte & 0x1FU, 0x80};
  if ((byte & 0xF0U) == 0xE0U) return {2, byte & 0x0FU, 0x800};
  if ((byte & 0xF8U) == 0xF0U) return {3, byte & 0x07U, 0x10000};
  return {0, kReplacementCharacter, 0};
}

}  // namespace

char32_t takeCharacter(std::string_view& text) {
  const Lead lead = readLead(static_cast<unsigned char>(text.front()));
  text.remove_prefix(1);
  if (text.size() < lead.following) return kReplacementCharacter;
  char32_t character = lead.bits;
  for (std::size_t i = 0; i < lead.following; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80U) return kReplacementCharacter;
    character = (character << 6U) | (byte & 0x3FU);
  }
  if (character < lead.smallest || character > kLastCharacter || isSurrogate(character)) {
    return kReplacementCharacter;
  }
  text.remove_prefix(lead.following);
  return character;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t before = text.size();
    // The replacement character itself has three bytes.
    if (takeCharacter(text) == kReplacementCharacter && before - text.size() == 1) return false;
  }
  return true;
}

void appendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
    return;
  }
  if (character < 0x800) {
    append(0xC0 | (character >> 6U));
  } else {
    if (character < 0x10000) {
      append(0xE0 | (character >> 12U));
    } else {
      append(0xF0 | (character >> 18U));
      append(0x80 | ((character >> 12U) & 0x3F));
    }
    append(0x80 | ((character >> 6U) & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

}  // namespace tolvex::sim
