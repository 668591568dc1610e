// Finds what people mean in the one table of numbers that functions answer.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result_code.h"

namespace tolvex::ctl {

// The number in a text as logs and debuggers show it: "2006", "-1", "0xff", and 4294967295 for -1.
// Nullopt for anything else.
std::optional<int> numberIn(std::string_view text);

// All rows with this number: -1 has two.
std::vector<const CodeText*> findByNumber(int code);

// Rows called so, in any spelling: constant, name or text, whatever the case, with blanks,
// underscores or neither ("out of paper", "OUT_OF_PAPER", "TOLVEX_RESULT_OUT_OF_PAPER").
std::vector<const CodeText*> findByName(std::string_view name);

// The names closest to a word that is none, best first, at most three; empty when none is close.
std::vector<std::string> similarNames(std::string_view word);

// All rows, the result codes before the other answers.
std::vector<const CodeText*> allRows();

// Whether the row is a result code; otherwise it is an answer of single functions.
bool isResultCode(const CodeText& row);

// The constant of C: "TOLVEX_RESULT_OUT_OF_PAPER", "TOLVEX_OK".
std::string constantOf(const CodeText& row);

}  // namespace tolvex::ctl
