// What one read_standard costs beside the bare exchange of the same bytes.
//
// A is read_standard through the built library, its log as it comes. B is one send, one poll and
// one receive of the same request and reply on a connection of its own. Both ends of both run on
// one core: on two, the wake-up of the other core hides everything else. Batches of A and B take
// turns in the order ABBA, so that a slow drift of the machine meets both alike.
//
// usage: read_standard_bench [PAIRS]
#include <exports.h>
#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/allocation_counter.h"
#include "support/program.h"
#include "support/quantile.h"
#include "support/state_folder.h"
#include "support/weight_service.h"

namespace {

constexpr char kRequest[] = R"({"cmd":"getweight"})";
constexpr int kReplyTimeoutMs = 40000;
constexpr int kCallsPerBatch = 5;
constexpr int kWarmUpCalls = 500;
constexpr std::size_t kDefaultPairs = 4000;
constexpr double kTargetRatio = 1.5;

void pinToOneCore() {
  const int core = sched_getcpu();
  cpu_set_t cores;
  CPU_ZERO(&cores);
  CPU_SET(static_cast<unsigned>(std::max(core, 0)), &cores);
  if (sched_setaffinity(0, sizeof(cores), &cores) != 0) throw std::runtime_error("cannot pin");
}

// An address of this machine that no other run uses.
std::string privateAddress() {
  const auto id = static_cast<unsigned>(getpid());
  return "127." + std::to_string(100 + (id >> 16) % 100) + '.' + std::to_string(id >> 8 & 255) +
         '.' + std::to_string(1 + id % 254);
}

void readStandard() {
  char record[24];
  if (read_standard(record) != TOLVEX_OK) throw std::runtime_error("read_standard failed");
}

void bareExchange(int connection) {
  char reply[2048];
  pollfd entry = {connection, POLLIN, 0};
  const ssize_t expected = static_cast<ssize_t>(std::strlen(bench::WeightService::kReply));
  if (send(connection, kRequest, sizeof(kRequest) - 1, MSG_NOSIGNAL) <= 0 ||
      poll(&entry, 1, kReplyTimeoutMs) != 1 ||
      recv(connection, reply, sizeof(reply), 0) != expected) {
    throw std::runtime_error("the bare exchange failed");
  }
}

// Microseconds for one call, over a batch.
double timed(const std::function<void()>& call) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  for (int count = 0; count < kCallsPerBatch; ++count) call();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / kCallsPerBatch;
}

double allocationsPerCall(const std::function<void()>& call) {
  constexpr int kCalls = 200;
  const long before = bench::allocations();
  for (int count = 0; count < kCalls; ++count) call();
  return static_cast<double>(bench::allocations() - before) / kCalls;
}

void measure(std::size_t pairs) {
  pinToOneCore();
  const bench::StateFolder state;
  const std::string address = privateAddress();
  const bench::WeightService service(address);
  if (SetServerIpForRemoteAccess(address.c_str()) != TOLVEX_OK) {
    throw std::runtime_error("the library refuses " + address);
  }
  const int connection = bench::connectTo(address, bench::kWeighingPort);
  const std::function<void()> library = readStandard;
  const std::function<void()> bare = [connection] { bareExchange(connection); };
  for (int count = 0; count < kWarmUpCalls; ++count) {
    library();
    bare();
  }
  const double allocations = allocationsPerCall(library);

  using bench::quantile;
  std::vector<double> a, b, ratios;
  a.reserve(pairs);
  b.reserve(pairs);
  ratios.reserve(pairs);
  for (std::size_t pair = 0; pair < pairs; ++pair) {
    const bool libraryFirst = pair % 2 == 0;
    if (libraryFirst) a.push_back(timed(library));
    b.push_back(timed(bare));
    if (!libraryFirst) a.push_back(timed(library));
    ratios.push_back(a.back() / b.back());
  }
  close(connection);

  std::printf("pairs of batches            %zu (of %d calls each)\n", pairs, kCallsPerBatch);
  std::printf("read_standard, median       %.2f us\n", quantile(a, 0.5));
  std::printf("bare exchange, median       %.2f us\n", quantile(b, 0.5));
  std::printf("ratio, median [quartiles]   %.3f [%.3f, %.3f], target %.1f\n", quantile(ratios, 0.5),
              quantile(ratios, 0.25), quantile(ratios, 0.75), kTargetRatio);
  std::printf("allocations per warm call   %.2f\n", allocations);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::run("read_standard_bench", kDefaultPairs, argc, argv, measure);
}
