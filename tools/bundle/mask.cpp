#include "bundle/mask.h"

#include <algorithm>

#include "base/printable.h"

namespace tolvex::ctl {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// Whether the byte may be the second one of a character of two bytes, of which some look like ASCII.
bool isTrail(char c) { return static_cast<unsigned char>(c) >= 0x40 && isAscii(c); }

char masked(char c) {
  if (isDigit(c)) return '9';
  return isLetter(c) || !isAscii(c) ? 'x' : c;
}

}  // namespace

std::string maskText(std::string_view text) {
  std::string result(text);
  const bool doubleBytes = !isUtf8(text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    const bool lead = doubleBytes && !isAscii(text[i]);
    result[i] = masked(text[i]);
    if (lead && i + 1 < result.size()) {
      ++i;
      result[i] = isTrail(text[i]) ? 'x' : masked(text[i]);
    }
  }
  return result;
}

}  // namespace tolvex::ctl
