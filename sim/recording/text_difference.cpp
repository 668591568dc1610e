#include "recording/text_difference.h"

#include <algorithm>
#include <cstddef>

#include "base/printable.h"
#include "base/utf8.h"
#include "paper/character_width.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kBefore = 56;
constexpr std::size_t kBehind = 24;
constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);
constexpr std::string_view kDots = "...";
constexpr std::string_view kExpected = "  expected  ";
constexpr std::string_view kCame = "  came      ";

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// The nearest place at or before `position` where a character begins.
std::size_t characterStart(std::string_view text, std::size_t position) {
  while (position > 0 && position < text.size() && continuesCharacter(text[position])) --position;
  return position;
}

std::size_t widthOf(std::string_view text) {
  int cells = 0;
  while (!text.empty()) cells += cellsOf(takeCharacter(text));
  return static_cast<std::size_t>(cells);
}

std::string inPrint(std::string_view text) { return printable(text, kNoLimit); }

// The text from `start` on, up to some bytes behind `difference`.
std::string windowOf(std::string_view text, std::size_t start, std::size_t difference) {
  const std::size_t end = characterStart(text, std::min(difference + kBehind, text.size()));
  return inPrint(text.substr(start, end - start)) + std::string(end < text.size() ? kDots : "");
}

}  // namespace

std::string describeDifference(std::string_view expected, std::string_view came) {
  const auto [first, second] =
      std::mismatch(expected.begin(), expected.end(), came.begin(), came.end());
  const auto difference = static_cast<std::size_t>(first - expected.begin());
  // What lies before it is the same in both.
  const std::string_view same = expected.substr(0, characterStart(expected, difference));
  const std::size_t start =
      same.size() <= kBefore ? 0 : characterStart(same, same.size() - kBefore);
  const std::string head = start == 0 ? "" : std::string(kDots);
  const std::size_t cells = kExpected.size() + head.size() + widthOf(inPrint(same.substr(start)));
  return std::string(kExpected) + head + windowOf(expected, start, difference) + "\n" +
         std::string(kCame) + head + windowOf(came, start, difference) + "\n" +
         std::string(cells, ' ') + "^ byte " + std::to_string(difference + 1);
}

}  // namespace tolvex::sim
