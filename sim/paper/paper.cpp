#include "paper/paper.h"

#include <algorithm>
#include <utility>

namespace tolvex::sim {

namespace {

// What stays the length of a paper that grows for ever.
constexpr long long kEndlessLength = 1'000'000'000;

struct Height {
  long long operator()(const TextItem& text) const { return text.fontSize + text.fontSize / 4LL; }
  long long operator()(const ImageItem& image) const { return image.bitmap.height(); }
  long long operator()(const FeedItem& feed) const { return feed.length; }
  long long operator()(const CutItem& /*cut*/) const { return 0; }
  long long operator()(const RollEndItem& /*end*/) const { return RollEndItem::kLength; }
};

bool isContent(const PaperItem& item) {
  return std::holds_alternative<TextItem>(item) || std::holds_alternative<ImageItem>(item);
}

int clampLength(long long length) { return static_cast<int>(std::min(length, kEndlessLength)); }

}  // namespace

int heightOf(const PaperItem& item) {
  return static_cast<int>(std::clamp<long long>(std::visit(Height{}, item), 0, kMaxItemHeight));
}

Paper::Paper(const PaperFormat& format) : format_(format) {
  if (!format_.hasLabels()) return;
  stretches_.push_back({0, {StockKind::Gap, format_.labelHeight, format_.labelGap}});
}

void Paper::layOut(const LabelStock& labels) {
  format_.labelHeight = labels.label;
  format_.labelGap = labels.gap;
  origin_ = length_ - labels.position;
}

void Paper::lieOn(const LabelStock& stock) {
  if (stretches_.back().top == length_) stretches_.pop_back();
  stretches_.push_back({length_, stock});
}

void Paper::add(PaperItem item) {
  const int top = topFor(item);
  length_ = clampLength(static_cast<long long>(top) + heightOf(item));
  tops_.push_back(top);
  items_.push_back(std::move(item));
}

void Paper::forgetDrawing() {
  for (PaperItem& item : items_) {
    if (auto* image = std::get_if<ImageItem>(&item)) image->png.forget();
  }
}

int Paper::topFor(const PaperItem& item) const {
  if (!format_.hasLabels()) return length_;
  if (isContent(item)) return topOnLabels(heightOf(item));
  return std::holds_alternative<CutItem>(item) ? topOfCut() : length_;
}

// How far a label that the printer believes in has been used at the end of the paper.
int Paper::usedOfLabel() const {
  const int pitch = format_.pitch();
  return ((length_ - origin_) % pitch + pitch) % pitch;
}

int Paper::topOnLabels(int height) const {
  const int used = usedOfLabel();
  const bool isInGap = used >= format_.labelHeight;
  const bool fitsOnNext = height <= format_.labelHeight;
  const bool fitsHere = used + height <= format_.labelHeight;
  if (!isInGap && (fitsHere || !fitsOnNext)) return length_;
  return clampLength(static_cast<long long>(length_) - used + format_.pitch());
}

int Paper::topOfCut() const {
  const int used = usedOfLabel();
  if (used == 0 || used >= format_.labelHeight) return length_;
  return clampLength(static_cast<long long>(length_) + format_.labelHeight - used);
}

}  // namespace tolvex::sim
