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
};

bool isContent(const PaperItem& item) {
  return std::holds_alternative<TextItem>(item) || std::holds_alternative<ImageItem>(item);
}

int clampLength(long long length) { return static_cast<int>(std::min(length, kEndlessLength)); }

}  // namespace

int heightOf(const PaperItem& item) {
  return static_cast<int>(std::clamp<long long>(std::visit(Height{}, item), 0, kMaxItemHeight));
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

int Paper::topOnLabels(int height) const {
  const int used = length_ % format_.pitch();
  const bool isInGap = used >= format_.labelHeight;
  const bool fitsOnNext = height <= format_.labelHeight;
  const bool fitsHere = used + height <= format_.labelHeight;
  if (!isInGap && (fitsHere || !fitsOnNext)) return length_;
  return clampLength((length_ / format_.pitch() + 1LL) * format_.pitch());
}

int Paper::topOfCut() const {
  const int used = length_ % format_.pitch();
  if (used == 0 || used >= format_.labelHeight) return length_;
  return clampLength(static_cast<long long>(length_) + format_.labelHeight - used);
}

}  // namespace tolvex::sim
