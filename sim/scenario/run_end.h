// The end of a run that ends by itself.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "scenario/event.h"
#include "scenario/run_limits.h"

namespace tolvex::sim {

/// Stops the simulator when a limit is reached. Not thread-safe.
class RunEnd {
 public:
  /// A program is not done with a job when the job is finished: it cuts the paper, opens the
  /// drawer. So after a count the run goes on until clients have been quiet for kQuiet: no request
  /// has come, and none is without its reply. It does not go on for longer than kLongest. The time
  /// limit ends it at once. Clients are looked at each kStep.
  static constexpr std::chrono::milliseconds kStep{100};
  static constexpr std::chrono::milliseconds kQuiet{500};
  static constexpr std::chrono::milliseconds kLongest{5000};

  struct Surroundings {
    /// Has a function called when a time has passed.
    std::function<void(std::chrono::milliseconds time, std::function<void()> function)> after;
    /// Whether a request is still without its reply.
    std::function<bool()> isAnswering;
    std::function<void()> stop;
  };

  RunEnd(const RunLimits& limits, Surroundings surroundings);
  RunEnd(const RunEnd&) = delete;
  RunEnd& operator=(const RunEnd&) = delete;

  /// The time begins.
  void start();

  void happened(const Event& event);

  /// Ends the run as after a count.
  void endSoon();

  /// Why the run is not as it was asked for: none of the counts was reached. Empty if there is
  /// nothing to say: "2 jobs instead of 3 when the time was up".
  std::string unmet() const;

 private:
  bool reachedCount() const;
  void waitForQuiet();

  RunLimits limits_;
  Surroundings surroundings_;
  std::int64_t jobs_ = 0;
  std::int64_t requests_ = 0;
  bool timeUp_ = false;
  bool ending_ = false;
  std::chrono::milliseconds waited_{0};  // for quiet
  std::chrono::milliseconds quiet_{0};   // the latest part of it
};

}  // namespace tolvex::sim
