// Writes docs/result-codes.md from the one table of result codes, in exports.h.
#include <exports.h>

#include <cstdio>
#include <iterator>

namespace {

struct ResultCode {
  int code;
  const char *name, *text, *meaning, *remedy;
};

constexpr ResultCode kResultCodes[] = {
#define ROW(code, NAME, Name, text, meaning, remedy) \
  {code, "TOLVEX_RESULT_" #NAME, text, meaning, remedy},
    TOLVEX_RESULT_CODES(ROW)
#undef ROW
};

constexpr ResultCode kAnswers[] = {
#define ROW(constant, text, meaning, remedy) {constant, #constant, text, meaning, remedy},
    TOLVEX_ANSWERS(ROW)
#undef ROW
};

constexpr char kHead[] = R"(# Result codes

<!-- Written by ./run docs from the table in src/api/exports.h. Change it there. -->

What the functions answer, what it means, and what to do. The table stands in
[`exports.h`](../src/api/exports.h) as `TOLVEX_RESULT_CODES` and `TOLVEX_ANSWERS`, for an application's own use, too;
`tolvexctl explain 2006` tells a row of it at the command line.

A function "returning a verdict" answers 240 or 255, and the code behind it is that of `getLastErrCode()`. A function
"returning a code" answers with the code itself. [Which function is of which kind](integration.md#time).

## Codes

Shared by the library and the service. Codes that the library makes by itself are 1, 2, 4, 5, 6, 7, 1001, 2001 and -1;
all others, and these as well, may come from the service.
)";

constexpr char kAnswersHead[] = R"(
## Answers of other kinds

What functions answer beside the codes. -1 stands here twice: `read_standard` answers it for a scale under load, every
function returning a code for a reply that it cannot read.
)";

void printTable(const ResultCode* rows, std::size_t count) {
  std::puts("\n| number | constant | text | meaning | remedy |\n|---|---|---|---|---|");
  for (const ResultCode* row = rows; row != rows + count; ++row) {
    std::printf("| %d | `%s` | %s | %s | %s |\n", row->code, row->name, row->text, row->meaning,
                row->remedy);
  }
}

}  // namespace

int main() {
  std::fputs(kHead, stdout);
  printTable(kResultCodes, std::size(kResultCodes));
  std::fputs(kAnswersHead, stdout);
  printTable(kAnswers, std::size(kAnswers));
  return 0;
}
