#include "devices/flicker.h"

#include <chrono>
#include <cstdint>

namespace tolvex::sim {

namespace {

constexpr std::chrono::milliseconds kPeriod{100};

// SplitMix64: neighbouring numbers give values that have nothing to do with each other.
std::uint64_t mixed(std::uint64_t number) {
  number += 0x9E3779B97F4A7C15U;
  number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
  number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
  return number ^ (number >> 31U);
}

}  // namespace

Milligrams flickerAt(TimePoint now, Milligrams noise) {
  const auto period = static_cast<std::uint64_t>(now.time_since_epoch() / kPeriod);
  const auto values = static_cast<std::uint64_t>(2 * noise + 1);
  return static_cast<Milligrams>(mixed(period) % values) - noise;
}

}  // namespace tolvex::sim
