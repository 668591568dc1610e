// How a reading follows the load: a first-order approach that ends in a standstill.
#pragma once

#include "base/clock.h"
#include "devices/mass.h"

namespace tolvex::sim {

/// The reading is computed from the moment of the last change, not stepped, so that any number of
/// reads at any times sees the same curve. Not thread-safe.
class Settling {
 public:
  /// Starts at a standstill on `value`. Both times are >= 0; see ScaleConfig.
  Settling(Milligrams value, Seconds timeConstant, Seconds holdTime);

  /// From `now` on the reading approaches `target`. It counts as stable once it has stayed within
  /// `band` (> 0) of the target for the hold time. A change that keeps a stable reading within the
  /// band leaves it stable. The same target again changes nothing.
  void approach(Milligrams target, Milligrams band, TimePoint now);

  /// Starts again from `value`, unstable until it has settled on the present target.
  void restart(Milligrams value, Milligrams band, TimePoint now);

  /// Other times from `now` on. A reading that moves goes on from where it is, as after restart().
  void setTimes(Seconds timeConstant, Seconds holdTime, Milligrams band, TimePoint now);

  /// The reading; exactly the target once stable, as a scale freezes its display at a standstill.
  Milligrams reading(TimePoint now) const;
  bool isStable(TimePoint now) const { return now >= stableAt_; }
  Milligrams target() const { return target_; }

 private:
  void startFrom(Milligrams value, Milligrams band, TimePoint now);

  Seconds timeConstant_;
  Seconds holdTime_;
  Milligrams start_;
  Milligrams target_;
  TimePoint changedAt_ = TimePoint::min();
  TimePoint stableAt_ = TimePoint::min();
};

}  // namespace tolvex::sim
