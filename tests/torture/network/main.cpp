// Every fault of the network with every call that talks to the service.
//   network_faults [--seed N] [--share N] [--only TEXT] [--trials none|one|all] --source FOLDER
// --seed: the order of the cases, printed. --share: only each Nth case of that order. --only: those
// that have the text in their name "CALL / FAULT".
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <random>

#include "api/exports.h"
#include "support/child_process.h"
#include "support/os_support.h"
#include "torture/network/long_trials.h"
#include "torture/network/stage.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kMostFailures = 20;
constexpr std::chrono::seconds kLongestTrial{300};

using Options = std::map<std::string, std::string>;

struct Pair {
  const Call* call;
  Fault fault;
  std::string name() const { return call->fullName() + " / " + fault.name; }
};

std::vector<Pair> wholeTable() {
  std::vector<Pair> pairs;
  const std::vector<Fault> wire = wireFaults();
  for (const Call& call : allCalls()) {
    for (const std::vector<Fault>& faults : {wire, memberFaults(call)}) {
      for (const Fault& fault : faults) {
        if (fault.fits(call)) pairs.push_back({&call, fault});
      }
    }
  }
  return pairs;
}

// Network of its own, so that programs of several builds may run at the same time.
std::string ownAddress() {
  const unsigned long id = processId();
#ifdef _WIN32
  constexpr unsigned long kFirst = 126;
#else
  constexpr unsigned long kFirst = 1;
#endif
  return "127.71." + std::to_string(kFirst + id / 250 % 125) + "." + std::to_string(1 + id % 250);
}

// The same order on each system.
void shuffle(std::vector<Pair>& pairs, std::uint32_t seed) {
  std::mt19937 random(seed);
  for (std::size_t i = pairs.size(); i > 1; --i) std::swap(pairs[i - 1], pairs[random() % i]);
}

class Trials {
 public:
  explicit Trials(const std::string& which) {
    if (which == "none") return;
    for (const std::string& name : longTrials(which == "all")) {
      names_.push_back(name);
      running_.push_back(
          std::make_unique<ChildProcess>(ownProgram(), std::vector<std::string>{"--trial", name}));
    }
  }
  std::size_t count() const { return names_.size(); }
  bool endWell() {
    const auto limit = std::chrono::steady_clock::now() + kLongestTrial;
    bool good = true;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      bool well = false;
      if (!running_[i]->endsUntil(limit, well)) {
        std::printf("FAILED: trial %s has not ended; repeat with --trial %s\n", names_[i].c_str(),
                    names_[i].c_str());
      } else if (!well) {
        std::printf("FAILED: trial %s; repeat with --trial %s\n", names_[i].c_str(),
                    names_[i].c_str());
      }
      good = good && well;
    }
    return good;
  }

 private:
  std::vector<std::string> names_;
  std::vector<std::unique_ptr<ChildProcess>> running_;
};

struct Run {
  Options options;
  std::uint32_t seed;
  Tally tally;
  std::size_t failures = 0;

  void report(const Pair& pair, const std::vector<std::string>& problems) {
    if (problems.empty()) return;
    ++failures;
    std::printf("FAILED: %s\n", pair.name().c_str());
    for (const std::string& problem : problems) std::printf("  %s\n", problem.c_str());
    std::printf("  repeat with: --seed %u --only \"%s\"\n", seed, pair.name().c_str());
    std::fflush(stdout);
  }

  void playTable(ScriptedService& service) {
    std::vector<Pair> pairs = wholeTable();
    shuffle(pairs, seed);
    const std::size_t share = std::stoul(options["--share"]);
    Stage stage(service, tally);
    stage.begin();
    for (std::size_t i = 0; i < pairs.size() && failures < kMostFailures; ++i) {
      const bool chosen = pairs[i].name().find(options["--only"]) != std::string::npos;
      if (chosen && i % share == 0) report(pairs[i], stage.play(*pairs[i].call, pairs[i].fault));
    }
  }
};

int runAll(Run& run) {
  const unsigned exports = countedExports(run.options["--source"]);
  if (exports == 0) return 1;
  const std::string address = ownAddress();
  std::printf("seed %u, service at %s\n", run.seed, address.c_str());
  std::fflush(stdout);
  Host host;
  host.withIni("[zelkad]\nip_addr=" + address + "\n");
  Trials trials(run.options["--trials"]);
  ScriptedService service(address);
  run.playTable(service);
  const bool trialsGood = trials.endWell();
  std::printf(
      "FIGURE: %u exports, %u cases of %zu faults of the wire and those of each member, %u calls, "
      "%u connections, %zu trials of true length, longest other call %lld ms, %zu failed\n",
      exports, run.tally.cases, wireFaults().size(), run.tally.calls, run.tally.connections,
      trials.count(), static_cast<long long>(run.tally.longest.count()), run.failures);
  return run.failures == 0 && trialsGood && run.tally.cases > 0 ? 0 : 1;
}

int start(int count, char** words) {
  Run run;
  run.options = {{"--share", "1"},
                 {"--only", ""},
                 {"--trials", "none"},
                 {"--trial", ""},
                 {"--seed", std::to_string(std::random_device()())},
                 {"--source", "."}};
  for (int i = 1; i < count; i += 2) {
    if (run.options.count(words[i]) == 0 || i + 1 == count) {
      std::printf("what is %s?\n", words[i]);
      return 2;
    }
    run.options[words[i]] = words[i + 1];
  }
  if (!run.options["--trial"].empty())
    return runLongTrial(run.options["--trial"], ownAddress()) ? 0 : 1;
  run.seed = static_cast<std::uint32_t>(std::stoul(run.options["--seed"]));
  return runAll(run);
}

}  // namespace
}  // namespace tolvex::test

int main(int count, char** words) {
  try {
    return tolvex::test::start(count, words);
  } catch (const std::exception& failure) {
    std::printf("FAILED: %s\n", failure.what());
    return 1;
  }
}
