// What is said of finished jobs.
#pragma once

#include <map>
#include <string>

#include "devices/job.h"

namespace tolvex::sim {

/// Tells what has become of each printer's latest job. Not thread-safe.
class JobAnnouncer {
 public:
  /// To be called with a job that is being printed.
  void printing(const Job& job) { announced_.erase(job.printer()); }

  /// To be called with a finished job, and again after each change of it: "job 1 on Ticket, 12 mm",
  /// then with ", fed" or ", cut" for what has changed it. A job that a cut has finished is cut from
  /// the start.
  std::string announce(const Job& job);

 private:
  std::map<std::string, int> announced_;  // the latest job's number by the printer's name
};

}  // namespace tolvex::sim
