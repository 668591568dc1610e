// What the benchmarks' programs have in common.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace bench {

// Measures as many pairs as the one argument says, or the default. A failure is told on standard
// error under the program's name. Returns the exit status.
template <typename Measure>
int run(const char* name, std::size_t defaultPairs, int argc, char** argv, Measure measure) {
  try {
    const long given = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 0;
    measure(given > 0 ? static_cast<std::size_t>(given) : defaultPairs);
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s: %s\n", name, failure.what());
    return 1;
  }
}

}  // namespace bench
