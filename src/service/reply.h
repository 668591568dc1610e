// Reading one reply of the service.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tolvex {

// The most that one receive takes in, and so the longest reply.
constexpr unsigned kReplyCapacity = 2048;

// A reply: its text as it was received, and once it is parsed its members. Takes any text: what is not
// there, or not of the right type, is told as such. Any nesting is parsed without a deep stack. Takes no
// memory from the heap but for nesting that no reply has. Parsing throws std::bad_alloc only.
class Reply {
 public:
  Reply() { received_[0] = '\0'; }  // an empty text, to be received into and parsed
  // Copies the text up to its NUL, at most kReplyCapacity bytes, and parses it.
  explicit Reply(const char* text);
  Reply(const Reply&) = delete;
  Reply& operator=(const Reply&) = delete;

  // Where to receive the text, of kReplyCapacity bytes at most; whoever does so terminates it.
  char* room() { return received_; }
  const char* raw() const { return received_; }  // the text as it came

  // Parses what was received, once: a second call does nothing. Of a reply that is not parsed nothing
  // below may be asked.
  void parse();

  bool isJson() const { return error_ == 0; }
  // The parser's number for what is wrong with the text, 0 for nothing.
  int parseError() const { return error_; }

  // A member's text, which lives as long as this object. Null when the reply is no JSON object, has
  // no such member, or has something other than a string there. Of two with one name it is the first.
  const char* text(std::string_view key) const;

  // The number in the text of "result" (the digits it begins with; none give 0), or
  // result::kUnreadableReply when there is no such text.
  std::int32_t result() const { return result_; }
  bool hasResult() const { return hasResult_; }

 private:
  class Collector;

  // Fills what is below.
  void parseText();

  // Where a member lies in parsed_.
  struct Member {
    std::uint16_t key;
    std::uint16_t keyLength;
    std::uint16_t value;  // kNoText where it is no string
  };
  static constexpr std::uint16_t kNoText = 0xFFFF;
  // The shortest is "":0 with a comma.
  static constexpr std::size_t kMostMembers = kReplyCapacity / 5 + 1;

  // Parses an object of nothing but strings without escapes, as nearly every reply is: in a third of the
  // time. False for everything else, which is left to the JSON library.
  bool parsePlain();
  std::uint16_t placeOf(const char* text) const {
    return static_cast<std::uint16_t>(text - parsed_);
  }

  bool isParsed_ = false;
  bool hasResult_ = false;
  std::int32_t result_ = 0;
  int error_ = 0;
  std::size_t count_ = 0;
  // Only what the text fills of these is ever touched.
  char received_[kReplyCapacity + 1];
  char parsed_[kReplyCapacity + 1];  // the strings end with a NUL in the place of their quotes
  Member members_[kMostMembers];
};

}  // namespace tolvex
