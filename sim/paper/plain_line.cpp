#include "paper/plain_line.h"

#include <cstddef>
#include <vector>

#include "paper/text_layout.h"

namespace tolvex::sim {

namespace {

// A part of the line without a gap in it.
struct Part {
  std::string text;
  int start;  // cells of the line's own font
  int end;
};

// Blanks inside a part are single ones; whether one is the beginning of a gap shows with the next.
std::vector<Part> partsOf(const std::vector<Glyph>& glyphs) {
  std::vector<Part> parts;
  int at = 0;
  int blanks = 0;
  for (const Glyph& glyph : glyphs) {
    if (glyph.text == " ") {
      ++blanks;
    } else {
      if (parts.empty() || blanks > 1) {
        parts.push_back({"", at, at});
      } else if (blanks == 1) {
        parts.back().text += ' ';
      }
      blanks = 0;
      parts.back().text += glyph.text;
      parts.back().end = at + glyph.cells;
    }
    at += glyph.cells;
  }
  return parts;
}

std::string textOf(const std::vector<Glyph>& glyphs) {
  std::string text;
  for (const Glyph& glyph : glyphs) text += glyph.text;
  return text;
}

}  // namespace

std::string plainLine(std::string_view text, int cellWidth, int plainWidth) {
  const std::vector<Glyph> glyphs = glyphsOf(text);
  if (cellWidth <= plainWidth) return textOf(glyphs);
  std::string line;
  int at = 0;
  for (const Part& part : partsOf(glyphs)) {
    const int left = part.start * cellWidth / plainWidth;
    const int right = part.end * cellWidth / plainWidth;
    const int cells = part.end - part.start;
    int place = right - cells;
    if (line.empty()) place = part.start == 0 ? 0 : left + (right - left - cells) / 2;
    line.append(static_cast<std::size_t>(place - at), ' ');
    line += part.text;
    at = place + cells;
  }
  return line;
}

}  // namespace tolvex::sim
