#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "base/base64.h"
#include "paper/label_span.h"
#include "paper/render.h"
#include "paper/sheet.h"
#include "paper/svg_shapes.h"
#include "paper/svg_text.h"

namespace tolvex::sim {

namespace {

// In dots.
constexpr int kMargin = 24;           // of background around the paper
constexpr int kMarkWidth = 24;        // of a mark on the back
constexpr double kCornerRadius = 12;  // of a label

constexpr char kBackground[] = "#e9e9e6";
constexpr char kFonts[] =
    "'DejaVu Sans Mono','Liberation Mono',Consolas,Menlo,'Courier New','Noto Sans Mono CJK SC',"
    "'Noto Sans CJK SC','Microsoft YaHei','PingFang SC',SimSun,monospace";

std::string number(double value) { return svgNumber(value); }

// At its true size a dot is less than half a pixel of an ordinary screen: smoothing keeps thin
// lines visible. Once dots are as large as pixels, they are to be sharp.
constexpr char kStyle[] =
    "<style>@media (min-resolution:2dppx){.dots{image-rendering:pixelated}}</style>\n";

// Draws one paper.
class Drawing {
 public:
  Drawing(const Paper& paper, Form form)
      : paper_(paper),
        format_(paper.format()),
        form_(form),
        sheet_(sheetOf(paper, form)),
        left_(-(format_.width - format_.printable) / 2.0) {
    const int top = static_cast<int>(std::floor(sheet_.top));
    const int bottom = static_cast<int>(std::ceil(sheet_.bottom));
    labels_ = labelsOn(paper, top, bottom);
    marks_ = marksOn(paper, top, bottom);
  }

  std::string take() const {
    std::string svg = opening() + kStyle;
    if (form_ == Form::Picture) svg += background();
    svg += sheet() + labels() + content() + cuts() + ends();
    return svg + "</svg>\n";
  }

 private:
  int margin() const { return form_ == Form::Picture ? kMargin : 0; }
  double x() const { return sheet_.left - margin(); }
  double y() const { return sheet_.top - margin(); }
  double width() const { return sheet_.right - sheet_.left + 2.0 * margin(); }

  double height() const {
    const bool isStraight = sheet_.end == SheetEnd::Open || sheet_.end == SheetEnd::RollsEnd;
    const int edge = form_ == Form::Strip && !isStraight ? kSvgEdgeDepth : 0;
    return sheet_.bottom - sheet_.top + 2.0 * margin() + edge;
  }

  std::string opening() const {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "width=\"" +
           number(width() / kDotsPerMm) + "mm\" height=\"" + number(height() / kDotsPerMm) +
           "mm\" viewBox=\"" + number(x()) + " " + number(y()) + " " + number(width()) + " " +
           number(height()) + "\">\n";
  }

  std::string background() const {
    return svgRectangle(x(), y(), width(), height(), " fill=\"" + std::string(kBackground) + "\"");
  }

  std::string lowerEdge() const {
    if (sheet_.end == SheetEnd::Torn) return svgTornEdge(sheet_.left, sheet_.right, sheet_.bottom);
    if (sheet_.end != SheetEnd::Cut) return "H" + number(sheet_.left);
    return svgCutEdge(sheet_.left, sheet_.right, sheet_.bottom, sheet_.percent);
  }

  // The outline of the paper or the backing, from the upper left corner clockwise.
  std::string outline() const {
    return "M" + number(sheet_.left) + " " + number(sheet_.top) + "H" + number(sheet_.right) + "V" +
           number(sheet_.bottom) + lowerEdge() + "Z";
  }

  // What goes on above or below has no edge there.
  std::string openOutline() const {
    const std::string bottom = sheet_.end == SheetEnd::Open
                                   ? "M" + number(sheet_.left) + " " + number(sheet_.bottom)
                                   : lowerEdge();
    return "M" + number(sheet_.right) + " " + number(sheet_.top) + "V" + number(sheet_.bottom) +
           bottom + "V" + number(sheet_.top);
  }

  bool hasBacking() const {
    return std::any_of(paper_.stretches().begin(), paper_.stretches().end(),
                       [](const Stretch& s) { return s.stock.kind == StockKind::Gap; });
  }

  std::string sheet() const {
    const std::string path = outline();
    const std::string fill = hasBacking() ? " fill=\"#e3d9b8\"" : " fill=\"#fff\"";
    constexpr char kEdge[] = " stroke=\"#c4c4be\"";
    if (form_ == Form::Strip) {
      return svgPath(path, fill) + svgPath(openOutline(), std::string(" fill=\"none\"") + kEdge);
    }
    return svgPath(path, " transform=\"translate(3 4)\" fill=\"#000\" opacity=\".10\"") +
           svgPath(path, fill + kEdge);
  }

  std::string labels() const {
    std::string svg;
    for (const LabelSpan& span : labels_) svg += labelOf(span);
    for (const LabelSpan& mark : marks_) {
      svg +=
          svgRectangle(sheet_.left, mark.top, kMarkWidth, mark.bottom - mark.top, " fill=\"#333\"");
    }
    return reachesTornEdge() ? clippedToSheet(svg) : svg;
  }

  std::string labelOf(const LabelSpan& span) const {
    const int height = span.bottom - span.top;
    if (span.kind != StockKind::Gap) {
      return hasBacking() ? svgRectangle(sheet_.left, span.top, sheet_.right - sheet_.left, height,
                                         " fill=\"#fff\"")
                          : "";
    }
    const std::string look = " fill=\"#fff\" stroke=\"#cfc7a8\"";
    const bool isWhole = span.begins && span.ends;
    if (!isWhole && height < kCornerRadius) {
      return svgRectangle(left_, span.top, format_.width, height, " fill=\"#fff\"");
    }
    if (!isWhole) return svgPath(partOfLabel(span), look);
    return svgRectangle(left_, span.top, format_.width, height,
                        " rx=\"" + number(kCornerRadius) + "\"" + look);
  }

  // Round where the label begins or ends; where it is cut off, the paper goes on without an edge.
  std::string partOfLabel(const LabelSpan& span) const {
    const double right = left_ + format_.width;
    const std::string top = number(span.top);
    const std::string bottom = number(span.bottom);
    const std::string across = "H" + number(right - kCornerRadius);
    if (span.begins) {
      return "M" + number(left_) + " " + bottom + "V" + number(span.top + kCornerRadius) +
             "a12 12 0 0 1 12 -12" + across + "a12 12 0 0 1 12 12V" + bottom;
    }
    if (span.ends) {
      return "M" + number(left_) + " " + top + "V" + number(span.bottom - kCornerRadius) +
             "a12 12 0 0 0 12 12" + across + "a12 12 0 0 0 12 -12V" + top;
    }
    return "M" + number(left_) + " " + top + "V" + bottom + "H" + number(right) + "V" + top;
  }

  bool reachesTornEdge() const {
    if (sheet_.end != SheetEnd::Torn) return false;
    const auto reaches = [this](const LabelSpan& span) {
      const bool isDrawn = span.kind == StockKind::Gap || hasBacking();
      return isDrawn && span.bottom > sheet_.bottom - kSvgEdgeDepth;
    };
    return std::any_of(labels_.begin(), labels_.end(), reaches) ||
           (!marks_.empty() && marks_.back().bottom > sheet_.bottom - kSvgEdgeDepth);
  }

  std::string clippedToSheet(const std::string& svg) const {
    return "<clipPath id=\"sheet\">\n" + svgPath(outline(), "") +
           "</clipPath>\n<g clip-path=\"url(#sheet)\">\n" + svg + "</g>\n";
  }

  std::string printableArea() const {
    if (!format_.hasLabels()) {
      return svgRectangle(0, sheet_.top, format_.printable, sheet_.bottom - sheet_.top, "");
    }
    std::string area;
    for (const LabelSpan& span : labels_) {
      area += svgRectangle(0, span.top, format_.printable, span.bottom - span.top, "");
    }
    return area;
  }

  // What the head does not reach, or what would fall between the labels, is not printed.
  std::string content() const {
    std::string svg = "<clipPath id=\"printable\">\n" + printableArea() + "</clipPath>\n";
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
    const double half = (sheet_.right - sheet_.left) * percent / 200.0;
    return svgPath("M" + number(sheet_.left) + " " + number(y) + "h" + number(half) + "M" +
                       number(sheet_.right) + " " + number(y) + "h" + number(-half),
                   " stroke=\"#8a8a84\" stroke-width=\"1.5\" stroke-dasharray=\"9 5\" "
                   "fill=\"none\"");
  }

  // The ends of rolls, which carry a coloured stripe.
  std::string ends() const {
    std::string svg;
    for (std::size_t i = 0; i < paper_.items().size(); ++i) {
      if (std::holds_alternative<RollEndItem>(paper_.items()[i])) {
        svg += rollEndAt(paper_.tops()[i], i + 1 < paper_.items().size());
      }
    }
    return svg;
  }

  std::string rollEndAt(int top, bool goesOn) const {
    const double width = sheet_.right - sheet_.left;
    const double end = top + RollEndItem::kLength;
    std::string svg =
        svgRectangle(sheet_.left, top + 4, width, RollEndItem::kLength - 8, " fill=\"#d6336c\"");
    svg += "<text x=\"" + number((sheet_.left + sheet_.right) / 2) + "\" y=\"" + number(top + 27) +
           "\" font-size=\"22\" text-anchor=\"middle\" fill=\"#fff\" "
           "font-family=\"sans-serif\">end of the roll</text>\n";
    if (!goesOn) return svg;
    return svg + svgPath("M" + number(sheet_.left) + " " + number(end) + "h" + number(width),
                         " stroke=\"#55554f\" stroke-width=\"3\"");
  }

  const Paper& paper_;
  PaperFormat format_;
  Form form_;
  Sheet sheet_;
  double left_;
  std::vector<LabelSpan> labels_;
  std::vector<LabelSpan> marks_;
};

}  // namespace

std::string svgOf(const Paper& paper, Form form) { return Drawing(paper, form).take(); }

}  // namespace tolvex::sim
