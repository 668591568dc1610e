#include "torture/scarce/report.h"

#include <csignal>
#include <stdexcept>

#include "support/os_support.h"

namespace tolvex::test {

constexpr std::size_t kMostTold = 30;

namespace {

// Says where, and lets the system end the process as it would.
void tellAndEnd(int signal) {
  report().found("ended by signal " + std::to_string(signal));
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

Report& report() {
  static Report report;
  return report;
}

void Report::keepOutput(const std::string& libraryOutput) {
  std::signal(SIGABRT, tellAndEnd);
  std::signal(SIGSEGV, tellAndEnd);
  std::remove(libraryOutput.c_str());
  out_ = secondStandardOutput();
  if (out_ == nullptr || std::freopen(libraryOutput.c_str(), "a", stdout) == nullptr ||
      std::freopen(libraryOutput.c_str(), "a", stderr) == nullptr) {
    throw std::runtime_error("standard output cannot be kept");
  }
}

void Report::found(const std::string& problem) {
  if (problem.empty()) return;
  if (++problems_ <= kMostTold) say("FAILED: " + place_ + ": " + problem);
}

void Report::say(const std::string& line) {
  std::fprintf(out_, "%s\n", line.c_str());
  std::fflush(out_);
}

int Report::end(const std::string& figure) {
  if (problems_ > kMostTold) say("and " + std::to_string(problems_ - kMostTold) + " more");
  if (problems_ > 0) {
    say(std::to_string(problems_) + " failed of: " + figure);
    return 1;
  }
  say("FIGURE: " + figure);
  return 0;
}

}  // namespace tolvex::test
