// The jobs of all printers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "devices/job.h"

namespace tolvex::sim {

/// Numbers the jobs and keeps the latest ones. Not thread-safe.
class JobLog {
 public:
  /// As many jobs are kept, and as much of their paper; the newest job, and those that are still
  /// being printed, are kept in any case.
  static constexpr std::size_t kMaxJobs = 500;
  static constexpr std::size_t kMaxBytes = std::size_t{64} * 1024 * 1024;

  /// `listener` is called with a job when it has begun and after each change, finished or not.
  /// There may be several listeners; they are called in the order in which they came.
  void listen(std::function<void(const Job& job)> listener);

  /// The number that the next job has to have.
  int nextNumber() const { return lastNumber_ + 1; }

  /// Takes in a job that has begun.
  void add(const std::shared_ptr<Job>& job);

  /// To be called by whoever changed a job later.
  void changed(Job& job);
  /// The same for a change that is none of the paper itself, such as that it was torn off: listeners
  /// are not called.
  void noted(Job& job) { job.setRevision(++changes_); }

  /// Grows with each change of a job, and with clear() and restart().
  std::uint64_t changes() const { return changes_; }

  /// Forgets the finished jobs; numbers go on.
  void clear();
  /// Forgets all jobs; numbers begin again at 1.
  void restart();

  /// The jobs that are kept, oldest first.
  const std::deque<std::shared_ptr<const Job>>& jobs() const { return jobs_; }

  /// The job with this number, null if it is not kept.
  std::shared_ptr<const Job> find(int number) const;

  /// The newest job of a printer, or of all printers if the name is empty; null if there is none.
  std::shared_ptr<const Job> newest(std::string_view printer = {}) const;

 private:
  void forgetOldest();

  std::vector<std::function<void(const Job&)>> listeners_;
  std::deque<std::shared_ptr<const Job>> jobs_;
  int lastNumber_ = 0;
  std::uint64_t changes_ = 0;
};

}  // namespace tolvex::sim
