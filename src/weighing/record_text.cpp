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
constexpr int kLongestNumber = 340;  // of a finite double with a few decimals, sign included

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The power of ten of the first digit that counts, for a decimal number whose value is out of
// range: it tells too large from too small.
int magnitude(const char* text, const char* end) {
  int beforePoint = 0;
  int leadingZeros = 0;
  bool pointSeen = false;
  bool digitSeen = false;
  const char* c = text;
  for (; c != end && (isDigit(*c) || *c == '.'); ++c) {
    if (*c == '.') {
      pointSeen = true;
    } else {
      digitSeen = digitSeen || *c != '0';
      if (digitSeen && !pointSeen) ++beforePoint;
      if (!digitSeen && pointSeen) ++leadingZeros;
    }
  }
  int exponent = 0;
  if (c != end) {  // 'e' or 'E'; from_chars does not take a plus sign, but the text may have one
    ++c;
    if (*c == '+') ++c;
    const auto parsed = std::from_chars(c, end, exponent);
    if (parsed.ec == std::errc::result_out_of_range) {
      exponent =
          *c == '-' ? std::numeric_limits<int>::min() / 2 : std::numeric_limits<int>::max() / 2;
    }
  }
  return exponent + beforePoint - leadingZeros;
}

bool isHexadecimal(const char* text) {
  return text[0] == '0' && (text[1] == 'x' || text[1] == 'X') &&
         (std::isxdigit(static_cast<unsigned char>(text[2])) != 0 ||
          (text[2] == '.' && std::isxdigit(static_cast<unsigned char>(text[3])) != 0));
}

// Without a sign. -0.0 and nan need no case of their own.
double unsignedValue(const char* text) {
  double value = 0;
  const bool hexadecimal = isHexadecimal(text);
  const char* const digits = hexadecimal ? text + 2 : text;
  if (*digits == '-') return 0;  // a second sign
  const auto parsed =
      std::from_chars(digits, digits + std::strlen(digits), value,
                      hexadecimal ? std::chars_format::hex : std::chars_format::general);
  if (parsed.ec == std::errc::result_out_of_range) {
    const bool large = hexadecimal || magnitude(digits, parsed.ptr) > 0;
    return large ? std::numeric_limits<double>::infinity() : 0;
  }
  return parsed.ec == std::errc() ? value : 0;
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
  const double value = unsignedValue(text);
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
