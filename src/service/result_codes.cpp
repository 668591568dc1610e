#include "service/result_codes.h"

#include <algorithm>
#include <iterator>

namespace tolvex {
namespace {

struct Row {
  std::int32_t code;
  const char* message;
};

// In ascending order of the codes.
constexpr Row kRows[] = {
#define TOLVEX_ROW(code, NAME, Name, text, meaning, remedy) {code, text},
    TOLVEX_RESULT_CODES(TOLVEX_ROW)
#undef TOLVEX_ROW
};

}  // namespace

const char* resultMessage(std::int32_t code) {
  const Row* const row = std::lower_bound(
      std::begin(kRows), std::end(kRows), code,
      [](const Row& candidate, std::int32_t wanted) { return candidate.code < wanted; });
  return row != std::end(kRows) && row->code == code ? row->message : nullptr;
}

}  // namespace tolvex
