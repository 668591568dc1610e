#include "service/envelope.h"

#include <charconv>

namespace tolvex {
namespace {

constexpr std::size_t kInitialCapacity = 256;
constexpr std::size_t kNesting = 1;  // one object, nothing in it but strings

}  // namespace

Envelope::Envelope(const char* command)
    : pool_(memory_, sizeof(memory_), kPoolGrowth, &heap_),
      buffer_(&pool_, kInitialCapacity),
      writer_(buffer_, &pool_, kNesting) {
  writer_.StartObject();
  add("cmd", command);
}

Envelope& Envelope::add(const char* key, const char* value) {
  writer_.Key(key);
  writer_.String(value != nullptr ? value : "");
  return *this;
}

Envelope& Envelope::add(const char* key, int value) {
  char digits[12];
  *std::to_chars(digits, digits + sizeof(digits) - 1, value).ptr = '\0';
  return add(key, digits);
}

const char* Envelope::text() {
  if (!ended_) writer_.EndObject();
  ended_ = true;
  return buffer_.GetString();
}

unsigned Envelope::length() const { return static_cast<unsigned>(buffer_.GetSize()); }

}  // namespace tolvex
