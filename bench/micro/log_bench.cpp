// Records of the log.
#include <benchmark/benchmark.h>

#include "log/nlog.h"
#include "support/state_folder.h"

namespace {

using tolvex::NLog;

// There is one log in the process; its first record makes its file.
const bench::StateFolder& logState() {
  static const bench::StateFolder state;
  static NLog* const log = NLog::GetInstance("DLL", state.logFolder().c_str());
  benchmark::DoNotOptimize(log);
  return state;
}

void logWith(benchmark::State& state, int level, bool expected) {
  const std::uint64_t before = logState().logSize();
  NLog* const log = NLog::GetInstance();
  for (auto _ : state) {
    NLog::Log(log, tolvex::kModuleDll, level, 318, "[%s][getWeight] Oh Ye~", "checkout");
  }
  if ((logState().logSize() != before) != expected) state.SkipWithError("the log is not as said");
}

void record_that_is_rejected(benchmark::State& state) {
  logWith(state, tolvex::kLevelTraffic, false);
}
BENCHMARK(record_that_is_rejected);

void record_into_the_file(benchmark::State& state) { logWith(state, tolvex::kLevelTrace, true); }
BENCHMARK(record_into_the_file);

}  // namespace
