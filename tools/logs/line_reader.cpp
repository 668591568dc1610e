#include "logs/line_reader.h"

#include <algorithm>
#include <cstring>

namespace tolvex::ctl {
namespace {

constexpr std::int64_t kBlockSize = 65536;

}  // namespace

LineReader::LineReader(const std::filesystem::path& path, std::int64_t offset, std::int64_t limit)
    : file_(path, std::ios::binary), remaining_(limit - offset), position_(offset) {
  if (offset > 0) file_.seekg(offset);
}

bool LineReader::next(std::string& line) {
  line.clear();
  leftOut_ = 0;
  ended_ = false;
  bool any = false;
  while (!ended_ && (at_ < end_ || fill())) {
    any = true;
    const char* const begin = block_.data() + at_;
    const auto* const feed = static_cast<const char*>(std::memchr(begin, '\n', end_ - at_));
    const std::size_t size = feed != nullptr ? static_cast<std::size_t>(feed - begin) : end_ - at_;
    append(line, begin, size);
    ended_ = feed != nullptr;
    at_ += size + (ended_ ? 1 : 0);
    position_ += static_cast<std::int64_t>(size + (ended_ ? 1 : 0));
  }
  if (!line.empty() && line.back() == '\r' && leftOut_ == 0) line.pop_back();
  return any;
}

bool LineReader::fill() {
  const std::int64_t wanted = std::min(kBlockSize, remaining_);
  if (wanted <= 0 || !file_) return false;
  block_.resize(static_cast<std::size_t>(kBlockSize));
  file_.read(block_.data(), wanted);
  at_ = 0;
  end_ = static_cast<std::size_t>(file_.gcount());
  remaining_ -= static_cast<std::int64_t>(end_);
  return end_ > 0;
}

void LineReader::append(std::string& line, const char* data, std::size_t size) {
  const std::size_t taken = std::min(size, kLongestLine - line.size());
  line.append(data, taken);
  leftOut_ += static_cast<std::int64_t>(size - taken);
}

}  // namespace tolvex::ctl
