// Every fault of the network with every call that talks to the service.
//   network_faults [--seed N] [--share N] [--only TEXT] [--trials none|one|all] --source FOLDER
//                  [--trial NAME] [--part N]
// --seed: the order of the cases, printed. --share: only each Nth case of that order. --only: those
// that have the text in their name "CALL / FAULT". --trial and --part: what such processes play.
#include <cstdio>
#include <map>
#include <random>

#include "api/exports.h"
#include "support/os_support.h"
#include "torture/network/children.h"
#include "torture/network/long_trials.h"
#include "torture/network/stage.h"
#include "torture/network/table.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kMostFailures = 20;

using Options = std::map<std::string, std::string>;

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

struct Run {
  std::string program;  // as it was started
  Options options;
  std::uint32_t seed;
  Tally tally;
  std::size_t failures = 0;

  std::vector<Pair> chosen() const {
    return chosenTable(seed, std::stoul(options.at("--share")), options.at("--only"));
  }

  void report(const Pair& pair, const std::vector<std::string>& problems) {
    if (problems.empty()) return;
    ++failures;
    std::printf("FAILED: %s\n", pair.name().c_str());
    for (const std::string& problem : problems) std::printf("  %s\n", problem.c_str());
    std::printf("  repeat with: --seed %u --only \"%s\"\n", seed, pair.name().c_str());
    std::fflush(stdout);
  }

  void play(ScriptedService& service, const std::vector<Pair>& pairs) {
    Stage stage(service, tally);
    stage.begin();
    for (std::size_t i = 0; i < pairs.size() && failures < kMostFailures; ++i) {
      report(pairs[i], stage.play(*pairs[i].call, pairs[i].fault));
    }
  }
};

// One part of the cases that wait, in a process of its own.
int runPart(Run& run) {
  const std::string address = ownAddress();
  SetServerIpForRemoteAccess(address.c_str());
  ScriptedService service(address);
  const std::vector<Pair> slow = thoseThatWait(run.chosen(), true);
  std::vector<Pair> own;
  for (std::size_t i = std::stoul(run.options["--part"]); i < slow.size(); i += partsOf(slow)) {
    own.push_back(slow[i]);
  }
  run.play(service, own);
  return run.failures == 0 ? 0 : 1;
}

void startTrials(Children& children, const std::string& which, std::size_t& count) {
  if (which == "none") return;
  for (const std::string& name : longTrials(which == "all")) {
    children.start("--trial " + name, {"--trial", name});
    ++count;
  }
}

void startParts(Children& children, const Run& run, std::size_t parts) {
  for (std::size_t i = 0; i < parts; ++i) {
    std::vector<std::string> words = {"--part", std::to_string(i), "--seed",
                                      std::to_string(run.seed)};
    for (const char* option : {"--share", "--only"}) {
      words.insert(words.end(), {option, run.options.at(option)});
    }
    children.start("part " + std::to_string(i) + " of the cases that wait", words);
  }
}

int runAll(Run& run) {
  const unsigned exports = countedExports(run.options["--source"]);
  if (exports == 0) return 1;
  const std::string address = ownAddress();
  std::printf("seed %u, service at %s\n", run.seed, address.c_str());
  std::fflush(stdout);
  Host host;
  host.withIni("[zelkad]\nip_addr=" + address + "\n");
  const std::vector<Pair> table = run.chosen();
  const std::vector<Pair> slow = thoseThatWait(table, true);
  std::size_t trials = 0;
  Children children(run.program);
  startTrials(children, run.options["--trials"], trials);
  startParts(children, run, partsOf(slow));
  ScriptedService service(address);
  run.play(service, thoseThatWait(table, false));
  const bool childrenGood = children.endWell();
  std::printf(
      "FIGURE: %zu cases (%zu faults and those of each member, %u exports), %u calls, "
      "%u connections, %zu trials of 40 s and more, %zu failed\n",
      run.tally.cases + slow.size(), wireFaults().size(), exports, run.tally.calls,
      run.tally.connections, trials, run.failures);
  return run.failures == 0 && childrenGood && !table.empty() ? 0 : 1;
}

int start(int count, char** words) {
  Run run;
  run.program = words[0];
  run.options = {{"--share", "1"},     {"--only", ""},
                 {"--trials", "none"}, {"--trial", ""},
                 {"--part", ""},       {"--seed", std::to_string(std::random_device()())},
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
  return run.options["--part"].empty() ? runAll(run) : runPart(run);
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
