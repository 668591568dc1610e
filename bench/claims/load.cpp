// What a program waits for its first weight.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <stdexcept>

#include "claims/claims.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/library.h"

namespace bench {
namespace {

// Milliseconds that the work takes in a fresh process.
template <typename Work>
double inFreshProcess(Work&& work) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const int process = fork();
  if (process < 0) throw std::runtime_error("no further process");
  if (process == 0) {
    try {
      const double time = timedBatch(1, work) / 1000;
      if (write(ends[1], &time, sizeof(time)) < 0) _exit(1);
    } catch (const std::exception& failure) {
      std::fprintf(stderr, "%s\n", failure.what());
    }
    _exit(0);
  }
  close(ends[1]);
  double time = 0;
  const ssize_t size = read(ends[0], &time, sizeof(time));
  close(ends[0]);
  waitpid(process, nullptr, 0);
  if (size != sizeof(time)) throw std::runtime_error("a fresh process failed");
  return time;
}

// The program is linked with the library's own needs (the C++ run-time library), which are loaded by then.
void loadAndRead(const std::string& path, const std::string& address) {
  readWeight(loadLibrary(path, address));
}

void connectAndExchange(const FixedService& service) {
  for (const std::uint16_t port : {kWeighingPort, kPrintingPort}) {
    bareExchange(connectTo(service.address(), port), R"({"cmd":"getweight"})",
                 service.reply().size());
  }
}

}  // namespace

Figure load(const Setting& setting) {
  constexpr int kWarmUpProcesses = 10;
  const StateFolder state;
  const Cores cores = pinned(setting.cores);
  const FixedService service(kWeightReply, cores.service);
  const auto library = [&] {
    return inFreshProcess([&] { loadAndRead(setting.library, service.address()); });
  };
  const auto bare = [&] { return inFreshProcess([&] { connectAndExchange(service); }); };
  for (int count = 0; count < kWarmUpProcesses; ++count) {
    library();
    bare();
  }
  const Paired paired = takeTurns(setting.pairs, library, bare);
  std::vector<double> differences;
  for (std::size_t pair = 0; pair < paired.a.size(); ++pair) {
    differences.push_back(paired.a[pair] - paired.b[pair]);
  }
  Figure figure = medianOf(differences);
  const double medians[] = {quantile(paired.a, 0.5), quantile(paired.b, 0.5)};
  figure.value = medians[0] - medians[1];
  figure.details = {{"library_ms", medians[0]}, {"bare_ms", medians[1]}};
  return figure;
}

}  // namespace bench
