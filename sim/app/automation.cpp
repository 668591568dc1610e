#include "app/automation.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "app/input_file.h"
#include "app/start_state.h"
#include "app/trial.h"
#include "control/simulation.h"

namespace tolvex::sim {

namespace {

constexpr std::string_view kNoAnswer = "no-answer";
constexpr std::string_view kClose = "close";
constexpr std::string_view kReset = "reset";

// Calls `use` with the file's content; says of what it throws which file is to blame.
template <typename Use>
void useFile(const char* what, const std::string& path, std::size_t mostBytes, Use use) {
  try {
    use(readInputFile(std::filesystem::u8path(path), mostBytes));
  } catch (const std::exception& error) {
    throw UnusableFile(std::string("cannot use the ") + what + " " + path + ": " + error.what());
  }
}

Event eventOf(const Exchange& exchange, const TrafficLog& traffic) {
  Event event;
  event.kind = Event::Kind::Request;
  event.half = exchange.caller.half;
  const TrafficEntry* entry = traffic.find(exchange.delivery.number);
  if (entry == nullptr) return event;
  event.command = entry->command;
  event.known = entry->known;
  event.result = entry->result;
  return event;
}

std::string_view insteadOf(const Delivery& delivery) {
  if (!delivery.reply.empty()) return "";
  switch (delivery.after) {
    case After::Close:
      return kClose;
    case After::Reset:
      return kReset;
    case After::Keep:
      break;
  }
  return kNoAnswer;
}

}  // namespace

Automation::Automation(const Options& options, StartState& start, World world)
    : options_(options),
      world_(std::move(world)),
      end_(options.limits, {world_.after, [this] { return isAnswering(); }, world_.stop}) {
  if (!options.scenario.empty()) loadScenario(start);
  if (!options.replay.empty()) {
    useFile("recording", options.replay, kMaxRecordingBytes, [this](const std::string& text) {
      replay_.emplace(parseRecording(text), [this](const std::string& difference) {
        world_.warn("replay of " + options_.replay + ": " + difference);
      });
    });
  }
  if (!options.record.empty()) recorder_.emplace(options.record);
}

void Automation::loadScenario(StartState& start) {
  ScenarioRun::Surroundings surroundings;
  surroundings.call = world_.call;
  surroundings.after = world_.after;
  surroundings.say = [this](const std::string& text) { world_.say("scenario " + text); };
  surroundings.warn = [this](const std::string& text) {
    world_.warn("scenario " + options_.scenario + ": " + text);
  };
  surroundings.exit = [this] { end_.endSoon(); };
  useFile("scenario", options_.scenario, kMaxScenarioBytes, [&](const std::string& text) {
    Scenario scenario = parseScenario(text);
    tryScenario(scenario, start);
    scenario_ = std::make_unique<ScenarioRun>(std::move(scenario), std::move(surroundings));
  });
}

void Automation::attach(Simulation& simulation, Exchanger& exchanger) {
  traffic_ = &simulation.traffic;
  started_ = Clock::now();
  exchanger.observe([this, &traffic = simulation.traffic](const Exchange& exchange) {
    exchanged(exchange, traffic);
  });
  simulation.devices.printers.jobs().listen([this](const Job& job) { jobChanged(job); });
  simulation.traffic.listenToConnections([this](Half half) {
    Event event;
    event.kind = Event::Kind::Connection;
    event.half = half;
    note(event);
  });
  if (scenario_) scenario_->prepare();
}

void Automation::restored() { finished_.clear(); }

void Automation::start() {
  end_.start();
  if (scenario_) scenario_->start();
}

void Automation::exchanged(const Exchange& exchange, const TrafficLog& traffic) {
  ++exchanges_;
  record(exchange);
  note(eventOf(exchange, traffic));
}

// A job that is fed or cut later is finished only once.
void Automation::jobChanged(const Job& job) {
  if (!job.isFinished()) {
    finished_.erase(job.printer());
    return;
  }
  int& latest = finished_[job.printer()];
  if (latest == job.number()) return;
  latest = job.number();
  Event event;
  event.kind = Event::Kind::Job;
  event.printer = job.printer();
  note(event);
}

// Devices are in the middle of a command now. What this brings about happens when it is done, yet
// before a client can have seen the reply and sent something else.
void Automation::note(const Event& event) {
  world_.post([this, event] {
    if (scenario_) scenario_->happened(event);
    end_.happened(event);
  });
}

bool Automation::isAnswering() const {
  const auto& entries = traffic_->entries();
  return std::any_of(entries.rbegin(), entries.rend(),
                     [](const TrafficEntry& entry) { return entry.outcome == Outcome::Pending; });
}

void Automation::record(const Exchange& exchange) {
  if (!recorder_ || recordingFailed_) return;
  RecordedExchange recorded;
  recorded.number = exchanges_;
  recorded.time = std::chrono::duration_cast<std::chrono::microseconds>(exchange.now - started_);
  recorded.half = exchange.caller.half;
  recorded.connection = exchange.caller.connection;
  recorded.request = exchange.request;
  recorded.reply = exchange.delivery.reply;
  recorded.instead = insteadOf(exchange.delivery);
  if (recorder_->add(recorded)) return;
  recordingFailed_ = true;
  world_.warn("cannot write on in the recording " + options_.record +
              ", which ends before exchange " + std::to_string(exchanges_) +
              ". Make room there, or choose another file with --record.");
}

int Automation::reportUnmet() {
  int unmet = 0;
  const auto report = [&](const std::string& what, const std::string& line) {
    ++unmet;
    world_.warn(what + ": " + line);
  };
  if (scenario_) {
    const auto state = [this] { return world_.call({"GET", "/api/state", "", ""}).body; };
    for (const auto& line : scenario_->unmet(state)) report("scenario " + options_.scenario, line);
  }
  if (replay_) {
    for (const auto& line : replay_->unmet()) report("replay of " + options_.replay, line);
  }
  if (const std::string line = end_.unmet(); !line.empty()) report("--exit-after", line);
  return unmet;
}

int Automation::finish() {
  if (reportUnmet() > 0) return kUnmet;
  if (recordingFailed_) return 1;
  return scenario_ ? scenario_->exitStatus() : 0;
}

}  // namespace tolvex::sim
