#include "service/envelope.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace tolvex {
namespace {

constexpr std::size_t kLongestEscape = 6;  // \u001F
constexpr std::size_t kEnd = 2;            // the closing brace and the NUL
constexpr std::size_t kAround = 3;         // a string's quotes and what follows the second one

bool isPlain(char c) { return static_cast<unsigned char>(c) >= ' ' && c != '"' && c != '\\'; }

// What follows the backslash; 'u' for a character without a letter of its own.
char letterOf(char c) {
  switch (c) {
    case '\b':
      return 'b';
    case '\f':
      return 'f';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    case '\t':
      return 't';
    case '"':
    case '\\':
      return c;
    default:
      return 'u';
  }
}

char* putEscaped(char* at, char c) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  *at++ = '\\';
  *at++ = letterOf(c);
  if (at[-1] != 'u') return at;
  *at++ = '0';
  *at++ = '0';
  *at++ = kDigits[static_cast<unsigned char>(c) >> 4];
  *at++ = kDigits[static_cast<unsigned char>(c) & 15];
  return at;
}

std::size_t escapedSize(const char* text, std::size_t length) {
  std::size_t size = length;
  for (const char* c = text; c != text + length; ++c) {
    if (!isPlain(*c)) size += letterOf(*c) == 'u' ? kLongestEscape - 1 : 1;
  }
  return size;
}

}  // namespace

Envelope::Envelope(const char* command) {
  bytes_[size_++] = '{';
  add("cmd", command);
}

Envelope& Envelope::add(const char* key, const char* value) {
  if (size_ > 1) bytes_[size_++] = ',';
  addString(key);
  bytes_[size_++] = ':';
  addString(value != nullptr ? value : "");
  return *this;
}

Envelope& Envelope::add(const char* key, int value) {
  char digits[12] = {};
  std::to_chars(digits, digits + sizeof(digits) - 1, value);
  return add(key, digits);
}

void Envelope::addString(const char* text) {
  const std::size_t length = std::strlen(text);
  // Of a short text nobody counts what it takes.
  const bool fits = size_ + length * kLongestEscape + kAround + kEnd <= capacity_;
  if (!fits) reserve(escapedSize(text, length));
  char* at = bytes_ + size_;
  *at++ = '"';
  for (const char* c = text; c != text + length; ++c) {
    if (isPlain(*c)) {
      *at++ = *c;
    } else {
      at = putEscaped(at, *c);
    }
  }
  *at++ = '"';
  size_ = static_cast<std::size_t>(at - bytes_);
}

void Envelope::reserve(std::size_t bytes) {
  const std::size_t needed = size_ + bytes + kAround + kEnd;
  if (needed <= capacity_) return;
  const std::size_t capacity = std::max(needed, capacity_ * 2);
  auto* const larger = static_cast<char*>(ThrowingAllocator().Malloc(capacity));
  std::memcpy(larger, bytes_, size_);
  many_.reset(larger);
  bytes_ = larger;
  capacity_ = capacity;
}

const char* Envelope::text() {
  if (!ended_) {
    bytes_[size_++] = '}';
    bytes_[size_] = '\0';
  }
  ended_ = true;
  return bytes_;
}

unsigned Envelope::length() const { return static_cast<unsigned>(size_); }

}  // namespace tolvex
