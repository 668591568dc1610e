// The jobs of all printers.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "devices/job.h"

namespace tolvex::sim {

/// Numbers the jobs and keeps the latest ones. Not thread-safe.
class JobLog {
 public:
  /// As many jobs are kept, and as much of their paper; the newest job is kept in any case.
  static constexpr std::size_t kMaxJobs = 200;
  static constexpr std::size_t kMaxBytes = std::size_t{64} * 1024 * 1024;

  /// `listener` is called with a job when it has begun and after each change, finished or not.
  void listen(std::function<void(const Job& job)> listener) { listener_ = std::move(listener); }

  /// The number that the next job has to have.
  int nextNumber() const { return lastNumber_ + 1; }

  /// Takes in a job that has begun.
  void add(std::shared_ptr<const Job> job);

  /// To be called by whoever changed a job later.
  void changed(const Job& job);

  /// The jobs that are kept, oldest first.
  const std::deque<std::shared_ptr<const Job>>& jobs() const { return jobs_; }

  /// The newest job of a printer, or of all printers if the name is empty; null if there is none.
  std::shared_ptr<const Job> newest(std::string_view printer = {}) const;

 private:
  void forgetOldest();

  std::function<void(const Job&)> listener_;
  std::deque<std::shared_ptr<const Job>> jobs_;
  int lastNumber_ = 0;
};

}  // namespace tolvex::sim
