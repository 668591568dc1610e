// What each fuzz target is: a function that takes any bytes, and fails when a promise is broken.
#pragma once

#include <string_view>

namespace tolvex::fuzz {

// Tells of a broken promise. libFuzzer's program ends by it and keeps the input; the replay fails and
// names the file. Does not come back.
[[noreturn]] void broken(const char* promise);

inline void require(bool holds, const char* promise) {
  if (!holds) broken(promise);
}

// The targets, by the names of their folders in corpus/: their inputs are texts as far as possible.
#define TOLVEX_FUZZ_TARGETS(TARGET)                                                   \
  TARGET(reply)      /* a reply: result, members, the copies into callers' buffers */ \
  TARGET(client)     /* commands, and what a hostile service makes of them */         \
  TARGET(ini)        /* the file with the service's address */                        \
  TARGET(nlog_ini)   /* the file with the thresholds of the log */                    \
  TARGET(text_lines) /* texts that are cut into the lines of a receipt */             \
  TARGET(print_job)  /* the queue of a print job, operation by operation */           \
  TARGET(records)    /* the records of weight and base information */                 \
  TARGET(charset)    /* texts in the host's character set */                          \
  TARGET(ipv4)       /* what counts as an address */                                  \
  TARGET(log)        /* records of the log, on a disk that may be full */

#define TOLVEX_FUZZ_DECLARE(name) void name(std::string_view input);
namespace targets {
TOLVEX_FUZZ_TARGETS(TOLVEX_FUZZ_DECLARE)
}  // namespace targets
#undef TOLVEX_FUZZ_DECLARE

}  // namespace tolvex::fuzz
