#include "app/job_keeper.h"

#include <utility>

namespace tolvex::sim {

JobKeeper::JobKeeper(const std::string& directory, const std::vector<std::string>& printers,
                     Tell say, Tell warn)
    : say_(std::move(say)) {
  if (!directory.empty()) files_.emplace(directory, printers, std::move(warn));
}

void JobKeeper::restart() {
  if (files_) files_->restart();
  announcer_ = {};
}

void JobKeeper::changed(const Job& job) {
  if (!job.isFinished()) return announcer_.printing(job);
  const std::string file = files_ ? files_->save(job) : "";
  const std::string announcement = announcer_.announce(job);
  if (say_) say_(announcement + (file.empty() ? "" : ": " + file));
}

}  // namespace tolvex::sim
