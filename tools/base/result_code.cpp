#include "base/result_code.h"

#include <exports.h>

#include <algorithm>

namespace tolvex::ctl {
namespace {

const CodeText* findIn(const std::vector<CodeText>& rows, int code) {
  const auto row = std::find_if(rows.begin(), rows.end(), [code](const CodeText& candidate) {
    return candidate.code == code;
  });
  return row != rows.end() ? &*row : nullptr;
}

}  // namespace

const std::vector<CodeText>& resultCodes() {
  static const std::vector<CodeText> rows = {
#define TOLVEX_ROW(code, NAME, Name, text, meaning, remedy) {code, #NAME, text, meaning, remedy},
      TOLVEX_RESULT_CODES(TOLVEX_ROW)
#undef TOLVEX_ROW
  };
  return rows;
}

const std::vector<CodeText>& answers() {
  static const std::vector<CodeText> rows = {
#define TOLVEX_ROW(constant, text, meaning, remedy) {constant, #constant, text, meaning, remedy},
      TOLVEX_ANSWERS(TOLVEX_ROW)
#undef TOLVEX_ROW
  };
  return rows;
}

const CodeText* findCode(int code) {
  const CodeText* const row = findIn(resultCodes(), code);
  return row != nullptr ? row : findIn(answers(), code);
}

std::string remedyOf(int code) {
  if (code == TOLVEX_RESULT_OK) return "";
  const CodeText* const row = findCode(code);
  return row != nullptr
             ? row->remedy
             : "The number is none of the library's, but the service's own: read its log.";
}

// 2001 is told by a service that answers: the library itself has a connection, be it a broken one.
ExitCode exitOf(int code) {
  switch (code) {
    case TOLVEX_RESULT_OK:
      return ExitCode::Fine;
    case TOLVEX_RESULT_SOCKET_INTERRUPT:
    case TOLVEX_RESULT_LC_CONNECTION_FAIL:
    case TOLVEX_UNREADABLE_REPLY:
      return ExitCode::Unreachable;
    case TOLVEX_FAILED:  // without a result code behind it
    case TOLVEX_FONT_TOO_SMALL:
    case TOLVEX_FONT_TOO_BIG:
      return ExitCode::Failed;
    default:
      return ExitCode::DeviceError;
  }
}

std::string codeLine(int code) {
  const CodeText* const row = findCode(code);
  std::string line = std::to_string(code);
  if (row != nullptr) line.append(" ").append(row->name).append(" (").append(row->text) += ')';
  return line;
}

}  // namespace tolvex::ctl
