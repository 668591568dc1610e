// What is written to the log from now on.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "logs/log_ring.h"

namespace tolvex::ctl {

// Looks at the files of the ring each time it is asked. New files, files that are emptied and files
// that are replaced by smaller ones are read from their begin.
class LogFollower {
 public:
  // Begins behind what the files hold according to `known`, and at the begin of all others.
  LogFollower(std::vector<std::string> folders, const std::vector<LogFile>& known);

  // The records that were completed since the latest call, by time. A record is complete when the
  // next one begins, or when a call has found nothing more of it.
  std::vector<LogRecord> poll();

 private:
  struct Followed {
    std::int64_t position;
    RecordBuilder builder;
  };

  void read(const LogFile& file, Followed& followed, std::vector<LogRecord>& records);

  std::vector<std::string> folders_;
  std::map<std::filesystem::path, Followed> files_;
  LogTime latest_ = 0;
};

}  // namespace tolvex::ctl
