// What the simulator does without an operator: for tests of programs.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "app/options.h"
#include "devices/job.h"
#include "exchange/exchanger.h"
#include "recording/recorder.h"
#include "recording/replay.h"
#include "scenario/run_end.h"
#include "scenario/scenario_run.h"

namespace tolvex::sim {

struct Simulation;
class StartState;

/// A file that was named on the command line can not be used. The text says which, why, and what
/// can be done.
class UnusableFile : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The scenario, the recording, the replay and the end of one run. Not thread-safe; everything
/// happens on the server's thread.
class Automation {
 public:
  /// What is to be told of it, and where it acts.
  struct World {
    CallApi call;
    std::function<void(std::function<void()> function)> post;
    std::function<void(std::chrono::milliseconds time, std::function<void()> function)> after;
    std::function<void()> stop;
    std::function<void(const std::string& text)> say;
    std::function<void(const std::string& text)> warn;
  };

  /// Exit status when the run was not as expected.
  static constexpr int kUnmet = 3;

  /// Reads the files, tries the scenario's calls on devices that nobody uses, and adds its initial
  /// state to `start`. Throws UnusableFile, or std::runtime_error if no recording can be written.
  Automation(const Options& options, StartState& start, World world);
  Automation(const Automation&) = delete;
  Automation& operator=(const Automation&) = delete;

  /// Answers instead of the devices; null if the devices answer.
  Answerer* answerer() { return replay_ ? &*replay_ : nullptr; }

  /// Sees from now on what happens; sets the scenario's initial state. Everything named here must
  /// live as long as this.
  void attach(Simulation& simulation, Exchanger& exchanger);

  /// The simulation was restored. The scenario's steps go on.
  void restored();

  /// The run begins: the ports are open.
  void start();

  /// The run is over: tells what was not as expected, and returns the exit status: that of the
  /// scenario's step that ended the run, else 0; 1 if the recording is not complete; kUnmet if
  /// something was not as expected.
  int finish();

 private:
  void loadScenario(StartState& start);
  void exchanged(const Exchange& exchange, const TrafficLog& traffic);
  void jobChanged(const Job& job);
  bool isAnswering() const;
  void record(const Exchange& exchange);
  void note(const Event& event);
  int reportUnmet();

  const Options& options_;
  World world_;
  std::optional<Replay> replay_;
  std::optional<Recorder> recorder_;
  std::unique_ptr<ScenarioRun> scenario_;
  RunEnd end_;
  const TrafficLog* traffic_ = nullptr;
  TimePoint started_;
  std::uint64_t exchanges_ = 0;
  bool recordingFailed_ = false;
  std::map<std::string, int> finished_;  // the latest job that was, by printer
};

}  // namespace tolvex::sim
