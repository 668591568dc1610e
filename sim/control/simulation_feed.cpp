#include "control/simulation_feed.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <utility>

#include "control/views.h"

namespace tolvex::sim {

SimulationFeed::SimulationFeed(const Simulation& simulation, const JobDiary& diary,
                               std::shared_ptr<StateText> stateText, Start start)
    : simulation_(simulation),
      diary_(diary),
      stateText_(std::move(stateText)),
      epoch_(simulation.epoch),
      knownExchange_(start.exchangesAfter),
      knownSince_(simulation.traffic.changes()),
      newestTold_(start.exchangesAfter),
      jobChange_(start.jobsAfter) {}

std::string SimulationFeed::next() {
  constexpr std::array<Kind, 3> kKinds = {&SimulationFeed::state, &SimulationFeed::exchanges,
                                          &SimulationFeed::jobs};
  if (epoch_ != simulation_.epoch) beginAgain();
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    const Kind kind = kKinds.at(turn_);
    turn_ = (turn_ + 1) % kKinds.size();
    std::string message = (this->*kind)();
    if (!message.empty()) return message;
  }
  return "";
}

// The state comes first, and tells the viewer to forget what it knows.
void SimulationFeed::beginAgain() {
  epoch_ = simulation_.epoch;
  sentState_.reset();
  knownExchange_ = 0;
  newestTold_ = 0;
  trafficChange_ = 0;
  jobChange_ = 0;
  turn_ = 0;
}

std::string SimulationFeed::state() {
  std::shared_ptr<const std::string> message = stateText_->message();
  if (message == sentState_) return "";
  sentState_ = std::move(message);
  return *sentState_;
}

// An exchange that the viewer knows from before comes only if it has changed since.
Json SimulationFeed::takeExchanges() {
  Json views = Json::array();
  std::size_t bytes = 0;
  for (const TrafficEntry* entry :
       simulation_.traffic.changedSince(trafficChange_, kMostExchanges)) {
    bytes += entry->request.size() + entry->reply.size();
    if (bytes > kMostBytes && !views.empty()) break;
    trafficChange_ = entry->change;
    if (entry->number <= knownExchange_ && entry->change <= knownSince_) continue;
    views.push_back(exchangeView(*entry));
    newestTold_ = std::max(newestTold_, entry->number);
  }
  return views;
}

std::string SimulationFeed::exchanges() {
  const std::uint64_t oldest = simulation_.traffic.oldest();
  const std::uint64_t lost = oldest > newestTold_ + 1 ? oldest - newestTold_ - 1 : 0;
  for (;;) {
    const std::uint64_t before = trafficChange_;
    Json views = takeExchanges();
    if (!views.empty()) {
      return textOf({{"type", "exchanges"},
                     {"epoch", epoch_},
                     {"exchanges", std::move(views)},
                     {"skipped", lost}});
    }
    if (trafficChange_ == before) return "";
  }
}

std::string SimulationFeed::jobs() {
  const JobLog& log = simulation_.devices.printers.jobs();
  if (log.changes() == jobChange_) return "";
  Json views = Json::array();
  for (const auto& job : log.jobs()) {
    if (job->revision() > jobChange_) views.push_back(jobView(*job, diary_));
  }
  jobChange_ = log.changes();
  if (views.empty()) return "";
  return textOf({{"type", "jobs"}, {"epoch", epoch_}, {"jobs", std::move(views)}});
}

}  // namespace tolvex::sim
