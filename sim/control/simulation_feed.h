// What one viewer of the live channel is told.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "control/job_diary.h"
#include "control/json.h"
#include "control/state_text.h"
#include "net/web.h"

namespace tolvex::sim {

/// Composes each message when it is asked for, from numbers that say how far the viewer is: one who
/// takes them slowly costs no memory and misses only what is no longer kept.
class SimulationFeed : public LiveFeed {
 public:
  /// A message has no more exchanges than these, and ends after as many bytes of them.
  static constexpr std::size_t kMostExchanges = 200;
  static constexpr std::size_t kMostBytes = std::size_t{1} * 1024 * 1024;

  /// Where a viewer begins: with the exchanges after this number, and with the jobs that changed
  /// after this revision. 0: with all that are kept.
  struct Start {
    std::uint64_t exchangesAfter = 0;
    std::uint64_t jobsAfter = 0;
  };

  /// All of them have to live as long.
  SimulationFeed(const Simulation& simulation, const JobDiary& diary,
                 std::shared_ptr<StateText> stateText, Start start);

  std::string next() override;

 private:
  using Kind = std::string (SimulationFeed::*)();

  std::string state();
  std::string exchanges();
  std::string jobs();
  void beginAgain();
  Json takeExchanges();

  const Simulation& simulation_;
  const JobDiary& diary_;
  std::shared_ptr<StateText> stateText_;
  std::shared_ptr<const std::string> sentState_;
  std::uint64_t epoch_;
  // Exchanges up to this number are known, as they were at this change of the log.
  std::uint64_t knownExchange_;
  std::uint64_t knownSince_;
  std::uint64_t newestTold_;
  std::uint64_t trafficChange_ = 0;
  std::uint64_t jobChange_;
  // Which kind of message is looked for first: the one after the kind that was sent last, because
  // the state may change all the time.
  std::size_t turn_ = 0;
};

}  // namespace tolvex::sim
