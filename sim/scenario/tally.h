// What happened in a run, counted.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "scenario/event.h"

namespace tolvex::sim {

/// Counts events. The maps have an entry for what happened at least once.
struct Tally {
  std::map<std::string, std::int64_t> jobs;         // by the printer's name
  std::map<std::string, std::int64_t> requests;     // by command
  std::map<std::string, std::int64_t> results;      // by result code in decimal digits
  std::map<std::string, std::int64_t> connections;  // "weighing", "printing"
  std::int64_t unknownCommands = 0;

  void add(const Event& event);
};

}  // namespace tolvex::sim
