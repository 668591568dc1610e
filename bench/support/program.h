// What the benchmarks' programs have in common.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string_view>

#include "support/own_output.h"

namespace bench {

// Measures as many pairs as the first argument says, or the default, and prints what
// measure(pairs, json) returns: with a second argument "--json" figures as JSON. A failure is told on standard error
// under the program's name. Returns the exit status.
template <typename Measure>
int run(const char* name, std::size_t defaultPairs, int argc, char** argv, Measure measure) {
  try {
    const long given = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 0;
    if (argc > 1 && given <= 0) throw std::runtime_error("the number of pairs is none");
    const bool json = argc > 2 && argv[2] == std::string_view("--json");
    const OwnOutput output;
    output.tell(measure(given > 0 ? static_cast<std::size_t>(given) : defaultPairs, json));
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s: %s\n", name, failure.what());
    return 1;
  }
}

}  // namespace bench
