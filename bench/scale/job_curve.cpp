// What a print job costs, by its lines: queueing them, then BeginPrint, and the memory it takes.
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "scale/child.h"
#include "scale/curve.h"
#include "scale/process_figures.h"
#include "scale/spread.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/library.h"
#include "support/state_folder.h"

namespace bench::scale {
namespace {

constexpr int kTicket = 0;  // the job type
constexpr unsigned kFontSize = 24;
constexpr long kLines[] = {10, 30, 100, 300, 1000, 3000, 10000, 30000, 100000};
constexpr long kWarmUpLines = 100;

void queueLines(const Library& library, long lines) {
  char text[64];
  for (long line = 1; line <= lines; ++line) {
    std::snprintf(text, sizeof(text), "%06ld Tomatoes on the vine  1.250 kg   3.49", line);
    if (library.printText(text, kFontSize) != TOLVEX_OK) {
      throw std::runtime_error("a line was refused");
    }
  }
}

// Prints one job in this fresh process, after a short one that warms it up.
nlohmann::json printJob(const Equipment& equipment, long lines) {
  const StateFolder state;
  const FixedService service(kWeightReply, kAgreedReply);
  const Library library = loadLibrary(equipment.library);
  connectLibrary(library, service.address());
  queueLines(library, kWarmUpLines);
  if (library.beginPrint(kTicket) != TOLVEX_OK) throw std::runtime_error("no job goes through");
  service.watch().startCounting();
  resetPeak();
  const double peak = memoryOf(getpid()).peak;  // by the system's own way to count one

  const double start = now();
  queueLines(library, lines);
  const double queued = now();
  if (library.beginPrint(kTicket) != TOLVEX_OK) throw std::runtime_error("the job failed");
  const double printed = now();

  const double memory = memoryOf(getpid()).peak - peak;
  const Arrivals arrivals = service.watch().counted();
  if (arrivals.lines != static_cast<std::uint64_t>(lines) || arrivals.misplaced != 0) {
    throw std::runtime_error("not every line arrived in its place");
  }
  return {{"queue", queued - start}, {"print", printed - queued}, {"memory", memory}};
}

long repetitionsFor(long lines, bool quick) {
  if (quick) return 3;
  return lines <= 10000 ? 21 : 7;
}

nlohmann::json measurePoint(const Equipment& equipment, long lines) {
  std::vector<double> queue, print, memory;
  const long repetitions = repetitionsFor(lines, equipment.quick);
  for (long count = 0; count < repetitions; ++count) {
    const nlohmann::json job = inFreshProcess([&] { return printJob(equipment, lines); });
    queue.push_back(job["queue"].get<double>() / static_cast<double>(lines));
    print.push_back(job["print"].get<double>() / static_cast<double>(lines));
    memory.push_back(job["memory"]);
  }
  return {{"lines", lines},
          {"repetitions", repetitions},
          {"queue_per_line", spread(queue)},
          {"print_per_line", spread(print)},
          {"memory", spread(memory)}};
}

}  // namespace

nlohmann::json measureJobs(const Equipment& equipment) {
  pinned(1);
  nlohmann::json points = nlohmann::json::array();
  for (const long lines : kLines) {
    if (equipment.takes(lines, 1000)) points.push_back(measurePoint(equipment, lines));
  }
  return {{"setting",
           "Jobs of numbered lines of 44 bytes, each job in a fresh process; library and service "
           "on one core"},
          {"points", points}};
}

}  // namespace bench::scale
