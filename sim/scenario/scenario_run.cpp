#include "scenario/scenario_run.h"

#include <utility>

#include "base/printable.h"
#include "scenario/call_refusal.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxLogBytes = 1000;

}  // namespace

ScenarioRun::ScenarioRun(Scenario scenario, Surroundings surroundings)
    : scenario_(std::move(scenario)), surroundings_(std::move(surroundings)) {}

void ScenarioRun::prepare() {
  if (scenario_.initial) carryOut(*scenario_.initial);
}

void ScenarioRun::start() {
  levels_.push_back({&scenario_.steps});
  work([this] { goOn(); });
}

void ScenarioRun::happened(const Event& event) {
  events_.push_back(event);
  if (!busy_) work([] {});
}

// What steps bring about waits until the step is done.
void ScenarioRun::work(const std::function<void()>& begin) {
  busy_ = true;
  begin();
  while (!events_.empty()) {
    const Event event = std::move(events_.front());
    events_.pop_front();
    take(event);
  }
  busy_ = false;
}

// The step whose turn it is; null when all are done.
const Step* ScenarioRun::next() {
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.next == level.steps->size()) {
      level.next = 0;
      if (++level.round > level.rounds) levels_.pop_back();
      continue;
    }
    const Step& step = (*level.steps)[level.next++];
    if (step.steps.empty()) return &step;
    levels_.push_back({&step.steps, 0, 1, step.repeat});
  }
  return nullptr;
}

void ScenarioRun::goOn() {
  while (!ended_) {
    waiting_ = next();
    counted_ = 0;
    if (waiting_ == nullptr || waiting_->trigger.event) return;
    if (waiting_->trigger.after.count() > 0) return passTime();
    act();
  }
}

void ScenarioRun::take(const Event& event) {
  tally_.add(event);
  if (ended_ || waiting_ == nullptr || timing_ || !waiting_->trigger.counts(event)) return;
  if (++counted_ < waiting_->trigger.count) return;
  if (waiting_->trigger.after.count() > 0) return passTime();
  act();
  goOn();
}

void ScenarioRun::passTime() {
  timing_ = true;
  surroundings_.after(waiting_->trigger.after, [this] {
    timing_ = false;
    work([this] {
      act();
      goOn();
    });
  });
}

void ScenarioRun::act() {
  const Step& step = *waiting_;
  surroundings_.say("step " + step.place +
                    (step.log.empty() ? "" : ": " + printable(step.log, kMaxLogBytes)));
  for (const ApiCall& call : step.calls) carryOut(call);
  if (!step.exit) return;
  ended_ = true;
  exitStatus_ = *step.exit;
  waiting_ = next();
  surroundings_.exit();
}

void ScenarioRun::carryOut(const ApiCall& call) {
  const ApiAnswer answer = surroundings_.call(call);
  if (!isRefused(answer)) return;
  refusals_.push_back(refusalText(call, answer));
  surroundings_.warn(refusals_.back());
}

std::string ScenarioRun::describeWaiting() const {
  std::string text = waiting_->place + " still waits for " + describe(waiting_->trigger);
  if (waiting_->trigger.event) text += ", of which " + std::to_string(counted_) + " came";
  return text;
}

std::vector<std::string> ScenarioRun::unmet(const std::function<std::string()>& state) const {
  std::vector<std::string> lines = refusals_;
  const Expectations& expected = scenario_.expectations;
  for (auto& line : unmetCounts(expected.counts, tally_)) lines.push_back(std::move(line));
  if (expected.allSteps && waiting_ != nullptr) {
    lines.push_back("/expect/steps: not all steps acted; " +
                    (ended_ ? "the run ended before " + waiting_->place : describeWaiting()));
  }
  if (!expected.state.empty()) {
    for (auto& line : differencesOf(expected.state, state(), kStatePlace)) {
      lines.push_back(std::move(line));
    }
  }
  return lines;
}

}  // namespace tolvex::sim
