// Texts of several languages in their 8-bit character sets, and what they say in UTF-8.
#pragma once

#include <string>

namespace tolvex::test {

struct AnsiText {
  std::string ansi;
  std::string utf8;
};

// Two Chinese words with ASCII between and behind them. The last two characters end in bytes that
// stand for '\\' and 'F' on their own.
inline const AnsiText kGbk{
    "\xBC\xDB\xB8\xF1: 12.50 \xD4\xAA\r\n\x81\x5C \xE9\x46",
    "\xE4\xBB\xB7\xE6\xA0\xBC: 12.50 \xE5\x85\x83\r\n\xE4\xB9\x97 \xE9\x95\x95"};

// "Kassa", the numero sign and "Yozh" (with the letter outside the alphabet's row) in Cyrillic.
inline const AnsiText kCp1251{
    "\xCA\xE0\xF1\xF1\xE0 \xB9"
    "5\r\n\xA8\xE6",
    "\xD0\x9A\xD0\xB0\xD1\x81\xD1\x81\xD0\xB0 \xE2\x84\x96"
    "5\r\n\xD0\x81\xD0\xB6"};

// "Groesse" and "Kaese" with umlauts, and a fraction: where ISO 8859-1 and Windows' 1252 agree.
inline const AnsiText kLatin1{
    "Gr\xF6\xDF"
    "e \xBD\r\nK\xE4se",
    "Gr\xC3\xB6\xC3\x9F"
    "e \xC2\xBD\r\nK\xC3\xA4se"};

// The path by which test::writeBytes and the like know the file whose ANSI path this is.
std::string pathOf(const AnsiText& ansiPath);

inline std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

}  // namespace tolvex::test
