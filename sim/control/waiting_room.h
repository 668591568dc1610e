// Those who wait for something to happen.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "control/completion_log.h"
#include "control/job_diary.h"
#include "control/simulation.h"
#include "net/web.h"

namespace tolvex::sim {

/// Answers each of them once: when what they wait for has happened, when their time is up (408), or
/// when the simulator was reset (409). Not thread-safe.
class WaitingRoom {
 public:
  /// So many may wait at once.
  static constexpr std::size_t kMost = 64;
  /// How often it is looked whose time is up, and who has left.
  static constexpr std::chrono::milliseconds kTick{100};

  using Clock = std::function<TimePoint()>;
  /// Calls a function later.
  using Timer = std::function<void(std::chrono::milliseconds, std::function<void()>)>;

  /// What somebody waits for: a job that is finished or an exchange that is completed, one of the
  /// two. The answer is made of the first one that fits.
  struct Wish {
    std::function<bool(const Job&)> job;
    std::function<bool(const TrafficEntry&)> exchange;
    /// Only what was completed after this completion, see CompletionLog; if there is none, after
    /// the latest.
    std::optional<std::uint64_t> after;
    std::chrono::milliseconds timeout;
    std::function<void(HttpResponse)> respond;
    /// May be empty.
    std::function<bool()> clientLeft;
  };

  /// Listens to jobs and exchanges of the simulation, after the diary does, so all have to live
  /// equally long.
  WaitingRoom(Simulation& simulation, const JobDiary& diary, Clock clock, Timer timer);
  WaitingRoom(const WaitingRoom&) = delete;
  WaitingRoom& operator=(const WaitingRoom&) = delete;

  /// The answer, if it has happened already; else it comes later. Throws ControlError (503) when too
  /// many wait.
  std::optional<HttpResponse> wait(Wish wish);

  std::size_t size() const { return waiters_.size(); }

 private:
  struct Waiter {
    Wish wish;
    TimePoint deadline;
    std::uint64_t epoch;
  };

  std::optional<HttpResponse> find(const Wish& wish);
  HttpResponse jobAnswer(const Job& job, std::uint64_t number) const;
  void look(const Job& job, std::uint64_t number);
  void look(const TrafficEntry& entry, std::uint64_t number);
  void startTimer();
  void tick();
  bool waits(const Waiter& waiter) const { return waiter.epoch == simulation_.epoch; }
  template <typename Fits, typename AnswerTo>
  void answerThose(Fits fits, AnswerTo answerTo);

  Simulation& simulation_;
  const JobDiary& diary_;
  Clock clock_;
  Timer timer_;
  CompletionLog completions_;
  std::vector<Waiter> waiters_;
  bool isTimerOn_ = false;
  // Lives as long as the room, which timers may outlive.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolvex::sim
