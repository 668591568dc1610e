#include "paper/svg_text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "base/utf8.h"
#include "paper/text_layout.h"

namespace tolvex::sim {

namespace {

// Sizes in cell heights. Common monospace fonts advance by 0.6 of their size, which is to be half a
// cell height, and reach less than a quarter of their size below the baseline.
constexpr double kNarrowSize = 0.83;
constexpr double kWideSize = 0.92;
constexpr double kBaseline = 0.80;
// The blank between two lines is shared by both.
constexpr double kLeadingAbove = 0.125;

enum class Kind {
  Narrow,  // glyphs of one character that each have a place of their own
  Wide,
  Whole,   // one glyph whose characters only make sense together
  Joined,  // glyphs that only make sense together
};

// Glyphs of one kind side by side.
struct Run {
  Kind kind;
  int firstCell;
  std::vector<Glyph> glyphs;
};

// Scripts that are written from right to left or whose letters change with their neighbours.
bool isShaped(char32_t character) {
  if (character > 0xFFFF) {
    return (character >= 0x10800 && character < 0x12000) ||
           (character >= 0x1E800 && character < 0x1F000);
  }
  return (character >= 0x0590 && character < 0x10A0) ||
         (character >= 0x1780 && character < 0x1AB0) ||
         (character >= 0xFB1D && character < 0xFE00) || (character >= 0xFE70 && character < 0xFEFF);
}

Kind kindOf(const Glyph& glyph) {
  std::string_view rest = glyph.text;
  const char32_t character = takeCharacter(rest);
  if (isShaped(character)) return Kind::Joined;
  // Viewers do not agree on how many places characters beyond the first plane count for.
  if (!rest.empty() || character > 0xFFFF) return Kind::Whole;
  return glyph.cells == 2 ? Kind::Wide : Kind::Narrow;
}

bool isRegionalIndicator(const Glyph& glyph) {
  std::string_view rest = glyph.text;
  const char32_t character = takeCharacter(rest);
  return character >= 0x1F1E6 && character <= 0x1F1FF;
}

// Side by side under one width, glyphs share it as the viewer's font has it.
bool continues(const Run& run, const Glyph& glyph, Kind kind) {
  if (run.kind != kind) return false;
  if (kind != Kind::Whole) return true;
  // Two of them make a flag.
  return run.glyphs.size() == 1 && isRegionalIndicator(run.glyphs.front()) &&
         isRegionalIndicator(glyph);
}

bool isBlank(const Run& run) {
  return std::all_of(run.glyphs.begin(), run.glyphs.end(),
                     [](const Glyph& glyph) { return glyph.text == " "; });
}

// Words of scripts that are written from right to left are put into their order together.
void joinWords(std::vector<Run>& runs) {
  if (runs.size() < 3) return;
  Run& words = runs[runs.size() - 3];
  const Run& gap = runs[runs.size() - 2];
  const Run& word = runs.back();
  if (words.kind != Kind::Joined || word.kind != Kind::Joined || !isBlank(gap)) return;
  words.glyphs.insert(words.glyphs.end(), gap.glyphs.begin(), gap.glyphs.end());
  words.glyphs.insert(words.glyphs.end(), word.glyphs.begin(), word.glyphs.end());
  runs.erase(runs.end() - 2, runs.end());
}

std::vector<Run> runsOf(const std::string& text) {
  std::vector<Run> runs;
  int cell = 0;
  for (const Glyph& glyph : glyphsOf(text)) {
    const Kind kind = kindOf(glyph);
    if (runs.empty() || !continues(runs.back(), glyph, kind)) runs.push_back({kind, cell, {}});
    runs.back().glyphs.push_back(glyph);
    if (kind == Kind::Joined) joinWords(runs);
    cell += glyph.cells;
  }
  return runs;
}

bool isXmlCharacter(char32_t character) {
  return (character >= 0x20 || character == '\t') && character != 0xFFFE && character != 0xFFFF;
}

// Characters that XML can not hold show up as ones that can not be read, which keeps the columns.
std::string escaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const char32_t character = takeCharacter(text);
    switch (character) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        appendUtf8(result, isXmlCharacter(character) ? character : kReplacementCharacter);
    }
  }
  return result;
}

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + "\"";
}

// Writes the runs of one line.
class LineWriter {
 public:
  explicit LineWriter(const TextItem& item) : item_(item), cellWidth_(item.fontSize / 2.0) {}

  std::string spanOf(const Run& run) const {
    std::string text;
    int cells = 0;
    std::string places;
    const bool hasOnePlace = run.kind == Kind::Whole || run.kind == Kind::Joined;
    const bool isWide = run.glyphs.front().cells == 2;
    const double size = item_.fontSize * (isWide ? kWideSize : kNarrowSize);
    // Wide glyphs are somewhat smaller than their cells and stand in the middle.
    const double margin = isWide ? (item_.fontSize - size) / 2 : 0;
    for (const Glyph& glyph : run.glyphs) {
      if (cells == 0 || !hasOnePlace) {
        if (cells != 0) places += ' ';
        places += svgNumber(placeOf(run.firstCell + cells) + margin);
      }
      text += escaped(glyph.text);
      cells += glyph.cells;
    }
    std::string attributes = attribute("x", places) + attribute("font-size", svgNumber(size));
    if (hasOnePlace) {
      attributes += attribute("textLength", svgNumber(cells * cellWidth_ - 2 * margin)) +
                    attribute("lengthAdjust", "spacingAndGlyphs");
    }
    return "<tspan" + attributes + ">" + text + "</tspan>";
  }

 private:
  double placeOf(int cell) const { return item_.indent + cell * cellWidth_; }

  const TextItem& item_;
  double cellWidth_;
};

}  // namespace

std::string svgNumber(double value) {
  constexpr long long kParts = 1000;
  const long long parts = std::llround(value * kParts);
  const long long size = std::abs(parts);
  std::string number = (parts < 0 ? "-" : "") + std::to_string(size / kParts);
  if (size % kParts == 0) return number;
  std::string fraction = std::to_string(kParts + size % kParts).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  return number + "." + fraction;
}

std::string svgTextOf(const TextItem& item, int top) {
  const double baseline = top + item.fontSize * (kLeadingAbove + kBaseline);
  const LineWriter writer(item);
  std::string spans;
  for (const Run& run : runsOf(item.text)) spans += writer.spanOf(run);
  if (spans.empty()) return {};
  return "<text" + attribute("y", svgNumber(baseline)) + attribute("xml:space", "preserve") + ">" +
         spans + "</text>\n";
}

}  // namespace tolvex::sim
