#include "service/reply.h"

#include <cstring>
#include <string>

#include "service/reply_copy.h"
#include "service/result_codes.h"
#include "support/guarded_buffer.h"
#include "support/json_model.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

constexpr const char* kMembers[] = {"result", "tare", "net", "level", "PrinterList", ""};

void readMembers(const Reply& reply, const JsonModel& model) {
  for (const char* const name : kMembers) {
    const char* const text = reply.text(name);
    const std::optional<std::string> expected = model.text(name);
    require((text != nullptr) == expected.has_value(), "a member is told as it is there or not");
    require(text == nullptr || *expected == text, "a member's text is that of the reply");
  }
  require(reply.result() == resultOf(model), "the result is the number in the reply");
}

// The first ones, those around the end, and one between that depends on the text: all of a short text.
constexpr unsigned kAtEachEnd = 2;

unsigned oneBetween(const char* text, std::size_t length) {
  unsigned sum = 0;
  for (const char* c = text; *c != '\0'; ++c) sum = sum * 31 + static_cast<unsigned char>(*c);
  return kAtEachEnd + sum % static_cast<unsigned>(length - 2 * kAtEachEnd + 1);
}

void copyWith(unsigned capacity, const char* text) {
  const bool fits = std::strlen(text) <= capacity;
  GuardedBuffer whole(capacity);
  const int code = copyWholeReply(whole.data(), capacity, text, 2006);
  require(code == (fits ? 2006 : result::kBufferNotEnough), "a buffer that is too small is told");
  require(whole.holdsLikeStrncpy(text), "the whole reply is copied like strncpy");

  GuardedBuffer exact(capacity);
  const int copied = copyExactText(exact.data(), capacity, text);
  require(copied == (fits ? result::kOk : result::kBufferNotEnough),
          "a buffer that is too small for the exact text is told");
  require(fits ? exact.holdsExactly(text) : exact.isUntouched(),
          "the exact text is copied wholly or not at all");
}

void copyWithEachCapacity(const char* text) {
  const std::size_t length = std::strlen(text);
  const bool isLong = length > 2 * kAtEachEnd;
  if (isLong) copyWith(oneBetween(text, length), text);
  for (unsigned capacity = 0; capacity <= length + 2; ++capacity) {
    if (isLong && capacity == kAtEachEnd) capacity = static_cast<unsigned>(length) - kAtEachEnd;
    copyWith(capacity, text);
  }
  require(copyWholeReply(nullptr, 0, text, 0) == result::kBufferNotEnough, "no buffer, no copy");
  require(copyExactText(nullptr, 4096, text) == result::kBufferNotEnough, "no buffer, no text");
}

}  // namespace

void targets::reply(std::string_view input) {
  const std::string bytes(input);
  const char* const text = bytes.c_str();  // up to the first NUL, as a receive leaves it
  const std::string seen(text, strnlen(text, kReplyCapacity));

  const Reply reply(text);
  const JsonModel model = readJson(seen);
  require(reply.isJson() == (reply.parseError() == 0), "an error has a number, and only an error");
  if (model.verdict != JsonModel::Verdict::kEither) {
    require(reply.isJson() == (model.verdict == JsonModel::Verdict::kJson),
            "what is JSON is read, and nothing else");
    readMembers(reply, model);
  }
  require(Reply(seen.c_str()).result() == reply.result(),
          "what lies behind 2048 bytes is not seen");
  copyWithEachCapacity(text);
}

}  // namespace tolvex::fuzz
