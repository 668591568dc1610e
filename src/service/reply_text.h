// The bytes of a reply.
#pragma once

namespace tolvex {

// The most that one receive takes in, and so the longest reply.
constexpr unsigned kReplyCapacity = 2048;

// The bytes of one receive, terminated by whoever receives them; empty at first.
struct ReplyText {
  char text[kReplyCapacity + 1];

  ReplyText() { text[0] = '\0'; }
};

}  // namespace tolvex
