#include "control/waiting_room.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "control/control_error.h"
#include "control/route.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

HttpResponse timeUp() {
  return errorResponse(ControlError(408, "it has not happened in time",
                                    "Ask again, or wait longer: timeout_s=600."));
}

HttpResponse wasReset() {
  return errorResponse(ControlError(409, "the simulator was reset in the meantime",
                                    "Ask again: numbers begin at 1 anew."));
}

}  // namespace

WaitingRoom::WaitingRoom(Simulation& simulation, const JobDiary& diary, Clock clock, Timer timer)
    : simulation_(simulation), diary_(diary), clock_(std::move(clock)), timer_(std::move(timer)) {
  simulation.devices.printers.jobs().listen([this](const Job& job) { look(job); });
  simulation.traffic.listen([this](const TrafficEntry& entry) { look(entry); });
}

void WaitingRoom::wait(Wish wish) {
  if (waiters_.size() >= kMost) {
    throw ControlError(503, std::to_string(kMost) + " clients are waiting already",
                       "Let fewer clients wait at once.");
  }
  const TimePoint deadline = clock_() + wish.timeout;
  waiters_.push_back({std::move(wish), deadline, simulation_.epoch});
  startTimer();
}

// Takes them out first: whoever is answered may ask again at once.
template <typename Fits>
void WaitingRoom::answerThose(Fits fits, const HttpResponse& response) {
  const auto first = std::stable_partition(waiters_.begin(), waiters_.end(),
                                           [&](const Waiter& waiter) { return !fits(waiter); });
  std::vector<Waiter> leaving(std::make_move_iterator(first),
                              std::make_move_iterator(waiters_.end()));
  waiters_.erase(first, waiters_.end());
  for (const Waiter& waiter : leaving) waiter.wish.respond(response);
}

void WaitingRoom::look(const Job& job) {
  const auto fits = [&](const Waiter& waiter) {
    return waits(waiter) && waiter.wish.job && waiter.wish.job(job);
  };
  if (std::none_of(waiters_.begin(), waiters_.end(), fits)) return;
  answerThose(fits, jsonResponse({{"job", jobView(job, diary_)}}));
}

void WaitingRoom::look(const TrafficEntry& entry) {
  const auto fits = [&](const Waiter& waiter) {
    return waits(waiter) && waiter.wish.exchange && waiter.wish.exchange(entry);
  };
  if (std::none_of(waiters_.begin(), waiters_.end(), fits)) return;
  answerThose(fits, jsonResponse({{"exchange", exchangeView(entry)}}));
}

// One timer for all, however many come and go: those that are handed out can not be taken back.
void WaitingRoom::startTimer() {
  if (isTimerOn_ || waiters_.empty()) return;
  isTimerOn_ = true;
  timer_(kTick, [this, alive = std::weak_ptr<bool>(alive_)] {
    if (!alive.expired()) tick();
  });
}

void WaitingRoom::tick() {
  isTimerOn_ = false;
  const TimePoint now = clock_();
  answerThose([](const Waiter& w) { return w.wish.clientLeft && w.wish.clientLeft(); }, timeUp());
  answerThose([&](const Waiter& waiter) { return !waits(waiter); }, wasReset());
  answerThose([&](const Waiter& waiter) { return waiter.deadline <= now; }, timeUp());
  startTimer();
}

}  // namespace tolvex::sim
