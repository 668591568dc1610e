// A scenario whose surroundings are in the test's hand.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "scenario/scenario_run.h"

namespace tolvex::sim {

inline Event request(std::string command, std::int64_t result = 0, Half half = Half::Weighing) {
  Event event;
  event.half = half;
  event.command = std::move(command);
  event.result = result;
  return event;
}

inline Event job(std::string printer) {
  Event event;
  event.kind = Event::Kind::Job;
  event.printer = std::move(printer);
  return event;
}

inline Event connection(Half half) {
  Event event;
  event.kind = Event::Kind::Connection;
  event.half = half;
  return event;
}

using Lines = std::vector<std::string>;

/// Notes what a scenario does, each as one line: "PATCH /api/state {...}", "say ...", "exit".
class ScenarioTest : public ::testing::Test {
 protected:
  void play(const std::string& text) {
    ScenarioRun::Surroundings surroundings;
    surroundings.call = [this](const ApiCall& call) {
      done_.push_back(call.method + " " + call.path + (call.body.empty() ? "" : " " + call.body));
      if (called_) called_();
      return answer_;
    };
    surroundings.after = [this](std::chrono::milliseconds time, std::function<void()> function) {
      time_ = time;
      passed_ = std::move(function);
    };
    surroundings.say = [this](const std::string& said) { done_.push_back("say " + said); };
    surroundings.warn = [this](const std::string& warned) { warnings_.push_back(warned); };
    surroundings.exit = [this] { done_.push_back("exit"); };
    run_ = std::make_unique<ScenarioRun>(parseScenario(text), std::move(surroundings));
    run_->prepare();
    run_->start();
  }

  void happened(const Event& event) { run_->happened(event); }

  /// The time that a step waits for is over.
  void passTime() { std::exchange(passed_, nullptr)(); }

  /// What was done since the last call.
  Lines done() { return std::exchange(done_, {}); }

  Lines unmet() const {
    return run_->unmet([this] { return state_; });
  }

  ApiAnswer answer_;
  std::function<void()> called_;
  std::chrono::milliseconds time_{0};
  std::function<void()> passed_;
  Lines done_;
  Lines warnings_;
  std::string state_ = "{}";
  std::unique_ptr<ScenarioRun> run_;
};

}  // namespace tolvex::sim
