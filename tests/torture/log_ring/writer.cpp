#include "torture/log_ring/writer.h"

#include <cstdio>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "api/exports.h"
#include "support/os_support.h"
#include "torture/log_ring/sample_calls.h"

namespace tolvex::test {
namespace {

constexpr unsigned kWidth = 80;
constexpr char kBegun[] = "begun";
constexpr char kDone[] = "done ";

// One call; returns the bytes of its lines in the log, or 0 when the library did not answer as ever.
std::size_t callLibrary(unsigned writer, unsigned number) {
  const SampleCall call = sampleCall(writer, number);
  const int answer = call.isLong
                         ? PrintTextByPaperWidth(call.text.c_str(), kRefusedFontSize, kWidth)
                         : PrintText(call.text.c_str(), kRefusedFontSize);
  return answer == TOLVEX_FONT_TOO_BIG ? sampleBytes(call) : 0;
}

}  // namespace

int writeAsTold(unsigned writer, bool isOrdinaryUser) {
  if (isOrdinaryUser) becomeOrdinaryUser();
  unsigned number = 0;
  std::uint64_t all = 0;
  unsigned calls = 0;
  for (std::string word; std::cin >> word >> calls;) {
    for (unsigned i = 0; i < calls; ++i) {
      const std::size_t bytes = callLibrary(writer, ++number);
      if (bytes == 0) {
        std::fprintf(stderr, "call %u did not answer as ever\n", number);
        return 3;
      }
      all += bytes;
      if (number == 1) std::printf("%s\n", kBegun);
      if (number == 1) std::fflush(stdout);
    }
    std::printf("%s%u %llu\n", kDone, number, static_cast<unsigned long long>(all));
    std::fflush(stdout);
  }
  return 0;
}

std::string Writer::program;
unsigned Writer::latestNumber = 0;

Writer::Writer(bool isOrdinaryUser) : number_(++latestNumber) {
  std::vector<std::string> command{program, "--writer", std::to_string(number_)};
  if (isOrdinaryUser) command.emplace_back("--ordinary-user");
  child_ = std::make_unique<Child>(command);
}

void Writer::begin(unsigned calls) { child_->write("calls " + std::to_string(calls) + "\n"); }

// The next line of its output that is not the library's.
std::string Writer::answer() {
  while (const std::optional<std::string> line = child_->readLine()) {
    if (line->compare(0, 6, "NLog::") != 0) return *line;
  }
  const Finished finished = child_->finish();
  throw std::runtime_error("writer " + std::to_string(number_) +
                           " does not answer any more, exit code " +
                           std::to_string(finished.exitCode) + ": " + finished.err);
}

void Writer::finish() {
  std::string line;
  while ((line = answer()) == kBegun) {
  }
  std::istringstream numbers(line.substr(sizeof(kDone) - 1));
  numbers >> calls_ >> bytes_;
}

void Writer::makeCallsWithoutEnd() {
  begin(4000000000U);
  answer();
}

void Writer::kill() {
  child_->kill();
  child_->finish();
}

}  // namespace tolvex::test
