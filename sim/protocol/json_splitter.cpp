#include "protocol/json_splitter.h"

#include <algorithm>

namespace tolvex::sim {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

void JsonSplitter::feed(std::string_view bytes) {
  if (broken_) return;
  buffer_.erase(0, start_);
  scan_ -= start_;
  start_ = 0;
  buffer_.append(bytes);
}

std::optional<JsonSplitter::Piece> JsonSplitter::next() {
  if (broken_) return std::nullopt;
  if (depth_ == 0) {
    std::optional<Piece> garbage;
    if (!findObject(garbage)) return garbage;
  }
  if (scanObject()) return take(Kind::Object, scan_ - start_);
  if (scan_ - start_ > maxObjectBytes_) {
    Piece piece = take(Kind::TooLong, kSampleBytes);
    broken_ = true;
    buffer_ = {};
    return piece;
  }
  return std::nullopt;
}

// Moves start_ to the next '{'. Returns false when the bytes at hand have none or when garbage has
// to be reported first.
bool JsonSplitter::findObject(std::optional<Piece>& garbage) {
  if (!inGarbage_) {
    while (start_ < buffer_.size() && isBlank(buffer_[start_])) ++start_;
  }
  const std::size_t brace = std::min(buffer_.find('{', start_), buffer_.size());
  if (brace > start_ && !inGarbage_) {
    inGarbage_ = true;
    garbage = take(Kind::Garbage, std::min(brace - start_, kSampleBytes));
  }
  start_ = scan_ = brace;
  if (garbage || brace == buffer_.size()) return false;
  inGarbage_ = false;
  return true;
}

// Looks at further bytes of the object at start_. Returns true when its last brace was reached.
bool JsonSplitter::scanObject() {
  while (scan_ < buffer_.size() && scan_ - start_ <= maxObjectBytes_) {
    const char c = buffer_[scan_++];
    if (inString_) {
      scanInString(c);
    } else if (c == '"') {
      inString_ = true;
    } else if (c == '{') {
      ++depth_;
    } else if (c == '}' && --depth_ == 0) {
      return scan_ - start_ <= maxObjectBytes_;
    }
  }
  return false;
}

void JsonSplitter::scanInString(char c) {
  if (escaped_) {
    escaped_ = false;
  } else if (c == '\\') {
    escaped_ = true;
  } else if (c == '"') {
    inString_ = false;
  }
}

JsonSplitter::Piece JsonSplitter::take(Kind kind, std::size_t length) {
  Piece piece{kind, buffer_.substr(start_, length)};
  start_ = std::min(start_ + length, buffer_.size());
  return piece;
}

}  // namespace tolvex::sim
