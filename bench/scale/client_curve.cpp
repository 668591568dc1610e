// What a call costs where many applications use one simulator at the same time.
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "client_process.h"
#include "curve.h"
#include "place.h"
#include "process_figures.h"
#include "simulator.h"
#include "spread.h"
#include "support/quantile.h"

namespace bench::scale {
namespace {

constexpr std::size_t kClients[] = {1, 2, 5, 10, 50, 100, 200, 500};

// One simulator, so many clients that connect together and then call together.
nlohmann::json runTrial(const Equipment& equipment, std::size_t count, double length) {
  const std::string address = privateAddress();
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
  return {{"rate", static_cast<double>(calls.times.size()) / took * 1e6},
          {"p50", quantile(calls.times, 0.5)},
          {"p99", quantile(calls.times, 0.99)},
          {"longest", quantile(calls.times, 1)},
          {"failures", calls.failures},
          {"unevenness", static_cast<double>(calls.most) / static_cast<double>(calls.fewest)},
          {"connected", connected},
          {"processor", share},
          {"resident", memory.resident},
          {"peak", memory.peak}};
}

nlohmann::json measurePoint(const Equipment& equipment, std::size_t count) {
  const int repetitions = equipment.quick ? 2 : 5;
  const double length = equipment.quick ? 0.2e6 : 1.5e6;
  std::vector<nlohmann::json> trials;
  for (int i = 0; i < repetitions; ++i) {
    trials.push_back(inFreshProcess([&] { return runTrial(equipment, count, length); }));
  }
  nlohmann::json point = {{"clients", count}, {"repetitions", repetitions}};
  for (const auto& [figure, unused] : trials[0].items()) {
    std::vector<double> values;
    for (const nlohmann::json& trial : trials) values.push_back(trial[figure]);
    point[figure] = spread(values);
  }
  if (point["failures"]["most"] != 0.0) throw std::runtime_error("a call failed");
  return point;
}

}  // namespace

nlohmann::json measureClients(const Equipment& equipment) {
  useAllCores();
  nlohmann::json points = nlohmann::json::array();
  for (const std::size_t count : kClients) {
    if (!equipment.takes(static_cast<long>(count), 10)) continue;
    points.push_back(measurePoint(equipment, count));
  }
  return {{"setting",
           "Processes with the library that read the weight of one simulator without a pause for "
           "1.5 s; on all cores"},
          {"points", points}};
}

}  // namespace bench::scale
