// When jobs began and changed.
#pragma once

#include <functional>
#include <map>

#include "control/simulation.h"

namespace tolvex::sim {

/// Notes the times of the jobs that are kept: the devices themselves have no clock.
class JobDiary {
 public:
  struct Times {
    WallTime began;
    WallTime changed;
  };

  /// Listens to the simulation's jobs, so both have to live equally long. `clock` tells the time.
  JobDiary(Simulation& simulation, std::function<WallTime()> clock);
  JobDiary(const JobDiary&) = delete;
  JobDiary& operator=(const JobDiary&) = delete;

  /// Of a job that is kept. One that began before the diary did has the time of the start.
  Times timesOf(const Job& job) const;

 private:
  void note(const Job& job);
  void forgetOldest();

  Simulation& simulation_;
  std::function<WallTime()> clock_;
  std::map<int, Times> times_;
  std::uint64_t epoch_ = 0;
};

}  // namespace tolvex::sim
