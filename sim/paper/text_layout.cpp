#include "paper/text_layout.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "base/utf8.h"
#include "paper/character_width.h"

namespace tolvex::sim {

namespace {

constexpr int kTabStop = 8;
constexpr int kMostCells = 1'000'000;
constexpr char32_t kZeroWidthJoiner = 0x200D;

using Glyphs = std::vector<Glyph>;
using Place = Glyphs::const_iterator;

// Control characters of ASCII and its upper half, and those that steer line breaks and the
// direction of text, which a printer does not know.
bool isControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x00AD ||
         character == 0x200B || character == 0x200E || character == 0x200F ||
         (character >= 0x2028 && character <= 0x202E) ||
         (character >= 0x2060 && character <= 0x206F) || character == 0xFEFF;
}

bool isVariationSelector(char32_t character) {
  return (character >= 0xFE00 && character <= 0xFE0F) || character >= 0xE0100;
}

bool isSkinTone(char32_t character) { return character >= 0x1F3FB && character <= 0x1F3FF; }

int widthOf(Place first, Place last) {
  return std::accumulate(first, last, 0,
                         [](int sum, const Glyph& glyph) { return sum + glyph.cells; });
}

std::string joined(Place first, Place last) {
  std::string text;
  for (; first != last; ++first) text += first->text;
  return text;
}

bool isSpace(const Glyph& glyph) { return glyph.text == " "; }

// Puts glyphs together from characters.
class GlyphWriter {
 public:
  void add(char32_t character) {
    if (character == '\t') {
      addTab();
    } else if (!isControl(character)) {
      addVisible(character);
    }
  }

  Glyphs take() { return std::move(glyphs_); }

 private:
  void addTab() {
    do {
      append(" ", 1);
    } while (cells_ % kTabStop != 0);
    previous_ = ' ';
  }

  void addVisible(char32_t character) {
    const int cells = cellsOf(character);
    const bool joins = cells == 0 || joinsEmoji(character, cells);
    if (glyphs_.empty() && cells == 0) {
      // A mark that begins the text stands alone; what only joins or varies has nothing to act on.
      if (character == 0x200C || character == kZeroWidthJoiner || isVariationSelector(character)) {
        return;
      }
      append(" ", 1);
    } else if (!joins) {
      append("", cells);
    }
    appendUtf8(glyphs_.back().text, character);
    previous_ = character;
  }

  // Emoji of several, such as families and people of some complexion, stand in the cells of one.
  bool joinsEmoji(char32_t character, int cells) const {
    if (glyphs_.empty() || glyphs_.back().cells != 2 || cells != 2) return false;
    return previous_ == kZeroWidthJoiner || isSkinTone(character);
  }

  void append(std::string text, int cells) {
    glyphs_.push_back({std::move(text), cells});
    cells_ += cells;
  }

  Glyphs glyphs_;
  int cells_ = 0;
  char32_t previous_ = 0;
};

// The end of what fits into `cells` from `first` on, one glyph in any case.
Place endOfFit(Place first, Place last, int cells) {
  if (first == last) return last;
  int used = first->cells;
  Place end = first + 1;
  while (end != last && used + end->cells <= cells) {
    used += end->cells;
    ++end;
  }
  return end;
}

Place skipBlanks(Place first, Place last) { return std::find_if_not(first, last, isSpace); }

Place withoutBlanksAtEnd(Place first, Place last) {
  while (last != first && isSpace(*(last - 1))) --last;
  return last;
}

// Where a line from `first` on that is full at `full` ends: at its last blanks, or at `full` inside
// a word that has the line for itself.
Place endOfWords(Place first, Place full) {
  Place blank = full;
  while (blank != first && !isSpace(*blank)) --blank;
  const Place end = withoutBlanksAtEnd(first, blank);
  return end == first ? full : end;
}

void wrap(const Glyphs& glyphs, int cells, std::vector<std::string>& lines) {
  Place first = glyphs.begin();
  do {
    const Place full = endOfFit(first, glyphs.end(), cells);
    const Place end = full == glyphs.end() ? full : endOfWords(first, full);
    lines.push_back(joined(first, end));
    first = full == glyphs.end() ? full : skipBlanks(end, glyphs.end());
  } while (first != glyphs.end());
}

int cellsIn(int width, int fontSize) {
  if (fontSize <= 0) return 0;
  return static_cast<int>(std::min<long long>(2LL * width / fontSize, kMostCells));
}

}  // namespace

std::vector<Glyph> glyphsOf(std::string_view text) {
  GlyphWriter writer;
  while (!text.empty()) writer.add(takeCharacter(text));
  return writer.take();
}

int cellsOf(std::string_view text) {
  const Glyphs glyphs = glyphsOf(text);
  return widthOf(glyphs.begin(), glyphs.end());
}

std::vector<std::string> linesOf(std::string_view text, int fontSize, int width,
                                 Overflow overflow) {
  const int cells = cellsIn(width, fontSize);
  std::vector<std::string> lines;
  do {
    const std::size_t length = std::min(text.find('\n'), text.size());
    const Glyphs glyphs = glyphsOf(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
    if (overflow == Overflow::Wrap) {
      wrap(glyphs, cells, lines);
    } else {
      lines.push_back(joined(glyphs.begin(), endOfFit(glyphs.begin(), glyphs.end(), cells)));
    }
  } while (!text.empty());
  return lines;
}

}  // namespace tolvex::sim
