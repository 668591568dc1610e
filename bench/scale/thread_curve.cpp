// What a call costs where several threads make them: the calls of one connection wait for each other.
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "scale/child.h"
#include "scale/curve.h"
#include "scale/spread.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/library.h"
#include "support/quantile.h"
#include "support/state_folder.h"

namespace bench::scale {
namespace {

constexpr unsigned kTicketPrinter = 1;
constexpr unsigned kFontOfCalls = 24;
constexpr int kThreads[] = {1, 2, 4, 8, 16};
constexpr int kWarmUpOfThreads = 500;

// How one trial goes.
struct Trial {
  int threads;
  bool mixed;     // every second thread prints
  bool oneCore;   // for both ends; else all that there are
  double length;  // microseconds
};

// What one thread does until the time is over.
class Caller {
 public:
  Caller(const Library& library, bool prints) : library_(library), prints_(prints) {}

  void call() {
    char record[24];
    const bool good = prints_
                          ? library_.printTextById("Tomatoes", kFontOfCalls, kTicketPrinter) == 0
                          : library_.readStandard(record) == TOLVEX_OK;
    if (!good) failed_ = true;
  }
  void callUntil(double end) {
    times_.reserve(1000000);
    for (double start = now(); start < end;) {
      call();
      const double done = now();
      times_.push_back(done - start);
      start = done;
    }
  }
  bool failed() const { return failed_; }
  bool prints() const { return prints_; }
  const std::vector<double>& times() const { return times_; }

 private:
  const Library& library_;
  const bool prints_;
  bool failed_ = false;
  std::vector<double> times_;
};

// Returns the time from the first call to the end of the last one.
double runTogether(std::vector<Caller>& callers, double length) {
  std::atomic<bool> go{false};
  std::atomic<double> begin{0};
  std::vector<std::thread> threads;
  for (Caller& caller : callers) {
    threads.emplace_back([&] {
      while (!go) std::this_thread::yield();
      caller.callUntil(begin + length);
    });
  }
  begin = now();
  go = true;
  for (std::thread& thread : threads) thread.join();
  return now() - begin;
}

void checkArrivals(const std::vector<Caller>& callers, const Arrivals& arrivals) {
  std::uint64_t weighed = 0, printed = 0;
  for (const Caller& caller : callers) {
    if (caller.failed()) throw std::runtime_error("a call failed");
    (caller.prints() ? printed : weighed) += caller.times().size();
  }
  if (weighed != arrivals.weighing || printed != arrivals.printing) {
    throw std::runtime_error("the service did not see each call once");
  }
}

nlohmann::json runTrial(const Equipment& equipment, const Trial& trial) {
  if (trial.oneCore) pinned(1);
  const StateFolder state;
  const FixedService service(kWeightReply, kAgreedReply);
  const Library library = loadLibrary(equipment.library);
  connectLibrary(library, service.address());
  std::vector<Caller> callers;
  for (int i = 0; i < trial.threads; ++i) callers.emplace_back(library, trial.mixed && i % 2 == 1);
  for (int i = 0; i < kWarmUpOfThreads; ++i) {
    callers[static_cast<std::size_t>(i % trial.threads)].call();
  }
  service.watch().startCounting();
  const double took = runTogether(callers, trial.length);
  checkArrivals(callers, service.watch().counted());
  std::vector<double> times;
  double fewest = 1e9, most = 0;
  for (const Caller& caller : callers) {
    times.insert(times.end(), caller.times().begin(), caller.times().end());
    const auto calls = static_cast<double>(caller.times().size());
    fewest = std::min(fewest, calls);
    most = std::max(most, calls);
  }
  return {{"rate", static_cast<double>(times.size()) / took * 1e6},
          {"p50", quantile(times, 0.5)},
          {"p99", quantile(times, 0.99)},
          {"longest", quantile(times, 1)},
          {"unevenness", most / std::max(fewest, 1.0)}};
}

// The trials of one point in one, figure by figure.
nlohmann::json pointOfTrials(const Trial& trial, const std::vector<nlohmann::json>& outcomes) {
  nlohmann::json point = {{"threads", trial.threads},
                          {"calls", trial.mixed ? "half weighing, half printing" : "weighing"},
                          {"cores", trial.oneCore ? "one" : "all"},
                          {"repetitions", outcomes.size()}};
  for (const char* figure : {"rate", "p50", "p99", "longest", "unevenness"}) {
    std::vector<double> values;
    for (const nlohmann::json& outcome : outcomes) values.push_back(outcome[figure]);
    point[figure] = spread(values);
  }
  return point;
}

std::vector<Trial> planTrials(const Equipment& equipment) {
  const double length = equipment.quick ? 0.1e6 : 0.6e6;
  std::vector<Trial> trials;
  for (const bool oneCore : {true, false}) {
    if (!oneCore && usableCores() == 1) {
      std::fprintf(stderr, "threads on all cores are left out: there is only one core\n");
      continue;
    }
    for (const bool mixed : {false, true}) {
      for (const int threads : kThreads) {
        if ((mixed && threads == 1) || !equipment.takes(threads, 4)) continue;
        trials.push_back({threads, mixed, oneCore, length});
      }
    }
  }
  return trials;
}

}  // namespace

nlohmann::json measureThreads(const Equipment& equipment) {
  const std::vector<Trial> trials = planTrials(equipment);
  std::vector<std::vector<nlohmann::json>> outcomes(trials.size());
  const int repetitions = equipment.quick ? 2 : 7;
  for (int count = 0; count < repetitions; ++count) {
    for (std::size_t i = 0; i < trials.size(); ++i) {
      outcomes[i].push_back(inFreshProcess([&] { return runTrial(equipment, trials[i]); }));
    }
  }
  nlohmann::json points = nlohmann::json::array();
  for (std::size_t i = 0; i < trials.size(); ++i)
    points.push_back(pointOfTrials(trials[i], outcomes[i]));
  return {{"setting",
           "Threads that call without a pause for 0.6 s, in a fresh process each time, all points "
           "in turns; library and service on one core, or on all"},
          {"points", points}};
}

}  // namespace bench::scale
