#include "service/reply.h"

#include <rapidjson/reader.h>

#include <cstring>

#include "log/decimal.h"
#include "service/json_allocator.h"
#include "service/result_codes.h"

namespace tolvex {
namespace {

// In place, as the text is a copy anyway.
constexpr unsigned kFlat = rapidjson::kParseInsituFlag;
constexpr unsigned kDeep = kFlat | rapidjson::kParseIterativeFlag;
// Up to here the recursive parser does, which is the faster one.
constexpr int kFewBrackets = 32;

using Pool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
using Reader = rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, Pool>;

const char* pastBlanks(const char* at) {
  while (*at == ' ' || *at == '\t' || *at == '\r' || *at == '\n') ++at;
  return at;
}

// For names of a few letters, for which a call of memcmp takes longer.
bool isSame(const char* text, std::string_view name) {
  for (const char c : name) {
    if (*text++ != c) return false;
  }
  return true;
}

// What follows an opening quote; null where there is none.
const char* plainString(const char* at) { return *at == '"' ? at + 1 : nullptr; }

// The first character that does not stand for itself in a string, a quote or the text's end at the latest.
const char* endOfPlain(const char* at) {
  while (static_cast<unsigned char>(*at) >= ' ' && *at != '"' && *at != '\\') ++at;
  return at;
}

// No fewer than the depth.
int openingBrackets(const char* text, std::size_t length) {
  int count = 0;
  for (std::size_t at = 0; at < length; ++at) count += text[at] == '{' || text[at] == '[' ? 1 : 0;
  return count;
}

// The iterative parser reports a text that begins with a stray bracket, comma or colon as empty.
int errorOfDeep(rapidjson::ParseErrorCode error, const char* text) {
  const bool blank = text[std::strspn(text, " \t\r\n")] == '\0';
  return error == rapidjson::kParseErrorDocumentEmpty && !blank ? rapidjson::kParseErrorValueInvalid
                                                                : error;
}

template <unsigned kFlags, typename Handler>
rapidjson::ParseErrorCode parseInPlace(char* text, Handler& handler) {
  constexpr std::size_t kStack = 512;
  constexpr std::size_t kGrowth = 8192;
  alignas(std::max_align_t) char memory[kStack * 2];
  ThrowingAllocator heap;
  Pool pool(memory, sizeof(memory), kGrowth, &heap);
  Reader reader(&pool, kStack);
  rapidjson::InsituStringStream stream(text);
  return reader.Parse<kFlags>(stream, handler).Code();
}

}  // namespace

// Notes the members of the outermost object as the parser comes by them.
class Reply::Collector {
 public:
  explicit Collector(Reply& reply) : reply_(reply) {}

  // NOLINTBEGIN(readability-identifier-naming): the parser's names
  bool Null() { return other(); }
  bool Bool(bool) { return other(); }
  bool Int(int) { return other(); }
  bool Uint(unsigned) { return other(); }
  bool Int64(std::int64_t) { return other(); }
  bool Uint64(std::uint64_t) { return other(); }
  bool Double(double) { return other(); }
  bool RawNumber(const char*, rapidjson::SizeType, bool) { return other(); }
  bool StartArray() { return open(); }
  bool EndArray(rapidjson::SizeType) { return close(); }
  bool StartObject() { return open(); }
  bool EndObject(rapidjson::SizeType) { return close(); }

  bool Key(const char* text, rapidjson::SizeType length, bool) {
    if (depth_ != 1) return true;
    reply_.members_[reply_.count_++] = {reply_.placeOf(text), static_cast<std::uint16_t>(length),
                                        kNoText};
    isExpected_ = true;
    return true;
  }

  bool String(const char* text, rapidjson::SizeType, bool) {
    if (isExpected_) reply_.members_[reply_.count_ - 1].value = reply_.placeOf(text);
    return other();
  }
  // NOLINTEND(readability-identifier-naming)

 private:
  bool other() {
    isExpected_ = false;
    return true;
  }
  bool open() {
    ++depth_;
    return other();
  }
  bool close() {
    --depth_;
    return true;
  }

  Reply& reply_;
  int depth_ = 0;
  bool isExpected_ = false;  // whether what comes is the value of the latest member
};

Reply::Reply(const char* text) {
  const std::size_t length = strnlen(text, kReplyCapacity);
  std::memcpy(received_, text, length);
  received_[length] = '\0';
  parse();
}

void Reply::parse() {
  if (isParsed_) return;
  isParsed_ = true;
  parseText();
  const char* const code = text("result");
  hasResult_ = code != nullptr;
  result_ = hasResult_ ? textToInt(code) : result::kUnreadableReply;
}

void Reply::parseText() {
  const std::size_t length = std::strlen(received_);
  std::memcpy(parsed_, received_, length + 1);
  if (parsePlain()) return;
  count_ = 0;
  std::memcpy(parsed_, received_, length);
  Collector collector(*this);
  error_ = openingBrackets(parsed_, length) <= kFewBrackets
               ? parseInPlace<kFlat>(parsed_, collector)
               : errorOfDeep(parseInPlace<kDeep>(parsed_, collector), received_);
}

bool Reply::parsePlain() {
  const auto place = [this](const char* text) {
    return static_cast<std::uint16_t>(text - received_);
  };
  const char* at = pastBlanks(received_);
  if (*at != '{') return false;
  do {
    const char* const key = plainString(pastBlanks(at + 1));
    if (key == nullptr) return false;
    const char* const keyEnd = endOfPlain(key);
    if (*keyEnd != '"') return false;
    at = pastBlanks(keyEnd + 1);
    if (*at != ':') return false;
    const char* const value = plainString(pastBlanks(at + 1));
    if (value == nullptr) return false;
    at = endOfPlain(value);
    if (*at != '"') return false;
    parsed_[at - received_] = '\0';
    members_[count_++] = {place(key), static_cast<std::uint16_t>(keyEnd - key), place(value)};
    at = pastBlanks(at + 1);
  } while (*at == ',');
  return *at == '}' && *pastBlanks(at + 1) == '\0';
}

const char* Reply::text(std::string_view key) const {
  if (!isJson()) return nullptr;
  for (std::size_t at = 0; at < count_; ++at) {
    const Member& member = members_[at];
    if (member.keyLength == key.size() && isSame(parsed_ + member.key, key)) {
      return member.value != kNoText ? parsed_ + member.value : nullptr;
    }
  }
  return nullptr;
}

}  // namespace tolvex
