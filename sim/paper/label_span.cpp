#include "paper/label_span.h"

#include <algorithm>
#include <cstddef>
#include <functional>

namespace tolvex::sim {

namespace {

using TakeStretch = std::function<void(const Stretch& stretch, int from, int to)>;

// The first stretch reaches beyond the top of the paper, the last one beyond its end.
void forEachStretch(const Paper& paper, int from, int to, const TakeStretch& take) {
  const auto& stretches = paper.stretches();
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    const int top = i == 0 ? from : std::max(from, stretches[i].top);
    const int end = i + 1 == stretches.size() ? to : std::min(to, stretches[i + 1].top);
    if (top < end) take(stretches[i], top, end);
  }
}

// What lies `offset` below the upper edge of each label and is `height` high.
void addRepeated(std::vector<LabelSpan>& spans, const Stretch& stretch, int offset, int height,
                 int from, int to) {
  const LabelStock& stock = stretch.stock;
  int top = stretch.top - stock.position + offset;
  top += (from - top) / stock.pitch() * stock.pitch();
  while (top + height > from) top -= stock.pitch();
  for (; top < to; top += stock.pitch()) {
    const int bottom = top + height;
    if (bottom <= from) continue;
    spans.push_back(
        {stock.kind, std::max(top, from), std::min(bottom, to), top >= from, bottom <= to});
  }
}

}  // namespace

std::vector<LabelSpan> labelsOn(const Paper& paper, int from, int to) {
  std::vector<LabelSpan> spans;
  forEachStretch(paper, from, to, [&](const Stretch& stretch, int top, int end) {
    const LabelStock& stock = stretch.stock;
    if (stock.kind == StockKind::Gap) {
      addRepeated(spans, stretch, 0, stock.label, top, end);
    } else {
      spans.push_back({stock.kind, top, end});
    }
  });
  return spans;
}

std::vector<LabelSpan> marksOn(const Paper& paper, int from, int to) {
  std::vector<LabelSpan> spans = gapsOn(paper, from, to);
  const auto isGap = [](const LabelSpan& span) { return span.kind == StockKind::Gap; };
  spans.erase(std::remove_if(spans.begin(), spans.end(), isGap), spans.end());
  return spans;
}

std::vector<LabelSpan> gapsOn(const Paper& paper, int from, int to) {
  std::vector<LabelSpan> spans;
  forEachStretch(paper, from, to, [&](const Stretch& stretch, int top, int end) {
    const LabelStock& stock = stretch.stock;
    if (stock.kind != StockKind::Continuous) {
      addRepeated(spans, stretch, stock.label, stock.gap, top, end);
    }
  });
  return spans;
}

}  // namespace tolvex::sim
