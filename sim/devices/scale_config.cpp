#include "devices/scale_config.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxRanges = 3;
constexpr std::size_t kMaxUnitBytes = 4;
constexpr std::size_t kMaxVersionBytes = 64;
constexpr Milligrams kMaxCapacity = kilograms(1'000'000);
// The high-resolution weight shows a tenth of the division, which must be a whole number of mg.
constexpr Milligrams kFinestDivision = 10;
constexpr Seconds kLongestSettling{3600};

void require(bool condition, const std::string& message) {
  if (!condition) throw std::invalid_argument("scale: " + message);
}

bool isPrintableAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

void validateRanges(const std::vector<WeighingRange>& ranges) {
  require(!ranges.empty() && ranges.size() <= kMaxRanges, "one to three ranges are needed");
  WeighingRange previous;
  for (const WeighingRange& range : ranges) {
    const std::string text = "range up to " + formatKilograms(range.max) + " kg: ";
    require(range.division > 0 && range.division % kFinestDivision == 0,
            text + "the division must be a positive multiple of 0.00001 kg");
    require(range.max > previous.max && range.max <= kMaxCapacity,
            text + "capacities must be positive and ascending, at most 1000000 kg");
    require(range.division >= previous.division, text + "divisions must not become finer");
    require(range.max % range.division == 0, text + "the capacity must be whole divisions");
    previous = range;
  }
}

void validateDuration(Seconds duration, const char* what) {
  // Compared as numbers, because comparisons of durations accept one that is not a number.
  require(duration.count() >= 0 && duration.count() <= kLongestSettling.count(),
          std::string(what) + " must be 0 to 3600 s");
}

}  // namespace

Milligrams ScaleConfig::divisionAt(Milligrams gross) const {
  const auto fits = [gross](const WeighingRange& range) { return gross <= range.max; };
  const auto range = std::find_if(ranges.begin(), ranges.end(), fits);
  return range == ranges.end() ? ranges.back().division : range->division;
}

int ScaleConfig::decimals() const {
  int decimals = 0;
  for (const WeighingRange& range : ranges) {
    decimals = std::max(decimals, decimalsOf(range.division));
  }
  return decimals;
}

void setSettling(ScaleConfig& config, Seconds duration) {
  const ScaleConfig oneSecond;
  config.timeConstant = oneSecond.timeConstant * duration.count();
  config.holdTime = oneSecond.holdTime * duration.count();
}

Seconds settlingOf(const ScaleConfig& config) {
  constexpr double kMicrosecond = 1e-6;
  const double duration = config.holdTime / ScaleConfig().holdTime;
  return Seconds(std::round(duration / kMicrosecond) * kMicrosecond);
}

void validate(const ScaleConfig& config) {
  validateRanges(config.ranges);
  const auto withinCapacity = [&config](Milligrams mass) {
    return mass >= 0 && mass <= config.max();
  };
  require(withinCapacity(config.minRange), "minRange must be 0 to the capacity");
  require(withinCapacity(config.maxTare), "maxTare must be 0 to the capacity");
  require(withinCapacity(config.maxPreTare), "maxPreTare must be 0 to the capacity");
  require(
      !config.unit.empty() && config.unit.size() <= kMaxUnitBytes && isPrintableAscii(config.unit),
      "unit must be 1 to 4 printable ASCII characters");
  require(!config.systemVersion.empty() && config.systemVersion.size() <= kMaxVersionBytes &&
              isPrintableAscii(config.systemVersion),
          "systemVersion must be 1 to 64 printable ASCII characters");
  validateDuration(config.timeConstant, "timeConstant");
  validateDuration(config.holdTime, "holdTime");
}

}  // namespace tolvex::sim
