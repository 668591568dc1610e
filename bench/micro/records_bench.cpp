// From replies to records, and from texts to queued lines.
#include <benchmark/benchmark.h>

#include <string>

#include "printing/queue_text.h"
#include "support/fixed_service.h"
#include "weighing/records.h"

namespace {

constexpr char kBaseInfoReply[] =
    R"({"result":"0","maxRange1":"6","maxRange2":"15","maxRange3":"0","resolution1":"0.002",)"
    R"("resolution2":"0.005","resolution3":"0","minRange":":0.040","maxTare":"6.000",)"
    R"("maxPreTare":"6.000","weightUnit":"kg","systemVersion":"3.0.3.2"})";

void record_of_a_weight(benchmark::State& state) {
  char record[tolvex::kWeightSize];
  int verdict = 0;
  for (auto _ : state) {
    verdict = tolvex::WeightInfo(bench::kWeightReply, false, record);
    benchmark::DoNotOptimize(record);
  }
  if (verdict != tolvex::kExportOk) state.SkipWithError("not read");
}
BENCHMARK(record_of_a_weight);

void record_of_base_information(benchmark::State& state) {
  char record[tolvex::kBaseInfoSize];
  int verdict = 0;
  for (auto _ : state) {
    verdict = tolvex::FormatBaseInfo(kBaseInfoReply, record);
    benchmark::DoNotOptimize(record);
  }
  if (verdict != tolvex::kExportOk || record[0] != 6) state.SkipWithError("not read");
}
BENCHMARK(record_of_base_information);

void queueing_of_1000_lines(benchmark::State& state) {
  std::string text;
  for (int line = 1000; line < 2000; ++line) {
    text += std::to_string(line) + " Tomatoes on the vine   1.250 kg   3.49\r\n";
  }
  tolvex::PrintJobBuffer job;
  for (auto _ : state) {
    job.reset();
    tolvex::queueText(job, tolvex::PrintJobKind::kTextByWidth, 24, 80, text.c_str());
  }
  int lines = 0;
  while (job.takeNext().kind != tolvex::PrintJobKind::kNone) ++lines;
  if (lines != 1000) state.SkipWithError("not as many lines");
}
BENCHMARK(queueing_of_1000_lines);

}  // namespace
