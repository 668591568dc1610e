#include "base/printable.h"

namespace tolvex::sim {

namespace {

unsigned char byteAt(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

bool isContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80U; }

// Length that the first byte of a UTF-8 sequence promises; 0 for a byte that can not start one.
std::size_t promisedLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

// Length of the printable character that `text` starts with, 0 if there is none.
std::size_t printableLength(std::string_view text) {
  const unsigned char first = byteAt(text, 0);
  if (first < 0x20 || first == 0x7F) return 0;
  const std::size_t length = promisedLength(first);
  if (length == 0 || length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(byteAt(text, i))) return 0;
  }
  // U+0080 to U+009F are control characters too; some terminals act on them.
  if (first == 0xC2 && byteAt(text, 1) < 0xA0) return 0;
  return length;
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
