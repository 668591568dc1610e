// A caller's buffer, and what lies around it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "support/target.h"

namespace tolvex::fuzz {

// A buffer of some bytes, full of a mark, with more of it in front and behind: what is written outside
// is seen in each build, also where no sanitizer looks.
class GuardedBuffer {
 public:
  explicit GuardedBuffer(std::size_t size) : bytes_(size + 2 * kGuard, kMark), size_(size) {}

  char* data() { return bytes_.data() + kGuard; }
  std::string_view contents() const { return {bytes_.data() + kGuard, size_}; }

  bool isUntouched() const { return count(bytes_.begin(), bytes_.end()) == bytes_.size(); }
  bool isIntactAround() const {
    return count(bytes_.begin(), bytes_.begin() + kGuard) == kGuard &&
           count(bytes_.end() - kGuard, bytes_.end()) == kGuard;
  }

  // What strncpy leaves: the text as far as it fits, and NULs behind it.
  bool holdsLikeStrncpy(std::string_view text) const {
    std::string expected(text.substr(0, size_));
    expected.resize(size_, '\0');
    return isIntactAround() && contents() == expected;
  }

  // The text, and behind it what was there before.
  bool holdsExactly(std::string_view text) const {
    std::string expected(text);
    expected.resize(std::max(size_, text.size()), kMark);
    return isIntactAround() && contents() == expected;
  }

 private:
  static constexpr std::size_t kGuard = 16;
  static constexpr char kMark = '\xA5';

  using Place = std::vector<char>::const_iterator;
  static std::size_t count(Place from, Place to) {
    return static_cast<std::size_t>(std::count(from, to, kMark));
  }

  std::vector<char> bytes_;
  std::size_t size_;
};

}  // namespace tolvex::fuzz
