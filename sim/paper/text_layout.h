// How text falls into the cells of a printer's font.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvex::sim {

/// A font of size n has narrow cells (Latin, Greek, Cyrillic ...) of n / 2 dots and wide cells
/// (Chinese, Japanese, Korean, full-width forms, emoji) of n dots, all n dots high; combining marks
/// take no cell of their own.
enum class Overflow { Wrap, Cut };

/// One character with the combining marks that belong to it.
struct Glyph {
  std::string text;  // UTF-8
  int cells;         // 1 narrow, 2 wide
};

/// The glyphs of a text. Bytes that are not UTF-8 become U+FFFD; a tab becomes blanks up to the
/// next eighth narrow cell; other control characters are left out.
std::vector<Glyph> glyphsOf(std::string_view text);

/// Number of narrow cells that the text takes.
int cellsOf(std::string_view text);

/// The text in lines of at most `width` dots in a font of size `fontSize`. A line end in the text
/// begins a new line. Overflow::Wrap breaks a longer line at its last blank (which is dropped) or,
/// in a word that is longer than a line, between two glyphs; Overflow::Cut drops the rest of it.
/// There is always at least one line, and at least one glyph in each line of a text that has any.
std::vector<std::string> linesOf(std::string_view text, int fontSize, int width, Overflow overflow);

}  // namespace tolvex::sim
