#include "service/reply_copy.h"

#include <cstring>

#include "service/result_codes.h"

namespace tolvex {

void boundedCopy(char* out, const char* text, std::size_t size) {
  if (out == nullptr) return;
  const std::size_t length = strnlen(text, size);
  std::memcpy(out, text, length);
  std::memset(out + length, 0, size - length);
}

std::int32_t copyWholeReply(char* out, unsigned size, const char* reply, std::int32_t code) {
  boundedCopy(out, reply, size);
  const bool fits = out != nullptr && std::strlen(reply) <= size;
  return fits ? code : result::kBufferNotEnough;
}

std::int32_t copyExactText(char* out, unsigned size, const char* text) {
  const std::size_t length = std::strlen(text);
  if (out == nullptr || length > size) return result::kBufferNotEnough;
  std::memcpy(out, text, length);
  return result::kOk;
}

}  // namespace tolvex
