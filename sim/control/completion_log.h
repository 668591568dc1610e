// In which order jobs were finished and exchanges completed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "control/simulation.h"

namespace tolvex::sim {

/// Numbers of things in the order in which they were completed. Completions count up from 1.
class CompletionOrder {
 public:
  struct Completion {
    std::uint64_t number;
    std::uint64_t item;
  };

  /// Remembers the latest `most`.
  explicit CompletionOrder(std::size_t most) : most_(most) {}

  /// Takes in a thing that is complete now, and returns the number of its completion.
  std::uint64_t add(std::uint64_t item);

  /// Number of the latest completion, 0 if there was none.
  std::uint64_t latest() const { return latest_; }

  /// The first one with a larger number than `after` whose thing fits.
  std::optional<Completion> find(std::uint64_t after,
                                 const std::function<bool(std::uint64_t item)>& fits) const;

 private:
  std::size_t most_;
  std::deque<std::uint64_t> items_;
  std::uint64_t latest_ = 0;
};

/// Notes which jobs were finished and which exchanges completed: they may begin in another order.
/// Both begin again when the traffic log does, with which a reset ends. Not thread-safe.
class CompletionLog {
 public:
  /// Who is told of each, once.
  struct Listener {
    std::function<void(const Job& job, std::uint64_t number)> finished;
    std::function<void(const TrafficEntry& entry, std::uint64_t number)> completed;
  };

  /// Listens to the simulation, so both have to live equally long.
  CompletionLog(Simulation& simulation, Listener listener);
  CompletionLog(const CompletionLog&) = delete;
  CompletionLog& operator=(const CompletionLog&) = delete;

  const CompletionOrder& jobs();
  const CompletionOrder& exchanges();

 private:
  /// Those of one run from reset to reset.
  struct Orders {
    CompletionOrder jobs{2 * JobLog::kMaxJobs};
    CompletionOrder exchanges{2 * TrafficLog::kMaxEntries};
    std::map<std::string, int> finished;  // the latest job that was, by printer
  };

  Orders& current();
  void note(const Job& job);
  void note(const TrafficEntry& entry);

  const TrafficLog& traffic_;
  Listener listener_;
  Orders orders_;
  std::uint64_t restarts_;
};

}  // namespace tolvex::sim
