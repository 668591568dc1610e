// Inputs that are lists of orders, one a line, so that a person can read them and write new ones.
#pragma once

#include <cstddef>
#include <string_view>

namespace tolvex::fuzz {

class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  // Takes the next line, without its end; false behind the last one.
  bool next(std::string_view& line) {
    if (rest_.empty()) return false;
    line = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(line.size() < rest_.size() ? line.size() + 1 : line.size());
    return true;
  }

 private:
  std::string_view rest_;
};

// Takes the first character of a line; '\0' of an empty one.
inline char takeLetter(std::string_view& line) {
  if (line.empty()) return '\0';
  const char letter = line.front();
  line.remove_prefix(1);
  return letter;
}

// Takes the decimal digits at the front, up to a number with six of them.
inline unsigned takeNumber(std::string_view& line) {
  unsigned number = 0;
  for (int digit = 0; digit < 6 && !line.empty() && line.front() >= '0' && line.front() <= '9';
       ++digit) {
    number = number * 10 + static_cast<unsigned>(takeLetter(line) - '0');
  }
  return number;
}

}  // namespace tolvex::fuzz
