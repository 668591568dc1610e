#include "platform/posix/utf8.h"

namespace tolvex::platform {
namespace {

// What may follow the first byte of a character: so many bytes, the first of them in a range that
// keeps out overlong forms, surrogates and numbers that are too large, the others from 80 to BF.
struct Lead {
  unsigned char first, last;
  unsigned char following;
  unsigned char lowest, highest;
};

constexpr Lead kLeads[] = {
    {0x00, 0x7F, 0, 0, 0},       {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F},
};

const Lead* leadOf(unsigned char byte) {
  for (const Lead& lead : kLeads) {
    if (byte >= lead.first && byte <= lead.last) return &lead;
  }
  return nullptr;
}

struct Piece {
  std::size_t length;
  bool isCharacter;
};

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// The character at the text's beginning, or as much as would have to be replaced.
Piece firstPiece(const char* text, std::size_t size) {
  const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const Lead* const lead = leadOf(byte(0));
  if (lead == nullptr) return {1, false};
  unsigned char lowest = lead->lowest;
  unsigned char highest = lead->highest;
  for (std::size_t at = 1; at <= lead->following; ++at) {
    if (at == size || byte(at) < lowest || byte(at) > highest) return {at, false};
    lowest = 0x80;
    highest = 0xBF;
  }
  return {lead->following + std::size_t{1}, true};
}

}  // namespace

const char kReplacement[4] = "\xEF\xBF\xBD";

std::string repairedUtf8(const char* text, std::size_t size) {
  std::string repaired;
  repaired.reserve(size);
  std::size_t copied = 0;
  for (std::size_t at = 0; at < size;) {
    if (isAscii(text[at])) {
      ++at;
      continue;
    }
    const Piece piece = firstPiece(text + at, size - at);
    if (!piece.isCharacter) {
      repaired.append(text + copied, at - copied).append(kReplacement);
      copied = at + piece.length;
    }
    at += piece.length;
  }
  repaired.append(text + copied, size - copied);
  return repaired;
}

}  // namespace tolvex::platform
