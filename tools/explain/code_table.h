// Every number that the library's functions answer, from the one table in the public header.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvex::ctl {

// All texts are ASCII and live as long as the program.
struct CodeEntry {
  int code;
  std::string_view constant;  // as in C: "TOLVEX_RESULT_OUT_OF_PAPER", "TOLVEX_OK"
  std::string_view name;      // for people: "OutOfPaper"; of an answer its constant
  std::string_view text;      // "Out of Paper"
  std::string_view meaning;
  std::string_view remedy;
  bool isResultCode;  // else a verdict or another answer of single functions
};

// Result codes in ascending order, then the other answers in the header's order.
const std::vector<CodeEntry>& codeTable();

// The entry of a result code or, for -1, that of an unreadable reply; null for a number that the
// table does not have.
const CodeEntry* findResultCode(int code);

// "OutOfPaper" for 2006, "UnreadableReply" for -1, and "service's own code" for one that only the
// service knows.
std::string resultName(int code);

// All entries with this number: -1 has two.
std::vector<const CodeEntry*> findByNumber(int code);

// Entries called so, in any spelling: constant, name or text, whatever the case, with blanks,
// underscores or neither ("out of paper", "OUT_OF_PAPER"). Empty when there is none.
std::vector<const CodeEntry*> findByName(std::string_view name);

// The names closest to a word that is none, best first, at most three; empty when none is close.
std::vector<std::string> similarNames(std::string_view word);

}  // namespace tolvex::ctl
