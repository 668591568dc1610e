// What a call costs where many applications use one simulator at the same time.
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "scale/child.h"
#include "scale/client_process.h"
#include "scale/curve.h"
#include "scale/process_figures.h"
#include "scale/simulator.h"
#include "scale/spread.h"
#include "support/fixed_service.h"
#include "support/quantile.h"

namespace bench::scale {
namespace {

constexpr std::size_t kClients[] = {1, 2, 5, 10, 50, 100, 200, 500};

// One simulator, so many clients that connect together and then call together.
nlohmann::json runTrial(const Equipment& equipment, std::size_t count, double length) {
  const std::string address = FixedService::privateAddress();
  const Simulator simulator(equipment.simulator, address);
  Clients clients(equipment, address, count);
  const double connected = clients.connect();
  const double used = processorSeconds(simulator.process());
  const double start = now();
  const Clients::Calls calls = clients.call(length);
  const double took = now() - start;
  const double share = (processorSeconds(simulator.process()) - used) / took * 1e6;
  const MemoryFigures memory = memoryOf(simulator.process());
  if (calls.fewest == 0) throw std::runtime_error("a client was not answered at all");
  if (calls.failures != 0) throw std::runtime_error("a call failed");
  return {{"rate", static_cast<double>(calls.times.size()) / took * 1e6},
          {"p50", quantile(calls.times, 0.5)},
          {"p99", quantile(calls.times, 0.99)},
          {"longest", quantile(calls.times, 1)},
          {"unevenness", static_cast<double>(calls.most) / static_cast<double>(calls.fewest)},
          {"connected", connected},
          {"processor", share},
          {"resident", memory.resident},
          {"peak", memory.peak}};
}

// The trials of one point in one, figure by figure.
nlohmann::json pointOf(std::size_t count, const std::vector<nlohmann::json>& outcomes) {
  nlohmann::json point = {{"clients", count}, {"repetitions", outcomes.size()}};
  for (const auto& [figure, unused] : outcomes[0].items()) {
    std::vector<double> values;
    for (const nlohmann::json& outcome : outcomes) values.push_back(outcome[figure]);
    point[figure] = spread(values);
  }
  return point;
}

}  // namespace

nlohmann::json measureClients(const Equipment& equipment) {
  const int repetitions = equipment.quick ? 2 : 7;
  const double length = equipment.quick ? 0.2e6 : 1.2e6;
  std::map<std::size_t, std::vector<nlohmann::json>> outcomes;
  for (int i = 0; i < repetitions; ++i) {
    for (const std::size_t count : kClients) {
      if (!equipment.takes(static_cast<long>(count), 10)) continue;
      outcomes[count].push_back(inFreshProcess([&] { return runTrial(equipment, count, length); }));
    }
  }
  nlohmann::json points = nlohmann::json::array();
  for (const auto& [count, trials] : outcomes) points.push_back(pointOf(count, trials));
  return {{"setting",
           "Processes with the library that read the weight of one simulator without a pause for "
           "1.2 s, all points in turns; on all cores"},
          {"points", points}};
}

}  // namespace bench::scale
