// Requests and replies.
#include <benchmark/benchmark.h>
#include <rapidjson/document.h>

#include <cstring>

#include "config/ip_address.h"
#include "service/envelope.h"
#include "service/reply.h"
#include "support/fixed_service.h"

namespace {

void reply_of_a_weight(benchmark::State& state) {
  for (auto _ : state) {
    const tolvex::Reply reply(bench::kWeightReply);
    benchmark::DoNotOptimize(reply.result());
  }
}
BENCHMARK(reply_of_a_weight);

// What Reply is measured against: the same text, and the same question.
void plain_document_of_the_same_reply(benchmark::State& state) {
  for (auto _ : state) {
    rapidjson::Document document;
    document.Parse(bench::kWeightReply);
    benchmark::DoNotOptimize(std::strcmp(document["result"].GetString(), "0"));
  }
}
BENCHMARK(plain_document_of_the_same_reply);

void envelope_of_a_weight(benchmark::State& state) {
  for (auto _ : state) {
    tolvex::Envelope request("getweight");
    benchmark::DoNotOptimize(request.text());
  }
  if (std::strcmp(tolvex::Envelope("getweight").text(), R"({"cmd":"getweight"})") != 0) {
    state.SkipWithError("another request");
  }
}
BENCHMARK(envelope_of_a_weight);

void envelope_of_a_printed_line(benchmark::State& state) {
  for (auto _ : state) {
    tolvex::Envelope request("print_text_width");
    request.add("printerType", 1).add("fontsize", 24).add("width", 640);
    request.add("text", "1000 Tomatoes on the vine   1.250 kg   3.49");
    benchmark::DoNotOptimize(request.text());
  }
}
BENCHMARK(envelope_of_a_printed_line);

void check_of_an_IPv4_address(benchmark::State& state) {
  bool valid = true;
  for (auto _ : state) {
    std::string_view text = "192.168.100.254";
    benchmark::DoNotOptimize(text);
    valid = valid && tolvex::config::isIpv4Address(text);
  }
  if (!valid) state.SkipWithError("refused");
}
BENCHMARK(check_of_an_IPv4_address);

}  // namespace
