// All state of the simulator.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/clock.h"
#include "devices/devices.h"
#include "faults/fault_board.h"
#include "traffic/traffic_log.h"

namespace tolvex::sim {

/// Where the simulator listens, for people and programs to know. 0: not at all.
struct Ports {
  std::string address = "127.0.0.1";
  std::uint16_t weighing = 0;
  std::uint16_t printing = 0;
  std::string webAddress = "127.0.0.1";
  std::uint16_t web = 0;
};

/// What clients, operator, page, API and scenario work on. Not thread-safe: everything happens on
/// the server's thread.
struct Simulation {
  explicit Simulation(ScaleConfig config = {}, Milligrams load = 0)
      : devices(std::move(config), load) {}

  Devices devices;
  FaultBoard faults;
  TrafficLog traffic;
  Ports ports;
  WallTime started = std::chrono::system_clock::now();

  /// Brings everything to the state at the start: devices, no faults, no traffic, no jobs, and what
  /// is being printed is lost, without a word to those who listen; job and exchange numbers begin
  /// again at 1. Set by whoever knows that state.
  std::function<void(TimePoint now)> restore;
  /// Brings the devices and faults of another simulation to that state, to try there what is to
  /// follow on it. Set together with `restore`.
  std::function<void(Simulation& other, TimePoint now)> restoreOther;
  /// How often it was restored. Who keeps numbers of jobs or exchanges forgets them when it changes.
  std::uint64_t epoch = 0;

  /// Restores everything, and counts that.
  void reset(TimePoint now) {
    ++epoch;
    if (restore) restore(now);
  }
};

}  // namespace tolvex::sim
