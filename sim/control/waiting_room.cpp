#include "control/waiting_room.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "control/control_error.h"
#include "control/route.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

// With the number that waiting goes on from without missing anything.
HttpResponse timeUp(std::uint64_t next) {
  Json body = errorBody(ControlError(408, "it has not happened in time",
                                     "Ask again, or wait longer: timeout_s=600."));
  body["next"] = next;
  return jsonResponse(body, 408);
}

HttpResponse wasReset() {
  return errorResponse(ControlError(409, "the simulator was reset in the meantime",
                                    "Ask again: numbers begin at 1 anew."));
}

HttpResponse exchangeAnswer(const TrafficEntry& entry, std::uint64_t number) {
  return jsonResponse({{"exchange", exchangeView(entry)}, {"next", number}});
}

}  // namespace

WaitingRoom::WaitingRoom(Simulation& simulation, const JobDiary& diary, Clock clock, Timer timer)
    : simulation_(simulation),
      diary_(diary),
      clock_(std::move(clock)),
      timer_(std::move(timer)),
      completions_(simulation, {[this](const Job& job, std::uint64_t number) { look(job, number); },
                                [this](const TrafficEntry& entry, std::uint64_t number) {
                                  look(entry, number);
                                }}) {}

std::optional<HttpResponse> WaitingRoom::wait(Wish wish) {
  if (!wish.after) {
    wish.after = wish.job ? completions_.jobs().latest() : completions_.exchanges().latest();
  }
  if (auto answer = find(wish)) return answer;
  if (waiters_.size() >= kMost) {
    throw ControlError(503, std::to_string(kMost) + " clients are waiting already",
                       "Let fewer clients wait at once.");
  }
  const TimePoint deadline = clock_() + wish.timeout;
  waiters_.push_back({std::move(wish), deadline, simulation_.epoch});
  startTimer();
  return std::nullopt;
}

// What is no longer kept is passed over.
std::optional<HttpResponse> WaitingRoom::find(const Wish& wish) {
  if (wish.job) {
    const JobLog& jobs = simulation_.devices.printers.jobs();
    const auto found = completions_.jobs().find(*wish.after, [&](std::uint64_t number) {
      const auto job = jobs.find(static_cast<int>(number));
      return job && wish.job(*job);
    });
    if (!found) return std::nullopt;
    return jobAnswer(*jobs.find(static_cast<int>(found->item)), found->number);
  }
  const TrafficLog& traffic = simulation_.traffic;
  const auto found = completions_.exchanges().find(*wish.after, [&](std::uint64_t number) {
    const TrafficEntry* entry = traffic.find(number);
    return entry != nullptr && wish.exchange(*entry);
  });
  if (!found) return std::nullopt;
  return exchangeAnswer(*traffic.find(found->item), found->number);
}

HttpResponse WaitingRoom::jobAnswer(const Job& job, std::uint64_t number) const {
  return jsonResponse({{"job", jobView(job, diary_)}, {"next", number}});
}

// Takes them out first: whoever is answered may ask again at once.
template <typename Fits, typename AnswerTo>
void WaitingRoom::answerThose(Fits fits, AnswerTo answerTo) {
  const auto first = std::stable_partition(waiters_.begin(), waiters_.end(),
                                           [&](const Waiter& waiter) { return !fits(waiter); });
  std::vector<Waiter> leaving(std::make_move_iterator(first),
                              std::make_move_iterator(waiters_.end()));
  waiters_.erase(first, waiters_.end());
  for (const Waiter& waiter : leaving) waiter.wish.respond(answerTo(waiter));
}

void WaitingRoom::look(const Job& job, std::uint64_t number) {
  answerThose(
      [&](const Waiter& waiter) {
        return waits(waiter) && number > *waiter.wish.after && waiter.wish.job &&
               waiter.wish.job(job);
      },
      [&](const Waiter&) { return jobAnswer(job, number); });
}

void WaitingRoom::look(const TrafficEntry& entry, std::uint64_t number) {
  answerThose(
      [&](const Waiter& waiter) {
        return waits(waiter) && number > *waiter.wish.after && waiter.wish.exchange &&
               waiter.wish.exchange(entry);
      },
      [&](const Waiter&) { return exchangeAnswer(entry, number); });
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
  const auto late = [](const Waiter& waiter) { return timeUp(*waiter.wish.after); };
  answerThose([](const Waiter& w) { return w.wish.clientLeft && w.wish.clientLeft(); }, late);
  answerThose([&](const Waiter& waiter) { return !waits(waiter); },
              [](const Waiter&) { return wasReset(); });
  answerThose([&](const Waiter& waiter) { return waiter.deadline <= now; }, late);
  startTimer();
}

}  // namespace tolvex::sim
