// A target as libFuzzer calls it. Compiled once for each, with its name as TOLVEX_FUZZ_TARGET.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "support/target.h"

namespace tolvex::fuzz {

void broken(const char* promise) {
  std::fprintf(stderr, "\nBROKEN: %s\n", promise);
  std::abort();
}

}  // namespace tolvex::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // The helpers of the tests tell of their failures in this way.
  testing::GTEST_FLAG(break_on_failure) = true;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tolvex::fuzz::targets::TOLVEX_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
