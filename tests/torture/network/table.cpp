#include "torture/network/table.h"

#include <random>

namespace tolvex::test {
namespace {

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

// The same order on each system.
void shuffle(std::vector<Pair>& pairs, std::uint32_t seed) {
  std::mt19937 random(seed);
  for (std::size_t i = pairs.size(); i > 1; --i) std::swap(pairs[i - 1], pairs[random() % i]);
}

constexpr std::size_t kSlowCasesOfAProcess = 10;

}  // namespace

std::vector<Pair> chosenTable(std::uint32_t seed, std::size_t share, const std::string& only) {
  std::vector<Pair> all = wholeTable();
  shuffle(all, seed);
  std::vector<Pair> chosen;
  for (std::size_t i = 0; i < all.size(); i += share) {
    if (all[i].name().find(only) != std::string::npos) chosen.push_back(all[i]);
  }
  return chosen;
}

std::vector<Pair> thoseThatWait(const std::vector<Pair>& pairs, bool wait) {
  std::vector<Pair> found;
  for (const Pair& pair : pairs) {
    const Act act = pair.fault.act;
    if ((act == Act::kIgnoresConnects || act == Act::kAnswersInTime) == wait) found.push_back(pair);
  }
  return found;
}

std::size_t partsOf(const std::vector<Pair>& slow) {
  return (slow.size() + kSlowCasesOfAProcess - 1) / kSlowCasesOfAProcess;
}

}  // namespace tolvex::test
