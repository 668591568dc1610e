#include "base/result_code.h"

namespace tolvex::sim {

namespace {

struct Row {
  ResultCode code;
  const char* message;
};

constexpr Row kRows[] = {
#define TOLVEX_ROW(code, NAME, Name, text, meaning, remedy) {ResultCode::Name, text},
    TOLVEX_RESULT_CODES(TOLVEX_ROW)
#undef TOLVEX_ROW
};

}  // namespace

std::string toText(ResultCode code) { return std::to_string(static_cast<int>(code)); }

const char* message(ResultCode code) {
  for (const Row& row : kRows) {
    if (row.code == code) return row.message;
  }
  return "Unknown";
}

}  // namespace tolvex::sim
