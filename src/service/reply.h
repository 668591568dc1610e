// Reading one reply of the service.
#pragma once

#include <rapidjson/document.h>

#include <cstdint>
#include <string_view>

#include "service/json_allocator.h"
#include "service/reply_text.h"

namespace tolvex {

// A parsed reply. Takes any text: what is not there, or not of the right type, is told as such. Any
// nesting is parsed without recursion. Throws std::bad_alloc only.
class Reply {
 public:
  // Copies the text up to its NUL, at most kReplyCapacity bytes.
  explicit Reply(const char* text);
  Reply(const Reply&) = delete;
  Reply& operator=(const Reply&) = delete;

  bool isJson() const { return !document_.HasParseError(); }
  // The parser's number for what is wrong with the text, 0 for nothing.
  int parseError() const;

  // A member's text, which lives as long as this object. Null when the reply is no JSON object, has
  // no such member, or has something other than a string there.
  const char* text(const char* key) const;

  // The number in the text of "result" (the digits it begins with; none give 0), or
  // result::kUnreadableReply when there is no such text.
  std::int32_t result() const;

 private:
  using Pool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
  using Document = rapidjson::GenericDocument<rapidjson::UTF8<>, Pool, Pool>;

  static constexpr std::size_t kPoolSize = 4096;    // enough for an ordinary reply
  static constexpr std::size_t kPoolGrowth = 8192;  // for each block taken from the heap after it

  char bytes_[kReplyCapacity + 1];
  alignas(std::max_align_t) char memory_[kPoolSize];
  ThrowingAllocator heap_;
  Pool pool_;
  Document document_;
};

// The code of a reply's text, as Reply::result().
std::int32_t resultOf(const ReplyText& reply);

}  // namespace tolvex
