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

constexpr int kFieldWidth = 7;
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
  if (text.size() < std::size_t{kFieldWidth}) {
    const bool finite = std::isfinite(value);
    const std::size_t signs = finite && text[0] == '-' ? 1 : 0;
    text.insert(signs, std::size_t{kFieldWidth} - text.size(), finite ? '0' : ' ');
  }
  return text;
}

// ---- The ordinary case ----
//
// Weights are short decimal numbers. For these both directions are exact in plain arithmetic, which takes
// a fraction of the time that the general way does.

constexpr double kPowersOfTen[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
constexpr int kMostDecimals = 9;
// Whole numbers of so many digits are doubles, and so are the powers of ten above.
constexpr int kMostDigits = 15;

// Reads a text that is nothing but digits, perhaps with one point and a minus. The quotient of two exact
// doubles is the double next to the number. False for every other text.
bool readPlain(const char* text, double& value) {
  const bool negative = *text == '-';
  if (negative) ++text;
  std::uint64_t digits = 0;  // of a long text not the number, but then it is not used
  int count = 0;
  int decimals = 0;
  const auto take = [&] { digits = digits * 10 + static_cast<unsigned>(*text - '0'); };
  for (; isDigit(*text); ++text, ++count) take();
  if (*text == '.') {
    for (++text; isDigit(*text); ++text, ++count, ++decimals) take();
  }
  if (*text != '\0' || count == 0 || count > kMostDigits || decimals > kMostDecimals) return false;
  value = static_cast<double>(digits) / kPowersOfTen[decimals];
  if (negative) value = -value;
  return true;
}

constexpr double kMostPlain = 1e8;
constexpr int kMostPlainDecimals = 4;
constexpr double kDoubt = 1e-3;  // several times the error of a product of the two

// Prints like formatted() below, without a NUL, where that gives no more than the field holds and the
// plain way tells how to round. False otherwise, with nothing written.
bool printPlain(double value, int decimals, char* field) {
  if (!(std::fabs(value) < kMostPlain) || decimals < 1 || decimals > kMostPlainDecimals)
    return false;
  const double scaled = std::fabs(value) * kPowersOfTen[decimals];
  auto digits = static_cast<std::uint64_t>(scaled);
  const double rest = scaled - static_cast<double>(digits);
  if (std::fabs(rest - 0.5) < kDoubt) return false;
  if (rest > 0.5) ++digits;
  const int first = std::signbit(value) ? 1 : 0;
  const int point = kFieldWidth - 1 - decimals;
  // Beside the point and the sign there is room for so many digits.
  if (static_cast<double>(digits) >= kPowersOfTen[kFieldWidth - 1 - first]) return false;
  for (int at = kFieldWidth - 1; at >= first; --at) {
    if (at == point) {
      field[at] = '.';
    } else {
      field[at] = static_cast<char>('0' + digits % 10);
      digits /= 10;
    }
  }
  if (first == 1) field[0] = '-';
  return true;
}

}  // namespace

double textToDouble(const char* text) {
  double plain = 0;
  if (readPlain(text, plain)) return plain;
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
  if (recordSize - offset > std::size_t{kFieldWidth} &&
      printPlain(value, decimals, record + offset)) {
    record[offset + kFieldWidth] = '\0';
    return;
  }
  const std::string text = formatted(value, decimals);
  std::memcpy(record + offset, text.c_str(), std::min(text.size() + 1, recordSize - offset));
}

}  // namespace tolvex
