#include "service/reply.h"

#include <cstring>

#include "log/decimal.h"
#include "service/result_codes.h"

namespace tolvex {
namespace {

constexpr std::size_t kParserStack = 512;
// In place, as the text is a copy anyway; iterative, as 2048 brackets would be a deep recursion.
constexpr unsigned kParseFlags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag;

}  // namespace

Reply::Reply(const char* text)
    : pool_(memory_, sizeof(memory_), kPoolGrowth, &heap_),
      document_(&pool_, kParserStack, &pool_) {
  const std::size_t length = strnlen(text, kReplyCapacity);
  std::memcpy(bytes_, text, length);
  bytes_[length] = '\0';
  document_.ParseInsitu<kParseFlags>(bytes_);
}

int Reply::parseError() const {
  const rapidjson::ParseErrorCode error = document_.GetParseError();
  // The iterative parser reports a text that begins with a stray bracket, comma or colon as empty.
  const bool blank = bytes_[std::strspn(bytes_, " \t\r\n")] == '\0';
  return error == rapidjson::kParseErrorDocumentEmpty && !blank ? rapidjson::kParseErrorValueInvalid
                                                                : error;
}

const char* Reply::text(const char* key) const {
  if (!isJson() || !document_.IsObject()) return nullptr;
  const auto member = document_.FindMember(key);
  if (member == document_.MemberEnd() || !member->value.IsString()) return nullptr;
  return member->value.GetString();
}

std::int32_t Reply::result() const {
  const char* const code = text("result");
  return code != nullptr ? textToInt(code) : result::kUnreadableReply;
}

std::int32_t resultOf(const ReplyText& reply) { return Reply(reply.text).result(); }

}  // namespace tolvex
