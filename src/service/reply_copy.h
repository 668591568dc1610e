// The ways in which reply data reaches a caller's buffer.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tolvex {

// The tare text of a reply is handed on up to this many characters.
constexpr unsigned kTareTextSize = 10;

// Copies like strncpy: at most size bytes, the rest of the size filled with NUL, no terminator when
// the text takes the whole size. A null out is not written.
void boundedCopy(char* out, const char* text, std::size_t size);

// The whole reply. Returns code, or result::kBufferNotEnough when the text is longer than size; the
// first size bytes are copied all the same. A null out cannot take a reply: kBufferNotEnough.
std::int32_t copyWholeReply(char* out, unsigned size, const char* reply, std::int32_t code);

// Exactly the text, without a NUL. Returns result::kOk, or result::kBufferNotEnough, with nothing
// copied, when the text is longer than size or out is null.
std::int32_t copyExactText(char* out, unsigned size, const char* text);

}  // namespace tolvex
