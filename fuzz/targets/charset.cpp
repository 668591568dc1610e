// The first letter chooses the character set, the rest is the text.
#include "support/charset.h"

#include <algorithm>
#include <string>

#include "platform/text_encoding.h"
#include "support/lines.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

// The number of a character of the bytes, -1 for no character: the definition, without tables.
long pointOf(const std::string& bytes) {
  static constexpr long kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto first = static_cast<unsigned char>(bytes[0]);
  std::size_t length = 1;
  if (first >= 0x80) length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if ((first >= 0x80 && first < 0xC0) || first >= 0xF8 || bytes.size() != length) return -1;
  long point = length == 1 ? first : first & (0x7F >> length);
  for (std::size_t at = 1; at < length; ++at) {
    const auto byte = static_cast<unsigned char>(bytes[at]);
    if ((byte & 0xC0) != 0x80) return -1;
    point = point * 64 + (byte & 0x3F);
  }
  const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
  return point < kLeast[length] || isSurrogate || point > 0x10FFFF ? -1 : point;
}

// Whether some character begins with the bytes.
bool beginsACharacter(const std::string& bytes) {
  for (std::size_t missing = 0; bytes.size() + missing <= 4; ++missing) {
    for (const char filler : {'\x80', '\x9F', '\xBF'}) {
      if (pointOf(bytes + std::string(missing, filler)) >= 0) return true;
    }
  }
  return false;
}

// UTF-8 with U+FFFD for each longest beginning of a character that does not go on.
std::string repairedModel(const std::string& text) {
  std::string repaired;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 1;
    while (length < 4 && at + length < text.size() && pointOf(text.substr(at, length)) < 0 &&
           beginsACharacter(text.substr(at, length + 1))) {
      ++length;
    }
    const std::string piece = text.substr(at, length);
    repaired += pointOf(piece) >= 0 ? piece : "\xEF\xBF\xBD";
    at += length;
  }
  return repaired;
}

}  // namespace

void targets::charset(std::string_view input) {
  const char letter = takeLetter(input);
  const std::string text = std::string(input).c_str();
  const bool isAscii =
      std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
  for (const Conversion& conversion : conversions(letter, text)) {
    const std::string& utf8 = conversion.utf8;
    require(repairedModel(utf8) == utf8, "what comes out is UTF-8");
    require(utf8.size() <= 3 * text.size(), "a byte becomes three at most");
    require(!conversion.keepsAscii || !isAscii || utf8 == text, "ASCII is the same everywhere");
    require(utf8.empty() == text.empty(), "no text disappears");
    if (conversion.isUtf8) require(utf8 == repairedModel(text), "UTF-8 goes through, repaired");
  }
}

}  // namespace tolvex::fuzz
