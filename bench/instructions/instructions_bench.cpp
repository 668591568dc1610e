// Warm calls, for callgrind to count the instructions of. measure.py runs this and reads the counts.
//
// What is counted is what happens in the functions called measured_..., one for each kind of call: the
// library, and what of the C and C++ libraries it uses. The system's share does not show. The program
// prints after each its name and how many calls, or lines of a job, the count is to be divided by.
//
// usage: instructions_bench service ADDRESS    answers until its standard input ends
//        instructions_bench silent ADDRESS     with a log that keeps nothing
//        instructions_bench default ADDRESS    with the log as it comes
#include <exports.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

#include "support/fixed_service.h"
#include "support/state_folder.h"

namespace {

constexpr int kCalls = 500;
constexpr int kWarmRounds = 2;
constexpr int kLines = 100;
constexpr int kJobs = kCalls / kLines;
constexpr char kLine[] = "Tomatoes on the vine      1.250 kg   3.49";

char record[64];

void check(int result, int expected) {
  if (result != expected) {
    throw std::runtime_error("a call answered " + std::to_string(result) + " in the place of " +
                             std::to_string(expected));
  }
}

// Whether there was a job or not.
void emptyTheJob() { BeginPrint(0); }

void queueTheJob() {
  emptyTheJob();
  for (int line = 0; line < kLines; ++line) check(PrintText(kLine, 24), TOLVEX_OK);
}

}  // namespace

// callgrind goes by the name of measured_..., which stands apart from the calls that only warm up.
#define TOLVEX_CALL(name, call, expected)                               \
  static void once_##name() { check(call, expected); }                  \
  extern "C" __attribute__((noinline)) void measured_##name(int calls); \
  void measured_##name(int calls) {                                     \
    for (int i = 0; i < calls; ++i) once_##name();                      \
  }

TOLVEX_CALL(read_standard, read_standard(record), TOLVEX_OK)
TOLVEX_CALL(read_baseinfo, read_baseinfo(record), TOLVEX_OK)
TOLVEX_CALL(printTextById, printTextById(kLine, 24, 1), TOLVEX_RESULT_OK)
TOLVEX_CALL(PrintText, PrintText(kLine, 24), TOLVEX_OK)
TOLVEX_CALL(BeginPrint, BeginPrint(0), TOLVEX_OK)
// It does nothing but log that there is no text.
TOLVEX_CALL(record, PrintText("", 24), TOLVEX_OK)

// callgrind writes a file each time that this was called. (What switches the counting cannot do that.)
extern "C" __attribute__((noinline)) void end_of_measurement(const char* name, int count);
void end_of_measurement(const char* name, int count) {
  std::printf("measured %s %d\n", name, count);
  std::fflush(stdout);
}

namespace {

// How often a kind of call is made. Where it prints a job, the lines are queued without being counted.
struct Kind {
  const char* name;
  void (*once)();
  void (*measured)(int calls);
  void (*prepare)();
  int rounds;
  int callsOfARound;
  int unitsOfACall;
};

#define TOLVEX_KIND(name) #name, once_##name, measured_##name

const Kind kOfAnyLog[] = {{TOLVEX_KIND(read_standard), nullptr, 1, kCalls, 1},
                          {TOLVEX_KIND(record), nullptr, 1, kCalls, 1}};
const Kind kOfTheDefaultLog[] = {{TOLVEX_KIND(read_baseinfo), nullptr, 1, kCalls, 1},
                                 {TOLVEX_KIND(printTextById), nullptr, 1, kCalls, 1},
                                 {TOLVEX_KIND(PrintText), emptyTheJob, kJobs, kLines, 1},
                                 {TOLVEX_KIND(BeginPrint), queueTheJob, kJobs, 1, kLines}};

void measure(const Kind& kind) {
  for (int round = 0; round < kWarmRounds; ++round) {
    if (kind.prepare != nullptr) kind.prepare();
    for (int call = 0; call < kind.callsOfARound; ++call) kind.once();
  }
  for (int round = 0; round < kind.rounds; ++round) {
    if (kind.prepare != nullptr) kind.prepare();
    kind.measured(kind.callsOfARound);
  }
  end_of_measurement(kind.name, kind.rounds * kind.callsOfARound * kind.unitsOfACall);
}

void run(const std::string& command, const char* address) {
  if (command == "service") {
    const bench::FixedService service(bench::kWeightReply, -1, address);
    std::puts("ready");
    std::fflush(stdout);
    while (std::getchar() != EOF) continue;
    return;
  }
  const bool silent = command == "silent";
  const bench::StateFolder state(silent ? bench::Logging::kSilenced : bench::Logging::kDefault);
  check(SetServerIpForRemoteAccess(address), TOLVEX_OK);
  for (const Kind& kind : kOfAnyLog) measure(kind);
  if (silent) return;
  for (const Kind& kind : kOfTheDefaultLog) measure(kind);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc == 3 ? argv[1] : "";
  if (command != "service" && command != "silent" && command != "default") {
    std::fprintf(stderr, "usage: instructions_bench service|silent|default ADDRESS\n");
    return 2;
  }
  try {
    run(command, argv[2]);
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "instructions_bench: %s\n", failure.what());
    return 1;
  }
}
