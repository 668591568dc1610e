#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <variant>

#include "base/base64.h"
#include "paper/render.h"
#include "paper/svg_text.h"

namespace tolvex::sim {

namespace {

// In dots.
constexpr int kMargin = 24;           // of background around the paper
constexpr int kHead = 24;             // of paper above the first line of a roll
constexpr int kTail = 40;             // of paper below the last line that is torn off
constexpr int kTooth = 10;            // of a torn edge
constexpr int kBacking = 16;          // of backing beside a label
constexpr double kCornerRadius = 12;  // of a label
constexpr double kBridgeLength = 7;

constexpr char kFonts[] =
    "'DejaVu Sans Mono','Liberation Mono',Consolas,Menlo,'Courier New','Noto Sans Mono CJK SC',"
    "'Noto Sans CJK SC','Microsoft YaHei','PingFang SC',SimSun,monospace";

std::string number(double value) { return svgNumber(value); }

std::string rectangle(double x, double y, double width, double height, const std::string& more) {
  return "<rect x=\"" + number(x) + "\" y=\"" + number(y) + "\" width=\"" + number(width) +
         "\" height=\"" + number(height) + "\"" + more + "/>\n";
}

// The cut that ends the paper, nothing if it was torn off.
const CutItem* cutAtEnd(const Paper& paper) {
  if (paper.isEmpty()) return nullptr;
  const auto* cut = std::get_if<CutItem>(&paper.items().back());
  return cut != nullptr && cut->percent > 0 ? cut : nullptr;
}

// At its true size a dot is less than half a pixel of an ordinary screen: smoothing keeps thin
// lines visible. Once dots are as large as pixels, they are to be sharp.
constexpr char kStyle[] =
    "<style>@media (min-resolution:2dppx){.dots{image-rendering:pixelated}}</style>\n";

// Draws one paper. The origin is the upper left corner of the printable width, or of the first
// label's.
class Drawing {
 public:
  explicit Drawing(const Paper& paper)
      : paper_(paper),
        format_(paper.format()),
        left_(-(format_.width - format_.printable) / 2.0),
        side_(format_.hasLabels() ? kBacking : 0),
        top_(format_.hasLabels() ? -format_.labelGap / 2.0 - kBacking / 2.0 : -kHead) {}

  std::string take() {
    const double width = format_.width + 2.0 * (side_ + kMargin);
    const double height = bottom() - top_ + 2.0 * kMargin;
    const double x = left_ - side_ - kMargin;
    const double y = top_ - kMargin;
    std::string svg =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
        "width=\"" +
        number(width / kDotsPerMm) + "mm\" height=\"" + number(height / kDotsPerMm) +
        "mm\" viewBox=\"" + number(x) + " " + number(y) + " " + number(width) + " " +
        number(height) + "\">\n";
    svg += kStyle;
    svg += rectangle(x, y, width, height, " fill=\"#e9e9e6\"");
    svg += sheet() + labels() + content() + cuts();
    return svg + "</svg>\n";
  }

 private:
  int labelCount() const {
    return paper_.length() > 0 ? (paper_.length() - 1) / format_.pitch() + 1 : 1;
  }

  double bottom() const {
    if (!format_.hasLabels()) return paper_.length() + (cutAtEnd(paper_) != nullptr ? 0 : kTail);
    return (labelCount() - 1) * format_.pitch() + format_.labelHeight + format_.labelGap / 2.0 +
           kBacking / 2.0;
  }

  // The outline of the paper or the backing, from the upper left corner clockwise.
  std::string outline() const {
    const double left = left_ - side_;
    const double right = left_ + format_.width + side_;
    return "M" + number(left) + " " + number(top_) + "H" + number(right) + "V" + number(bottom()) +
           lowerEdge(left, right) + "Z";
  }

  std::string lowerEdge(double left, double right) const {
    const CutItem* cut = cutAtEnd(paper_);
    if (cut == nullptr) return tornEdge(left, right);
    if (cut->percent >= 100) return "H" + number(left);
    // What was not cut through was torn off last.
    const double half = (right - left) * (100 - cut->percent) / 200.0;
    const double middle = (left + right) / 2;
    const std::string below = number(bottom() + kBridgeLength);
    return "H" + number(middle + half) + "L" + number(middle + half / 2) + " " + below + "L" +
           number(middle) + " " + number(bottom() + kBridgeLength / 2) + "L" +
           number(middle - half / 2) + " " + below + "L" + number(middle - half) + " " +
           number(bottom()) + "H" + number(left);
  }

  // Teeth of different lengths, the same ones for the same paper.
  std::string tornEdge(double left, double right) const {
    std::string edge;
    std::uint32_t seed = 1;
    bool isOut = true;
    const int teeth = static_cast<int>((right - left - 1) / kTooth);
    for (int tooth = 1; tooth <= teeth; ++tooth, isOut = !isOut) {
      seed = seed * 1664525U + 1013904223U;
      const double depth = (seed >> 24U) / 64.0 + (isOut ? 3 : -6);
      edge += "L" + number(right - tooth * kTooth) + " " + number(bottom() + depth);
    }
    return edge + "L" + number(left) + " " + number(bottom());
  }

  std::string sheet() const {
    const std::string path = outline();
    const char* fill = format_.hasLabels() ? "#e3d9b8" : "#fff";
    return "<path d=\"" + path +
           "\" transform=\"translate(3 4)\" fill=\"#000\" opacity=\".10\"/>\n" + "<path d=\"" +
           path + "\" fill=\"" + fill + "\" stroke=\"#c4c4be\"/>\n";
  }

  std::string labels() const {
    if (!format_.hasLabels()) return {};
    return labelRectangles(
        left_, format_.width,
        " rx=\"" + number(kCornerRadius) + "\" fill=\"#fff\" stroke=\"#cfc7a8\"");
  }

  std::string labelRectangles(double x, double width, const std::string& more) const {
    std::string rectangles;
    for (int label = 0; label < labelCount(); ++label) {
      rectangles += rectangle(x, label * format_.pitch(), width, format_.labelHeight, more);
    }
    return rectangles;
  }

  // What the head does not reach, or what would fall between the labels, is not printed.
  std::string content() const {
    std::string area = format_.hasLabels()
                           ? labelRectangles(0, format_.printable, "")
                           : rectangle(0, top_, format_.printable, bottom() - top_, "");
    std::string svg = "<clipPath id=\"printable\">\n" + area + "</clipPath>\n";
    svg += "<g clip-path=\"url(#printable)\" fill=\"#000\" font-family=\"" + std::string(kFonts) +
           "\" style=\"white-space:pre\">\n";
    for (std::size_t i = 0; i < paper_.items().size(); ++i) {
      const PaperItem& item = paper_.items()[i];
      if (const auto* text = std::get_if<TextItem>(&item))
        svg += svgTextOf(*text, paper_.tops()[i]);
      if (const auto* image = std::get_if<ImageItem>(&item))
        svg += pictureOf(*image, paper_.tops()[i]);
    }
    return svg + "</g>\n";
  }

  static std::string pictureOf(const ImageItem& item, int top) {
    const Bitmap& bitmap = item.bitmap;
    if (bitmap.width() == 0 || bitmap.height() == 0) return {};
    return "<image x=\"" + number(item.indent) + "\" y=\"" + number(top) + "\" width=\"" +
           number(bitmap.width()) + "\" height=\"" + number(bitmap.height()) +
           "\" class=\"dots\" xlink:href=\"data:image/png;base64," + base64Of(item.png.of(bitmap)) +
           "\"/>\n";
  }

  // Those before the end, from both sides towards a bridge in the middle.
  std::string cuts() const {
    std::string svg;
    for (std::size_t i = 0; i + 1 < paper_.items().size(); ++i) {
      const auto* cut = std::get_if<CutItem>(&paper_.items()[i]);
      if (cut != nullptr) svg += cutAt(paper_.tops()[i], std::clamp(cut->percent, 0, 100));
    }
    return svg;
  }

  std::string cutAt(int y, int percent) const {
    const double left = left_ - side_;
    const double right = left_ + format_.width + side_;
    const double half = (right - left) * percent / 200.0;
    return "<path d=\"M" + number(left) + " " + number(y) + "h" + number(half) + "M" +
           number(right) + " " + number(y) + "h" + number(-half) +
           "\" stroke=\"#8a8a84\" stroke-width=\"1.5\" stroke-dasharray=\"9 5\" fill=\"none\"/>\n";
  }

  const Paper& paper_;
  PaperFormat format_;
  double left_;
  double side_;
  double top_;
};

}  // namespace

std::string svgOf(const Paper& paper, Form /*form*/) { return Drawing(paper).take(); }

}  // namespace tolvex::sim
