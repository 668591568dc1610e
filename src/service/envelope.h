// The request: one compact JSON object, "cmd" first.
#pragma once

#include <rapidjson/allocators.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstddef>

#include "service/json_allocator.h"

namespace tolvex {

// Builds a request member by member, in the order of the calls. Every value becomes a JSON string:
// quotes, backslashes and control characters are escaped, all other bytes go through as they are.
// Throws std::bad_alloc only.
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
  using Pool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
  using Buffer = rapidjson::GenericStringBuffer<rapidjson::UTF8<>, Pool>;
  using Writer = rapidjson::Writer<Buffer, rapidjson::UTF8<>, rapidjson::UTF8<>, Pool>;

  static constexpr std::size_t kPoolSize = 1024;    // enough for an ordinary request
  static constexpr std::size_t kPoolGrowth = 8192;  // for each block taken from the heap after it

  alignas(std::max_align_t) char memory_[kPoolSize];
  ThrowingAllocator heap_;
  Pool pool_;
  Buffer buffer_;
  Writer writer_;
  bool ended_ = false;
};

}  // namespace tolvex
