// What one record of the log costs, by how much the ring of files holds already, until all of them
// are full and are emptied.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "log/nlog.h"
#include "scale/child.h"
#include "scale/curve.h"
#include "scale/spread.h"
#include "support/cores.h"
#include "support/quantile.h"
#include "support/state_folder.h"

namespace bench::scale {
namespace {

namespace files = std::filesystem;
using tolvex::kFullSize;
using tolvex::kRingFiles;
using tolvex::NLog;

constexpr std::size_t kSections =
    52;  // of the ring that are looked at apart, one MiB each and a bit
constexpr std::size_t kAfterwards = 2000;  // records into the ring that was emptied

// Times of one turn of the ring, in order.
struct Turn {
  std::vector<double> records;
  std::size_t perFile = 0;  // records that fill a file
  std::size_t recordSize = 0;
};

std::string fileOf(const std::string& folder, unsigned number) {
  return folder + "/bench_" + std::to_string(number) + ".log";
}

double timeOfRecord(NLog* logger, unsigned number) {
  const double start = now();
  NLog::Log(logger, tolvex::kModuleDll, tolvex::kLevelTrace, 123,
            "[client][PrintText] font:24 [%06u Tomatoes on the vine  1.250 kg   3.49]", number);
  return now() - start;
}

// The whole ring and a little more. Every record has the same length, so that it is known which one
// opens the next file.
Turn turnRing(const std::string& folder) {
  std::ofstream(folder + "/NLog.ini")
      .flush();  // the logger would say in a record that it is missing
  NLog* const logger = NLog::GetInstance("bench", (folder + '/').c_str());
  Turn turn;
  timeOfRecord(logger, 0);
  turn.recordSize = files::file_size(fileOf(folder, 0));
  turn.perFile = static_cast<std::size_t>(kFullSize) / turn.recordSize + 1;
  const std::size_t count = turn.perFile * kRingFiles - 1;
  turn.records.reserve(count + kAfterwards);
  for (unsigned number = 1; number <= count; ++number) {
    turn.records.push_back(timeOfRecord(logger, number));
  }
  for (unsigned file = 0; file < kRingFiles; ++file) {
    if (files::file_size(fileOf(folder, file)) != turn.perFile * turn.recordSize) {
      throw std::runtime_error("a file is not as full as it should be");
    }
  }
  for (unsigned number = 1; number <= kAfterwards; ++number) {
    turn.records.push_back(timeOfRecord(logger, number));
  }
  for (unsigned file = 1; file < kRingFiles; ++file) {
    if (files::file_size(fileOf(folder, file)) != 0) throw std::runtime_error("not emptied");
  }
  if (files::file_size(fileOf(folder, 0)) < kAfterwards * turn.recordSize) {
    throw std::runtime_error("records are missing in the ring that was emptied");
  }
  return turn;
}

// The ordinary records of each section, and those that open file 1 to 9 and empty the ring.
nlohmann::json readTurn(const Turn& turn) {
  std::vector<double> median, p99, longest, changes;
  const std::size_t full = turn.perFile * kRingFiles - 1;
  for (std::size_t file = 1; file <= kRingFiles; ++file) {
    changes.push_back(turn.records[turn.perFile * file - 1]);
  }
  for (std::size_t section = 0; section < kSections; ++section) {
    std::vector<double> times;
    for (std::size_t i = full * section / kSections; i < full * (section + 1) / kSections; ++i) {
      if ((i + 1) % turn.perFile != 0) times.push_back(turn.records[i]);
    }
    median.push_back(quantile(times, 0.5));
    p99.push_back(quantile(times, 0.99));
    longest.push_back(quantile(times, 1));
  }
  return {{"median", median},
          {"p99", p99},
          {"longest", longest},
          {"changes", changes},
          {"perFile", turn.perFile},
          {"recordSize", turn.recordSize},
          {"bytes", full * turn.recordSize}};
}

nlohmann::json measureTurn() {
  const StateFolder state;
  return readTurn(turnRing(state.path()));
}

// The spreads of one figure of all turns, at one place.
nlohmann::json spreadOf(const std::vector<nlohmann::json>& turns, const char* figure,
                        std::size_t at) {
  std::vector<double> values;
  for (const nlohmann::json& turn : turns) values.push_back(turn[figure][at]);
  return spread(values);
}

}  // namespace

nlohmann::json measureLog(const Equipment& equipment) {
  pinned(1);
  const int repetitions = equipment.quick ? 2 : 9;
  std::vector<nlohmann::json> turns;
  for (int count = 0; count < repetitions; ++count) turns.push_back(inFreshProcess(measureTurn));
  const double bytes = turns[0]["bytes"];
  nlohmann::json points = nlohmann::json::array(), changes = nlohmann::json::array();
  for (std::size_t section = 0; section < kSections; ++section) {
    points.push_back(
        {{"filled", bytes * (static_cast<double>(section) + 0.5) / static_cast<double>(kSections)},
         {"median", spreadOf(turns, "median", section)},
         {"p99", spreadOf(turns, "p99", section)},
         {"longest", spreadOf(turns, "longest", section)}});
  }
  for (std::size_t file = 1; file <= kRingFiles; ++file) {
    changes.push_back({{"filled", bytes * static_cast<double>(file) / kRingFiles},
                       {"files", file},
                       {"emptied", file == kRingFiles},
                       {"time", spreadOf(turns, "changes", file - 1)}});
  }
  return {{"setting",
           "Records of the logger by itself, from an empty ring until it was emptied, in a fresh "
           "process each time; on one core"},
          {"record_bytes", turns[0]["recordSize"]},
          {"repetitions", repetitions},
          {"points", points},
          {"changes", changes}};
}

}  // namespace bench::scale
