// The simulator's notion of time. Models take the time as an argument and never read a clock, so
// that tests decide how fast it passes.
#pragma once

#include <chrono>

namespace tolvex::sim {

using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;
using Seconds = std::chrono::duration<double>;

}  // namespace tolvex::sim
