// A scenario in the course of a run.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "scenario/scenario.h"
#include "scenario/tally.h"

namespace tolvex::sim {

/// Goes through the steps as events happen and time passes. Not thread-safe.
class ScenarioRun {
 public:
  /// What the steps act on.
  struct Surroundings {
    CallApi call;
    /// Has a function called when a time has passed.
    std::function<void(std::chrono::milliseconds time, std::function<void()> function)> after;
    /// Told each step that acts: "step /steps/1", with the step's own text behind a colon.
    std::function<void(const std::string& text)> say;
    /// Told what a call was refused with.
    std::function<void(const std::string& text)> warn;
    /// Asked to end the run. Steps that come after this one do not act.
    std::function<void()> exit;
  };

  ScenarioRun(Scenario scenario, Surroundings surroundings);
  ScenarioRun(const ScenarioRun&) = delete;
  ScenarioRun& operator=(const ScenarioRun&) = delete;

  /// Sets the initial state.
  void prepare();

  /// The first step begins to wait, or acts.
  void start();

  /// Something has happened. Steps may act before this returns; events that they bring about
  /// themselves are taken in as well, in order.
  void happened(const Event& event);

  /// What is not as expected, one line each, in the order of the file: refused calls first. `state`
  /// gives the state in JSON; it is asked only if one is expected.
  std::vector<std::string> unmet(const std::function<std::string()>& state) const;

  /// The status that a step ended the run with; 0 if none has.
  int exitStatus() const { return exitStatus_; }

 private:
  // How far a list of steps is done.
  struct Level {
    const std::vector<Step>* steps;
    std::size_t next = 0;
    int round = 1;
    int rounds = 1;
  };

  void work(const std::function<void()>& begin);
  const Step* next();
  void goOn();
  void take(const Event& event);
  void passTime();
  void act();
  void carryOut(const ApiCall& call);
  std::string describeWaiting() const;

  Scenario scenario_;
  Surroundings surroundings_;
  std::vector<Level> levels_;
  const Step* waiting_ = nullptr;  // for an event or for time; null at the end
  bool timing_ = false;            // it waits for time, no longer for events
  int counted_ = 0;                // events since it began to wait
  std::deque<Event> events_;       // that have not been taken yet
  bool busy_ = false;              // with an event or a step
  bool ended_ = false;             // by a step
  int exitStatus_ = 0;
  Tally tally_;
  std::vector<std::string> refusals_;
};

}  // namespace tolvex::sim
