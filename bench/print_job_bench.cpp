// What a print job costs the library: from the application's text to the last command, the service
// left out.
//
// A job of 10,000 lines is measured against one of 1,000: a queue that moves or searches what it
// holds shows as a ratio above ten. The two take turns, so that what disturbs the machine disturbs
// both. Then one line of 1 MB. A stand-in for the connection agrees to every command.
//
// Time is the thread's own on the processor: a long job would otherwise be charged with all that
// the machine does meanwhile, a short one seldom. And the process keeps what memory it once had: the
// system would otherwise hand out the large pieces of a long job anew each time, page by page.
//
// usage: print_job_bench [PAIRS [--json]]
#include <malloc.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "printing/drain.h"
#include "printing/queue_text.h"
#include "service/vco_client_api.h"
#include "support/allocation_counter.h"
#include "support/program.h"
#include "support/quantile.h"
#include "support/state_folder.h"

namespace {

using tolvex::PrintJobKind;
using tolvex::VcoClientApi;

constexpr std::size_t kFewLines = 1000;
constexpr std::size_t kManyLines = 10000;
constexpr std::size_t kLongLine = 1000000;
constexpr std::size_t kDefaultPairs = 200;
constexpr int kWarmUpJobs = 3;
constexpr int kTicketPrinter = 1;

class AgreeingConnection final : public tolvex::CTcpClient {
 public:
  AgreeingConnection() : CTcpClient("127.0.0.1", 1) {}
  int Send(const char*, unsigned length) override {
    ++requests;
    return static_cast<int>(length);
  }
  int RecvTimeout(char* buffer, unsigned, unsigned) override {
    constexpr char kReply[] = R"({"result":"0"})";
    std::memcpy(buffer, kReply, sizeof(kReply) - 1);
    return sizeof(kReply) - 1;
  }

  std::size_t requests = 0;
};

std::string ticket(std::size_t lines) {
  std::string text;
  for (std::size_t line = 1; line <= lines; ++line) {
    text += std::to_string(line) + " Tomatoes on the vine      1.250 kg   3.49\r\n";
  }
  return text;
}

double processorMicroseconds() {
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

// Queues and prints the text with a client of its own. Returns the microseconds that took.
double printed(const std::string& text, std::size_t lines) {
  AgreeingConnection connection;
  VcoClientApi client(nullptr, &connection);
  const double start = processorMicroseconds();
  tolvex::queueText(client.printJob(), PrintJobKind::kTextByWidth, 24, 80, text.c_str());
  const unsigned code = tolvex::drainPrintJob(client, kTicketPrinter);
  const double time = processorMicroseconds() - start;
  if (code != 0 || connection.requests != lines) throw std::runtime_error("the job failed");
  return time;
}

double allocationsPerLine(const std::string& text, std::size_t lines) {
  bench::startCountingAllocations();
  printed(text, lines);
  return static_cast<double>(bench::countedAllocations().count) / static_cast<double>(lines);
}

struct Figures {
  double few, many, longOne;  // microseconds
  double ratio, lower, upper;
  double allocations;  // for each line
};

std::string asText(const Figures& figures, std::size_t pairs) {
  char text[512];
  std::snprintf(text, sizeof(text),
                "pairs of jobs               %zu\n"
                "1,000 lines, median         %.1f us\n"
                "10,000 lines, median        %.1f us\n"
                "ratio, median [quartiles]   %.2f [%.2f, %.2f], 10 is linear\n"
                "allocations per line        %.3f\n"
                "one line of 1 MB, median    %.1f us\n",
                pairs, figures.few, figures.many, figures.ratio, figures.lower, figures.upper,
                figures.allocations, figures.longOne);
  return text;
}

std::string asJson(const Figures& figures, std::size_t pairs) {
  const nlohmann::ordered_json json = {{"pairs", pairs},
                                       {"few_us", figures.few},
                                       {"many_us", figures.many},
                                       {"ratio", figures.ratio},
                                       {"lower", figures.lower},
                                       {"upper", figures.upper},
                                       {"allocations_per_line", figures.allocations},
                                       {"long_us", figures.longOne}};
  return json.dump() + '\n';
}

void keepMemory() {
  constexpr int kMuch = 1 << 30;
  mallopt(M_MMAP_THRESHOLD, kMuch);
  mallopt(M_TRIM_THRESHOLD, kMuch);
}

std::string measure(std::size_t pairs, bool json) {
  keepMemory();
  const bench::StateFolder state;
  const std::string few = ticket(kFewLines);
  const std::string many = ticket(kManyLines);
  const std::string longLine(kLongLine, 'x');
  for (int count = 0; count < kWarmUpJobs; ++count) {
    printed(few, kFewLines);
    printed(many, kManyLines);
    printed(longLine, 1);
  }
  std::vector<double> a, b, ratios, c;
  for (std::size_t pair = 0; pair < pairs; ++pair) {
    a.push_back(printed(few, kFewLines));
    b.push_back(printed(many, kManyLines));
    c.push_back(printed(longLine, 1));
    ratios.push_back(b.back() / a.back());
  }
  using bench::quantile;
  const Figures figures{quantile(a, 0.5),
                        quantile(b, 0.5),
                        quantile(c, 0.5),
                        quantile(ratios, 0.5),
                        quantile(ratios, 0.25),
                        quantile(ratios, 0.75),
                        allocationsPerLine(many, kManyLines)};
  return json ? asJson(figures, pairs) : asText(figures, pairs);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::run("print_job_bench", kDefaultPairs, argc, argv, measure);
}
