#include "weighing/record_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace tolvex {
namespace {

constexpr std::size_t kFieldWidth = 7;
constexpr int kBitsOfHexDigit = 4;
constexpr int kLongestNumber = 340;  // of a finite double with a few decimals, sign included

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isHexDigit(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

// The power (of ten, or of two for a hexadecimal number) that the first digit that counts stands
// for, roughly: it tells a number that is too large from one that is too small.
std::int64_t magnitude(const char* text, const char* end, bool hexadecimal) {
  int beforePoint = 0;
  int leadingZeros = 0;
  bool pointSeen = false;
  bool digitSeen = false;
  const char* c = text;
  for (; c != end && (*c == '.' || (hexadecimal ? isHexDigit(*c) : isDigit(*c))); ++c) {
    if (*c == '.') {
      pointSeen = true;
    } else {
      digitSeen = digitSeen || *c != '0';
      if (digitSeen && !pointSeen) ++beforePoint;
      if (!digitSeen && pointSeen) ++leadingZeros;
    }
  }
  int exponent = 0;
  if (c != end) {  // the exponent's letter; from_chars does not take a plus sign, but the text may
    ++c;
    if (*c == '+') ++c;
    const auto parsed = std::from_chars(c, end, exponent);
    if (parsed.ec == std::errc::result_out_of_range) {
      exponent =
          *c == '-' ? std::numeric_limits<int>::min() / 2 : std::numeric_limits<int>::max() / 2;
    }
  }
  const std::int64_t perDigit = hexadecimal ? kBitsOfHexDigit : 1;
  return exponent + perDigit * (beforePoint - leadingZeros);
}

bool isHexadecimal(const char* text) {
  return text[0] == '0' && (text[1] == 'x' || text[1] == 'X') &&
         (isHexDigit(text[2]) || (text[2] == '.' && isHexDigit(text[3])));
}

// Reads a number without a sign; false when the text does not begin with one.
bool readUnsigned(const char* text, double& value) {
  const bool hexadecimal = isHexadecimal(text);
  const char* const digits = hexadecimal ? text + 2 : text;
  if (*digits == '-') return false;  // a second sign
  const char* end = digits + std::strlen(digits);
  if (hexadecimal) {
    const char* const exponent = std::strpbrk(digits, "pP");
    // No exponent, but from_chars would skip its first sign.
    if (exponent != nullptr && exponent[1] == '+' && exponent[2] == '-') end = exponent;
  }
  const auto parsed = std::from_chars(
      digits, end, value, hexadecimal ? std::chars_format::hex : std::chars_format::general);
  if (parsed.ec == std::errc::result_out_of_range) {
    const bool large = magnitude(digits, parsed.ptr, hexadecimal) > 0;
    value = large ? std::numeric_limits<double>::infinity() : 0;
    return true;
  }
  return parsed.ec == std::errc();
}

// As printf shows it: digits are padded with zeros behind the sign, "inf" and "nan" with blanks.
std::string formatted(double value, int decimals) {
  char digits[kLongestNumber];
  const auto printed =
      std::to_chars(digits, digits + sizeof(digits), value, std::chars_format::fixed, decimals);
  std::string text(digits, printed.ptr);
  if (text.size() < kFieldWidth) {
    const bool finite = std::isfinite(value);
    const std::size_t signs = finite && text[0] == '-' ? 1 : 0;
    text.insert(signs, kFieldWidth - text.size(), finite ? '0' : ' ');
  }
  return text;
}

}  // namespace

double textToDouble(const char* text) {
  text += std::strspn(text, " \t\n\v\f\r");
  const bool negative = *text == '-';
  if (negative || *text == '+') ++text;
  double value = 0;
  if (!readUnsigned(text, value)) return 0;  // a sign alone is no -0
  return negative ? -value : value;
}

std::int32_t truncated(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  if (value >= static_cast<double>(Limits::max())) return Limits::max();
  if (value <= static_cast<double>(Limits::min())) return Limits::min();
  return static_cast<std::int32_t>(value);
}

void printWeight(char* record, std::size_t recordSize, std::size_t offset, double value,
                 int decimals) {
  const std::string text = formatted(value, decimals);
  std::memcpy(record + offset, text.c_str(), std::min(text.size() + 1, recordSize - offset));
}

}  // namespace tolvex
