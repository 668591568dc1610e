// The request: one compact JSON object, "cmd" first.
#pragma once

#include <cstddef>
#include <memory>

#include "service/json_allocator.h"

namespace tolvex {

// Builds a request member by member, in the order of the calls. Every value becomes a JSON string:
// quotes, backslashes and control characters are escaped, all other bytes go through as they are.
// Takes memory from the heap only for what is longer than kOrdinarySize. Throws std::bad_alloc only.
class Envelope {
 public:
  explicit Envelope(const char* command);
  Envelope(const Envelope&) = delete;
  Envelope& operator=(const Envelope&) = delete;

  // A null text counts as empty.
  Envelope& add(const char* key, const char* value);
  // Decimal, as "%d" prints it. An unsigned argument of an export arrives here as the signed number
  // of the same bits.
  Envelope& add(const char* key, int value);

  // Ends the object. The text is NUL-terminated and belongs to the envelope; nothing is added
  // after this.
  const char* text();
  unsigned length() const;  // without the NUL; after text()

 private:
  static constexpr std::size_t kOrdinarySize = 1024;

  void addString(const char* text);
  // Makes room for so many bytes and those that end the object.
  void reserve(std::size_t bytes);

  std::size_t size_ = 0;
  std::size_t capacity_ = kOrdinarySize;
  char* bytes_ = few_;
  struct Free {
    void operator()(char* block) const { ThrowingAllocator::Free(block); }
  };
  std::unique_ptr<char, Free> many_;
  bool ended_ = false;
  char few_[kOrdinarySize];  // only what the text fills of it is ever touched
};

}  // namespace tolvex
