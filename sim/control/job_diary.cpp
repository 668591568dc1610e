#include "control/job_diary.h"

#include <utility>

namespace tolvex::sim {

JobDiary::JobDiary(Simulation& simulation, std::function<WallTime()> clock)
    : simulation_(simulation), clock_(std::move(clock)), epoch_(simulation.epoch) {
  simulation_.devices.printers.jobs().listen([this](const Job& job) { note(job); });
}

JobDiary::Times JobDiary::timesOf(const Job& job) const {
  const auto found = times_.find(job.number());
  return found == times_.end() ? Times{simulation_.started, simulation_.started} : found->second;
}

void JobDiary::note(const Job& job) {
  if (epoch_ != simulation_.epoch) times_.clear();
  epoch_ = simulation_.epoch;
  const WallTime now = clock_();
  times_.emplace(job.number(), Times{now, now}).first->second.changed = now;
  forgetOldest();
}

// A job that is no longer kept may still be changed by its printer, so the oldest number is not
// always the first to go; it is enough that there are never many more than jobs.
void JobDiary::forgetOldest() {
  while (times_.size() > 2 * JobLog::kMaxJobs) times_.erase(times_.begin());
}

}  // namespace tolvex::sim
