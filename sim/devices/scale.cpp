#include "devices/scale.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "devices/flicker.h"

namespace tolvex::sim {

namespace {

constexpr Milligrams kUnderLoadDivisions = 20;
constexpr Milligrams kOverLoadDivisions = 9;
constexpr Milligrams kZeroRangeFraction = 50;  // the zero key reaches 1/50 of the capacity
constexpr Milligrams kQuarter = 4;
constexpr Milligrams kHighResolution = 10;
constexpr Milligrams kWanderingDivisions = 2;  // to both sides, of an unstable scale

ScaleConfig validated(ScaleConfig config) {
  validate(config);
  return config;
}

}  // namespace

Scale::Scale(ScaleConfig config, Milligrams load)
    : config_(validated(std::move(config))),
      settling_(load, config_.timeConstant, config_.holdTime) {}

// The reading has settled when no more than a quarter of a division is left to go. The finest
// division serves for all ranges, so that the high-resolution weight stands still as well.
Milligrams Scale::band() const { return std::max<Milligrams>(1, config_.divisionAt(0) / kQuarter); }

void Scale::setLoad(Milligrams load, TimePoint now) { settling_.approach(load, band(), now); }

void Scale::unplug() {
  pluggedIn_ = false;
  zero_ = 0;
  setTare(0, TareKind::None);
}

void Scale::plug(TimePoint now) {
  if (pluggedIn_) return;
  pluggedIn_ = true;
  settling_.restart(0, band(), now);
}

void Scale::setSettling(Seconds duration, TimePoint now) {
  ScaleConfig config = config_;
  sim::setSettling(config, duration);
  validate(config);
  config_ = std::move(config);
  settling_.setTimes(config_.timeConstant, config_.holdTime, band(), now);
}

Seconds Scale::settling() const { return settlingOf(config_); }

// The weight on the display for a reading of the load cell, without the tare.
Milligrams Scale::shown(Milligrams reading) const {
  return roundTo(reading - zero_, config_.divisionAt(reading - zero_));
}

Scale::Reading Scale::readingAt(TimePoint now) const {
  const Milligrams load = settling_.reading(now);
  const Milligrams division = config_.divisionAt(load - zero_);
  const Milligrams wandering = unstable_ ? kWanderingDivisions * division : 0;
  const bool isFiltered = wandering == 0 && shown(load - noise_) == shown(load + noise_);
  if (isFiltered) return {load, settling_.isStable(now)};
  return {load + flickerAt(now, std::max(noise_, wandering)), false};
}

ResultCode Scale::condition() const {
  if (!pluggedIn_) return ResultCode::LcNotConnected;
  return invalid_ ? ResultCode::InvalidWeight : ResultCode::Ok;
}

ResultCode Scale::stateAt(Milligrams gross, bool stable) const {
  if (const ResultCode code = condition(); code != ResultCode::Ok) return code;
  if (gross < -kUnderLoadDivisions * config_.ranges.front().division) return ResultCode::UnderLoad;
  if (gross > config_.max() + kOverLoadDivisions * config_.ranges.back().division) {
    return ResultCode::OverLoad;
  }
  return stable ? ResultCode::Ok : ResultCode::WeightNotStable;
}

Weight Scale::weigh(TimePoint now) const {
  const Reading reading = readingAt(now);
  const Milligrams load = reading.load - zero_;
  const Milligrams division = config_.divisionAt(load);
  const Milligrams tenth = division / kHighResolution;
  Weight weight;
  weight.stable = reading.stable;
  weight.result = stateAt(load, weight.stable);
  weight.gross = roundTo(load, division);
  // The tare comes off the gross weight as shown, so that gross, net and tare agree on the display
  // and the net weight is exactly zero after the tare key.
  weight.net = roundTo(weight.gross - tare_, division);
  weight.highResNet = roundTo(roundTo(load, tenth) - tare_, tenth);
  weight.tare = tare_;
  weight.tareKind = tareKind_;
  weight.zero = std::abs(load) * kQuarter <= config_.divisionAt(0);
  return weight;
}

ResultCode Scale::setZero(TimePoint now) {
  if (const ResultCode code = condition(); code != ResultCode::Ok) return code;
  const Reading reading = readingAt(now);
  if (!reading.stable) return ResultCode::WeightNotStable;
  if (std::abs(reading.load) > config_.max() / kZeroRangeFraction) {
    const ResultCode state = stateAt(reading.load - zero_, true);
    return state == ResultCode::Ok ? ResultCode::CommandReturnFail : state;
  }
  zero_ = reading.load;
  return ResultCode::Ok;
}

ResultCode Scale::tareByKey(TimePoint now) {
  const Weight weight = weigh(now);
  if (weight.result != ResultCode::Ok) return weight.result;
  if (weight.gross < 0) return ResultCode::UnderLoad;
  if (weight.gross > config_.maxTare) return ResultCode::CommandReturnFail;
  setTare(weight.gross, TareKind::ByKey);
  return ResultCode::Ok;
}

ResultCode Scale::presetTare(Milligrams tare) {
  if (const ResultCode code = condition(); code != ResultCode::Ok) return code;
  if (tare < 0 || tare > config_.maxPreTare) return ResultCode::InvalidParam;
  setTare(roundTo(tare, config_.divisionAt(tare)), TareKind::Preset);
  return ResultCode::Ok;
}

ResultCode Scale::clearTare() {
  if (const ResultCode code = condition(); code != ResultCode::Ok) return code;
  setTare(0, TareKind::None);
  return ResultCode::Ok;
}

void Scale::setTare(Milligrams tare, TareKind kind) {
  tare_ = tare;
  tareKind_ = tare == 0 ? TareKind::None : kind;
}

}  // namespace tolvex::sim
