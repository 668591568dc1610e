#include "base/printable.h"

#include "base/utf8.h"

namespace tolvex::sim {

namespace {

unsigned char byteAt(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

bool isContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80U; }

// Characters that steer instead of being shown. U+0080 to U+009F are control characters too; some
// terminals act on them. The others end lines, or turn the direction of what follows.
bool isSteering(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character <= 0x9F) ||
         (character >= 0x2028 && character <= 0x202E) ||
         (character >= 0x2066 && character <= 0x2069);
}

// Length of the printable character that `text` starts with, 0 if there is none.
std::size_t printableLength(std::string_view text) {
  std::string_view rest = text;
  const char32_t character = takeCharacter(rest);
  const std::size_t length = text.size() - rest.size();
  // Only a byte that is no character is replaced by a longer one.
  const bool isBroken = character == kReplacementCharacter && length == 1;
  return isBroken || isSteering(character) ? 0 : length;
}

void appendEscaped(std::string& line, unsigned char byte) {
  constexpr char kDigits[] = "0123456789abcdef";
  line += "\\x";
  line += kDigits[byte >> 4U];
  line += kDigits[byte & 0x0FU];
}

}  // namespace

std::string printable(std::string_view text, std::size_t maxBytes) {
  const std::size_t fullLength = text.size();
  // The cut leaves no half character behind that would then show up as escaped bytes.
  std::size_t kept = fullLength;
  if (fullLength > maxBytes) {
    kept = maxBytes;
    for (int back = 0; back < 3 && kept > 0 && isContinuation(byteAt(text, kept)); ++back) --kept;
  }
  std::string_view rest = text.substr(0, kept);
  std::string line;
  while (!rest.empty()) {
    const std::size_t length = printableLength(rest);
    if (length == 0) {
      appendEscaped(line, byteAt(rest, 0));
    } else {
      line.append(rest.substr(0, length));
    }
    rest.remove_prefix(length == 0 ? 1 : length);
  }
  if (kept < fullLength) line += "... (" + std::to_string(fullLength) + " bytes)";
  return line;
}

}  // namespace tolvex::sim
