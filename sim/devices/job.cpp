#include "devices/job.h"

#include <cstdint>

namespace tolvex::sim {

namespace {

std::size_t bytesOf(const PaperItem& item) {
  std::size_t bytes = sizeof item;
  if (const auto* text = std::get_if<TextItem>(&item)) bytes += text->text.size();
  if (const auto* image = std::get_if<ImageItem>(&item)) {
    constexpr std::size_t kDotsPerByte = 8;
    bytes += static_cast<std::size_t>(image->bitmap.width()) *
             static_cast<std::size_t>(image->bitmap.height()) / kDotsPerByte;
  }
  return bytes;
}

}  // namespace

JobEnd Job::end() const {
  if (paper_.isTornOff()) return JobEnd::Torn;
  const bool isCut = !paper_.isEmpty() && std::holds_alternative<CutItem>(paper_.items().back());
  return isCut ? JobEnd::Cut : JobEnd::Open;
}

bool Job::fits(const std::vector<PaperItem>& items) const {
  std::int64_t length = paper_.length();
  std::size_t bytes = bytes_;
  for (const PaperItem& item : items) {
    length += heightOf(item);
    bytes += bytesOf(item);
  }
  return length <= kMaxLength && bytes <= kMaxBytes;
}

void Job::add(PaperItem item) {
  bytes_ += bytesOf(item);
  paper_.add(std::move(item));
}

void Job::endRoll() {
  const auto& items = paper_.items();
  if (items.empty() || !std::holds_alternative<RollEndItem>(items.back())) add(RollEndItem{});
}

void Job::cut(int percent) {
  paper_.add(CutItem{percent});
  finish();
}

}  // namespace tolvex::sim
