#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

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
  PlainText(const PaperFormat& format, int plainWidth) : format_(format), plainWidth_(plainWidth) {}

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

  // Blank paper up to `top`, with the ends of labels on the way.
  void advanceTo(int top) {
    while (format_.hasLabels() && top >= topOfLabel(label_ + 1)) {
      addBlankUpTo(topOfLabel(label_) + format_.labelHeight);
      addRule(". ");
      ++label_;
      at_ = std::max(at_, topOfLabel(label_));
    }
    addBlankUpTo(top);
  }

  void continueAt(int position) { at_ = position; }

  std::string take() { return std::move(text_); }

 private:
  int topOfLabel(int label) const { return label * format_.pitch(); }

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
  int at_ = 0;     // how far down the paper the text has come
  int label_ = 0;  // the label there
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

}  // namespace

std::string plainTextOf(const Paper& paper) {
  PlainText text(paper.format(), plainWidthOf(paper));
  for (std::size_t i = 0; i < paper.items().size(); ++i) {
    const PaperItem& item = paper.items()[i];
    if (std::holds_alternative<FeedItem>(item)) continue;
    text.advanceTo(paper.tops()[i]);
    std::visit(text, item);
    text.continueAt(paper.tops()[i] + heightOf(item));
  }
  text.advanceTo(paper.length());
  return text.take();
}

}  // namespace tolvex::sim
