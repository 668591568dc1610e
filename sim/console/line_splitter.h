// Lines out of a stream of bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// Fed with bytes in any portions, it yields lines without their ends (LF or CR LF). Of a line
/// longer than kMaxLineBytes the rest is dropped. Not thread-safe.
class LineSplitter {
 public:
  static constexpr std::size_t kMaxLineBytes = 1024;

  /// Appends what was read and calls `onLine(std::string)` for every line that it completes.
  template <typename OnLine>
  void feed(std::string_view bytes, OnLine onLine) {
    for (const char c : bytes) {
      if (c == '\n') {
        onLine(takeLine());
      } else if (line_.size() < kMaxLineBytes) {
        line_ += c;
      }
    }
  }

  /// What followed the last line end; to be called at the end of the input.
  std::optional<std::string> rest() {
    if (line_.empty()) return std::nullopt;
    return takeLine();
  }

 private:
  std::string takeLine() {
    if (!line_.empty() && line_.back() == '\r') line_.pop_back();
    std::string line;
    line.swap(line_);
    return line;
  }

  std::string line_;
};

}  // namespace tolvex::sim
