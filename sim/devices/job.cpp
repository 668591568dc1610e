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

bool Job::add(std::vector<PaperItem> items) {
  std::int64_t length = paper_.length();
  std::size_t bytes = bytes_;
  for (const PaperItem& item : items) {
    length += heightOf(item);
    bytes += bytesOf(item);
  }
  if (length > kMaxLength || bytes > kMaxBytes) return false;
  bytes_ = bytes;
  for (PaperItem& item : items) paper_.add(std::move(item));
  return true;
}

void Job::cut(int percent) {
  paper_.add(CutItem{percent});
  finish();
}

}  // namespace tolvex::sim
