#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "paper/label_span.h"
#include "paper/plain_line.h"
#include "paper/render.h"

namespace tolvex::sim {

namespace {

// The plain text stands for a common font: its cells are this wide, its lines this high.
constexpr int kCellWidth = 12;
constexpr int kLineHeight = 30;

// Writes a paper item by item.
class PlainText {
 public:
  /// Lines of the font with cells of `plainWidth` dots read as they are.
  PlainText(const Paper& paper, int plainWidth)
      : format_(paper.format()),
        plainWidth_(plainWidth),
        gaps_(gapsOn(paper, 0, paper.length() + 1)) {}

  void operator()(const TextItem& item) {
    addLine(blanks(item.indent) + plainLine(item.text, item.fontSize / 2, plainWidth_));
  }

  void operator()(const ImageItem& item) {
    addLine(blanks(item.indent) + "[image " + std::to_string(item.bitmap.width()) + "x" +
            std::to_string(item.bitmap.height()) + "]");
  }

  void operator()(const FeedItem& /*feed*/) {}

  void operator()(const CutItem& /*cut*/) { addRule("- "); }

  void operator()(const RollEndItem& /*end*/) { addLine("~~~~ end of the roll ~~~~"); }

  // Blank paper up to `top`, with the gaps between labels on the way.
  void advanceTo(int top) {
    for (; gap_ < gaps_.size() && top >= gaps_[gap_].bottom; ++gap_) {
      addBlankUpTo(gaps_[gap_].top);
      addRule(". ");
      at_ = std::max(at_, gaps_[gap_].bottom);
    }
    addBlankUpTo(top);
  }

  void continueAt(int position) { at_ = position; }

  std::string take() { return std::move(text_); }

 private:
  std::string blanks(int indent) const {
    return std::string(static_cast<std::size_t>(std::clamp(indent, 0, format_.width) / kCellWidth),
                       ' ');
  }

  void addBlankUpTo(int position) {
    const int lines = (position - at_ + kLineHeight / 2) / kLineHeight;
    if (lines > 0) text_.append(static_cast<std::size_t>(lines), '\n');
    at_ = std::max(at_, position);
  }

  void addRule(const char* dash) {
    std::string rule;
    for (int x = 0; x < format_.printable; x += 2 * kCellWidth) rule += dash;
    addLine(rule);
  }

  void addLine(const std::string& line) {
    // Without the blanks at the end.
    text_.append(line, 0, line.find_last_not_of(' ') + 1);
    text_ += '\n';
  }

  PaperFormat format_;
  int plainWidth_;
  std::string text_;
  int at_ = 0;  // how far down the paper the text has come
  std::vector<LabelSpan> gaps_;
  std::size_t gap_ = 0;  // the next one
};

// Width of the cells that most lines have; of several, the narrowest.
int plainWidthOf(const Paper& paper) {
  std::map<int, int> lines;
  for (const PaperItem& item : paper.items()) {
    if (const auto* text = std::get_if<TextItem>(&item)) ++lines[text->fontSize / 2];
  }
  const auto most = std::max_element(
      lines.begin(), lines.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  return most == lines.end() ? kCellWidth : std::max(1, most->first);
}

// A line that falls into a gap for more than half of its height can not be read.
bool isLost(const Paper& paper, std::size_t index) {
  const auto* text = std::get_if<TextItem>(&paper.items()[index]);
  if (text == nullptr || !paper.format().hasLabels()) return false;
  const int top = paper.tops()[index];
  int printed = 0;
  for (const LabelSpan& label : labelsOn(paper, top, top + text->fontSize)) {
    printed += label.bottom - label.top;
  }
  return 2 * printed < text->fontSize;
}

}  // namespace

std::string plainTextOf(const Paper& paper) {
  PlainText text(paper, plainWidthOf(paper));
  for (std::size_t i = 0; i < paper.items().size(); ++i) {
    const PaperItem& item = paper.items()[i];
    if (std::holds_alternative<FeedItem>(item) || isLost(paper, i)) continue;
    text.advanceTo(paper.tops()[i]);
    std::visit(text, item);
    text.continueAt(paper.tops()[i] + heightOf(item));
  }
  text.advanceTo(paper.length());
  return text.take();
}

}  // namespace tolvex::sim
