// The result codes in words, from the one list in the library's public header.
#pragma once

#include <string>
#include <vector>

#include "base/exit_code.h"

namespace tolvex::ctl {

/// One number that a function of the library gives. All texts are static and ASCII.
struct CodeText {
  int code;
  const char* name;  // for example "OUT_OF_PAPER"; that of an answer is its constant, "TOLVEX_OK"
  const char* text;  // for example "Out of Paper"
  const char* meaning;
  const char* remedy;
};

/// The codes that library and service share, in ascending order.
const std::vector<CodeText>& resultCodes();

/// What functions answer beside the codes. -1 stands here twice: first as an unreadable reply, then
/// as what only read_standard means by it.
const std::vector<CodeText>& answers();

/// The code's row, first among the codes, then among the answers; null for any other number.
const CodeText* findCode(int code);

/// What to do about the code; for a number that is none, where to look it up. Empty for 0.
std::string remedyOf(int code);

/// The exit status for what a command ended with.
ExitCode exitOf(int code);

/// In one line: "2006 OUT_OF_PAPER (Out of Paper)", or the number alone.
std::string codeLine(int code);

}  // namespace tolvex::ctl
