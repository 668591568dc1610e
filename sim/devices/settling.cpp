#include "devices/settling.h"

#include <cmath>
#include <cstdlib>

namespace tolvex::sim {

Settling::Settling(Milligrams value, Seconds timeConstant, Seconds holdTime)
    : timeConstant_(timeConstant), holdTime_(holdTime), start_(value), target_(value) {}

void Settling::approach(Milligrams target, Milligrams band, TimePoint now) {
  if (target == target_) return;
  const bool wasStable = isStable(now);
  const Milligrams from = reading(now);
  target_ = target;
  if (wasStable && std::abs(from - target) <= band) return;
  startFrom(from, band, now);
}

void Settling::restart(Milligrams value, Milligrams band, TimePoint now) {
  startFrom(value, band, now);
}

void Settling::setTimes(Seconds timeConstant, Seconds holdTime, Milligrams band, TimePoint now) {
  const bool wasStable = isStable(now);
  const Milligrams from = reading(now);
  timeConstant_ = timeConstant;
  holdTime_ = holdTime;
  if (!wasStable) startFrom(from, band, now);
}

void Settling::startFrom(Milligrams value, Milligrams band, TimePoint now) {
  start_ = value;
  changedAt_ = now;
  Seconds untilClose{0};
  const double distance = static_cast<double>(std::abs(value - target_));
  if (distance > static_cast<double>(band)) {
    untilClose = timeConstant_ * std::log(distance / static_cast<double>(band));
  }
  stableAt_ = now + std::chrono::duration_cast<Clock::duration>(untilClose + holdTime_);
}

Milligrams Settling::reading(TimePoint now) const {
  if (isStable(now) || timeConstant_ == Seconds::zero()) return target_;
  const double elapsed = Seconds(now - changedAt_) / timeConstant_;
  const double distance = static_cast<double>(start_ - target_) * std::exp(-elapsed);
  return target_ + std::llround(distance);
}

}  // namespace tolvex::sim
