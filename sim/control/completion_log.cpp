#include "control/completion_log.h"

#include <algorithm>
#include <utility>

namespace tolvex::sim {

std::uint64_t CompletionOrder::add(std::uint64_t item) {
  items_.push_back(item);
  if (items_.size() > most_) items_.pop_front();
  return ++latest_;
}

std::optional<CompletionOrder::Completion> CompletionOrder::find(
    std::uint64_t after, const std::function<bool(std::uint64_t item)>& fits) const {
  const std::uint64_t forgotten = latest_ - items_.size();
  const std::uint64_t skipped = std::clamp(after, forgotten, latest_) - forgotten;
  const auto found =
      std::find_if(items_.begin() + static_cast<std::ptrdiff_t>(skipped), items_.end(), fits);
  if (found == items_.end()) return std::nullopt;
  return Completion{forgotten + 1 + static_cast<std::uint64_t>(found - items_.begin()), *found};
}

CompletionLog::CompletionLog(Simulation& simulation, Listener listener)
    : traffic_(simulation.traffic),
      listener_(std::move(listener)),
      restarts_(simulation.traffic.restarts()) {
  simulation.devices.printers.jobs().listen([this](const Job& job) { note(job); });
  simulation.traffic.listen([this](const TrafficEntry& entry) { note(entry); });
}

const CompletionOrder& CompletionLog::jobs() { return current().jobs; }

const CompletionOrder& CompletionLog::exchanges() { return current().exchanges; }

CompletionLog::Orders& CompletionLog::current() {
  if (restarts_ != traffic_.restarts()) orders_ = {};
  restarts_ = traffic_.restarts();
  return orders_;
}

// A job that is fed or cut later is finished only once.
void CompletionLog::note(const Job& job) {
  if (!job.isFinished()) return;
  int& latest = current().finished[job.printer()];
  if (job.number() <= latest) return;
  latest = job.number();
  listener_.finished(job, orders_.jobs.add(static_cast<std::uint64_t>(job.number())));
}

void CompletionLog::note(const TrafficEntry& entry) {
  if (entry.outcome == Outcome::Pending) return;
  listener_.completed(entry, current().exchanges.add(entry.number));
}

}  // namespace tolvex::sim
