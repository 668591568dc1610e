// The curves: what each measures, point by point.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace bench::scale {

// What there is to measure with.
struct Equipment {
  std::string library;    // the built library, loaded at run time
  std::string simulator;  // the built simulator
  bool quick = false;     // a few points with few repetitions, to see whether it works
  long only = 0;  // the one point to measure, by its lines, bytes, threads or clients; 0: all

  // Whether a point is to be measured; the last one that is quick to do.
  bool takes(long point, long lastQuick) const {
    return only != 0 ? point == only : !quick || point <= lastQuick;
  }
};

// Each returns {"setting": what was measured and how, "points": [...]}, times in microseconds and
// sizes in bytes where a member's name says nothing else. They throw std::runtime_error where an
// answer is wrong or something sent did not arrive: a figure of that would be worth nothing.
nlohmann::json measureJobs(const Equipment& equipment);
nlohmann::json measureReplies(const Equipment& equipment);
nlohmann::json measureThreads(const Equipment& equipment);
nlohmann::json measureClients(const Equipment& equipment);
nlohmann::json measureLog(const Equipment& equipment);

}  // namespace bench::scale
