// The library's parts, one at a time and without a service: where a call's share goes.
#include <benchmark/benchmark.h>

#include "support/cores.h"

int main(int argc, char** argv) {
  bench::pinned(1);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
