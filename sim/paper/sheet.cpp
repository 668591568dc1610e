#include "paper/sheet.h"

#include <algorithm>
#include <variant>

namespace tolvex::sim {

namespace {

// In dots.
constexpr int kHead = 24;     // of paper above the first line of a roll
constexpr int kTail = 40;     // of paper below the last line that is torn off
constexpr int kBacking = 16;  // beside a label

int divideDown(int a, int b) { return a / b - (a % b < 0 ? 1 : 0); }

SheetEnd endOf(const Paper& paper, Form form) {
  if (!paper.isEmpty()) {
    const PaperItem& last = paper.items().back();
    const auto* cut = std::get_if<CutItem>(&last);
    if (cut != nullptr && cut->percent > 0) return SheetEnd::Cut;
    if (std::holds_alternative<RollEndItem>(last)) return SheetEnd::RollsEnd;
  }
  return form == Form::Strip && !paper.isTornOff() ? SheetEnd::Open : SheetEnd::Torn;
}

// What is shown of the gap above or below a label: half of it, and half as much backing as lies
// beside the label, but no more than there is.
double shownOf(int gap) { return std::min(gap / 2.0 + kBacking / 2.0, gap * 1.0); }

double topOnLabels(const Paper& paper) {
  const LabelStock& first = paper.stretches().front().stock;
  const bool beginsWithALabel = first.position == 0 || first.kind == StockKind::Continuous;
  return beginsWithALabel ? -shownOf(first.gap) : 0;
}

// Counts from the one at the origin; there is one on empty paper, too.
int lastBelievedLabel(const Paper& paper) {
  return divideDown(std::max(paper.length(), 1) - 1 - paper.origin(), paper.format().pitch());
}

double bottomOnLabels(const Paper& paper, Form form, SheetEnd end) {
  const PaperFormat& format = paper.format();
  const int top = paper.origin() + lastBelievedLabel(paper) * format.pitch();
  if (end == SheetEnd::RollsEnd) return paper.length();
  if (form == Form::Strip && end == SheetEnd::Cut) return paper.length();
  if (end == SheetEnd::Open) return std::max(top + format.pitch(), paper.length());
  return top + format.labelHeight + shownOf(format.labelGap);
}

double bottomOnRoll(const Paper& paper, SheetEnd end) {
  return paper.length() + (end == SheetEnd::Torn ? kTail : 0);
}

}  // namespace

Sheet sheetOf(const Paper& paper, Form form) {
  const PaperFormat& format = paper.format();
  const double beside = (format.width - format.printable) / 2.0;
  const double side = format.hasLabels() ? kBacking : 0;
  const double top = format.hasLabels() ? topOnLabels(paper) : -kHead;
  const SheetEnd end = endOf(paper, form);
  const double bottom =
      format.hasLabels() ? bottomOnLabels(paper, form, end) : bottomOnRoll(paper, end);
  const int percent =
      end == SheetEnd::Cut ? std::min(std::get<CutItem>(paper.items().back()).percent, 100) : 0;
  return {-beside - side, format.width - beside + side, form == Form::Strip ? 0 : top, bottom, end,
          percent};
}

}  // namespace tolvex::sim
