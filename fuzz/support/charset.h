// The ways in which this system makes UTF-8 of the host's texts.
#pragma once

#include <string>
#include <vector>

namespace tolvex::fuzz {

struct Conversion {
  std::string utf8;
  bool isUtf8;      // the text was taken for UTF-8
  bool keepsAscii;  // all of it; a set may have another letter in the place of the backslash
};

// The text, converted by AnsiToUtf8, and where this system has more character sets from one of them,
// which the letter chooses.
std::vector<Conversion> conversions(char letter, const std::string& text);

}  // namespace tolvex::fuzz
