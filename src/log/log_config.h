// NLog.ini: which records of which module are written.
#pragma once

#include <string_view>

namespace tolvex {

// The threshold of a module that nobody has named. Also the one number that NLog.ini cannot store.
constexpr int kDefaultThreshold = 5;
constexpr int kHighestLevel = 7;

// One entry of the file. The key points into the line it was read from.
struct Threshold {
  std::string_view module;
  int level;
};

// Reads one line (without its LF). Returns false for everything that is no entry: an empty line, a
// comment (';' or '#'), a "[section]", a missing '=', key or value, and a level of 0, 5 or above 7.
// A byte-order mark is dropped wherever a line begins with one; blanks around key and value too.
bool readThreshold(std::string_view line, Threshold& threshold);

// Reads the whole file and calls visit(threshold) for each entry, in order.
template <typename Visit>
void readThresholds(std::string_view text, Visit&& visit) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
    Threshold threshold;
    if (readThreshold(line, threshold)) visit(threshold);
  }
}

}  // namespace tolvex
