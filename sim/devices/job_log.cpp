#include "devices/job_log.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvex::sim {

void JobLog::listen(std::function<void(const Job& job)> listener) {
  listeners_.push_back(std::move(listener));
}

void JobLog::add(const std::shared_ptr<Job>& job) {
  lastNumber_ = job->number();
  jobs_.push_back(job);
  forgetOldest();
  changed(*job);
}

void JobLog::changed(Job& job) {
  noted(job);
  for (const auto& listener : listeners_) listener(job);
}

void JobLog::clear() {
  jobs_.erase(
      std::remove_if(jobs_.begin(), jobs_.end(), [](const auto& job) { return job->isFinished(); }),
      jobs_.end());
  ++changes_;
}

void JobLog::restart() {
  jobs_.clear();
  lastNumber_ = 0;
  ++changes_;
}

std::shared_ptr<const Job> JobLog::find(int number) const {
  const auto found = std::find_if(jobs_.begin(), jobs_.end(),
                                  [number](const auto& job) { return job->number() == number; });
  return found == jobs_.end() ? nullptr : *found;
}

std::shared_ptr<const Job> JobLog::newest(std::string_view printer) const {
  const auto found = std::find_if(jobs_.rbegin(), jobs_.rend(), [printer](const auto& job) {
    return printer.empty() || job->printer() == printer;
  });
  return found == jobs_.rend() ? nullptr : *found;
}

// From the newest back, the jobs are kept as long as they fit; before those, only the ones that are
// still being printed, of which a printer has one at most.
void JobLog::forgetOldest() {
  std::size_t kept = 1;
  std::size_t bytes = 0;
  for (auto job = std::next(jobs_.rbegin()); job != jobs_.rend() && kept < kMaxJobs; ++job) {
    bytes += (*job)->bytes();
    if (bytes > kMaxBytes) break;
    ++kept;
  }
  const auto end = jobs_.end() - static_cast<std::ptrdiff_t>(kept);
  jobs_.erase(std::remove_if(jobs_.begin(), end, [](const auto& job) { return job->isFinished(); }),
              end);
}

}  // namespace tolvex::sim
