// Result codes of the service: the numbers that travel in the "result" member of every reply.
#pragma once

#include <exports.h>

#include <string>

namespace tolvex::sim {

/// Codes below 1000 are general, 1001 to 1007 concern the scale ("LC"), 2001 to 2010 the printer
/// ("Prt"). 2004 is not in use. Named Ok, OutOfPaper and so on, from the one list in the library's
/// public header.
enum class ResultCode : int {
#define TOLVEX_NAME_CODE(code, NAME, Name, text, meaning, remedy) Name = (code),
  TOLVEX_RESULT_CODES(TOLVEX_NAME_CODE)
#undef TOLVEX_NAME_CODE
};

/// The code as replies carry it: decimal digits, for example "1005".
std::string toText(ResultCode code);

/// What the code means, for example "Weight Not Stable". Never null: a number that is no code gives
/// "Unknown". The text is static.
const char* message(ResultCode code);

}  // namespace tolvex::sim
