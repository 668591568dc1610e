// The result codes that the library and the service share.
#pragma once

#include <cstdint>

#include "api/exports.h"

namespace tolvex {

// Named kOk, kOutOfPaper and so on, from the one list, which stands in the public header.
namespace result {
#define TOLVEX_NAME_CODE(code, NAME, Name, text, meaning, remedy) \
  constexpr std::int32_t k##Name = code;
TOLVEX_RESULT_CODES(TOLVEX_NAME_CODE)
#undef TOLVEX_NAME_CODE

// Not in the table: the reply is not JSON or has no text as its "result".
constexpr std::int32_t kUnreadableReply = TOLVEX_UNREADABLE_REPLY;
}  // namespace result

// The message of a code, null for a code that is not in the table.
const char* resultMessage(std::int32_t code);

}  // namespace tolvex
