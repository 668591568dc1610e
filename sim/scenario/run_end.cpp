#include "scenario/run_end.h"

#include <utility>

#include "base/list.h"

namespace tolvex::sim {

namespace {

void addUnmet(std::string& list, std::int64_t count, const std::optional<std::int64_t>& limit,
              const std::string& what) {
  if (!limit) return;
  addToList(list,
            std::to_string(count) + " " + what + (count == 1 ? "" : "s") + " instead of " +
                std::to_string(*limit),
            " and ");
}

}  // namespace

RunEnd::RunEnd(const RunLimits& limits, Surroundings surroundings)
    : limits_(limits), surroundings_(std::move(surroundings)) {}

void RunEnd::start() {
  if (!limits_.time) return;
  surroundings_.after(*limits_.time, [this] {
    timeUp_ = true;
    surroundings_.stop();
  });
}

void RunEnd::happened(const Event& event) {
  if (event.kind == Event::Kind::Job) ++jobs_;
  if (event.kind == Event::Kind::Request) ++requests_;
  if (reachedCount()) endSoon();
}

bool RunEnd::reachedCount() const {
  return (limits_.jobs && jobs_ >= *limits_.jobs) ||
         (limits_.requests && requests_ >= *limits_.requests);
}

void RunEnd::endSoon() {
  if (ending_) return;
  ending_ = true;
  waitForQuiet();
}

void RunEnd::waitForQuiet() {
  surroundings_.after(kStep, [this, seen = requests_] {
    waited_ += kStep;
    const bool isQuiet = requests_ == seen && !surroundings_.isAnswering();
    quiet_ = isQuiet ? quiet_ + kStep : std::chrono::milliseconds(0);
    if (quiet_ >= kQuiet || waited_ >= kLongest) return surroundings_.stop();
    waitForQuiet();
  });
}

std::string RunEnd::unmet() const {
  if (!limits_.hasCounts() || reachedCount()) return "";
  std::string text;
  addUnmet(text, jobs_, limits_.jobs, "job");
  addUnmet(text, requests_, limits_.requests, "request");
  return text + (timeUp_ ? " when the time was up" : " when it was stopped");
}

}  // namespace tolvex::sim
