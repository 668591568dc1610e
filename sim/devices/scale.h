// The simulated scale: what lies on it, what it shows, and what its keys do.
#pragma once

#include "base/clock.h"
#include "base/result_code.h"
#include "devices/mass.h"
#include "devices/scale_config.h"
#include "devices/settling.h"

namespace tolvex::sim {

enum class TareKind { None, ByKey, Preset };

/// One look at the scale. All masses are rounded as the scale shows them.
struct Weight {
  /// Ok, WeightNotStable, UnderLoad, OverLoad, InvalidWeight or LcNotConnected.
  ResultCode result = ResultCode::Ok;
  Milligrams gross = 0;
  Milligrams net = 0;
  Milligrams tare = 0;
  /// The net weight in tenths of the division.
  Milligrams highResNet = 0;
  TareKind tareKind = TareKind::None;
  bool stable = false;
  /// The zero lamp: the gross weight is within a quarter of a division of zero.
  bool zero = false;
};

/// A scale of one to three ranges. It has no clock: every operation that depends on the time takes
/// it as `now`, which never goes back. Not thread-safe; whoever owns it serialises the calls.
///
/// Keys answer Ok or the reason for the refusal, and a refused key changes nothing. The reasons
/// that stop every key: LcNotConnected while unplugged, InvalidWeight while faulty.
class Scale {
 public:
  /// The heaviest thing that can be put on the platform or, negated, pull it up.
  static constexpr Milligrams kMaxLoad = kilograms(1000);
  static constexpr Milligrams kMaxNoise = kilograms(1);

  /// `load` already lies on the platform, settled; zero is the empty platform. Throws
  /// std::invalid_argument for a configuration that validate() refuses.
  explicit Scale(ScaleConfig config, Milligrams load = 0);

  const ScaleConfig& config() const { return config_; }

  /// Puts `load` (within +-kMaxLoad) on the platform instead of what was there.
  void setLoad(Milligrams load, TimePoint now);
  Milligrams load() const { return settling_.target(); }

  /// While faulty the scale has no valid weight.
  void setInvalid(bool invalid) { invalid_ = invalid; }
  bool isInvalid() const { return invalid_; }

  /// Another fault: the reading wanders a little around the load, without one too, and is never
  /// stable.
  void setUnstable(bool unstable) { unstable_ = unstable; }
  bool isUnstable() const { return unstable_; }

  /// The reading flickers by up to +-`noise` (0 to kMaxNoise), anew every 100 ms. As long as that
  /// can not change the weight that is shown, the scale filters it out; otherwise the reading is
  /// never stable.
  void setNoise(Milligrams noise) { noise_ = noise; }
  Milligrams noise() const { return noise_; }

  /// Makes a load of 1 kg stable after about `duration` (0 to an hour) from now on, as
  /// setSettling() of a configuration does. A reading that moves goes on from where it is.
  void setSettling(Seconds duration, TimePoint now);
  Seconds settling() const;

  /// Takes the scale's power away. Its tare and zero are lost.
  void unplug();
  /// Gives the power back; the reading settles anew. Without effect on a plugged-in scale.
  void plug(TimePoint now);
  bool isPluggedIn() const { return pluggedIn_; }

  /// LcNotConnected while unplugged, InvalidWeight while faulty, otherwise Ok.
  ResultCode condition() const;

  /// What the scale shows at `now`. Every member is filled whatever the result.
  Weight weigh(TimePoint now) const;

  /// The zero key: the present load becomes zero. It must be stable (WeightNotStable) and lie
  /// within 2 % of the capacity around the empty platform; outside that the answer is UnderLoad,
  /// OverLoad, or CommandReturnFail for a load that is merely too heavy for zero. A tare stays.
  ResultCode setZero(TimePoint now);

  /// The tare key: the gross weight becomes the tare; at gross zero it clears the tare. Refuses a
  /// weight that is below zero (UnderLoad), above the capacity (OverLoad), unstable
  /// (WeightNotStable) or heavier than maxTare (CommandReturnFail).
  ResultCode tareByKey(TimePoint now);

  /// Enters a tare as a number, rounded to the division of its range; one that rounds to zero
  /// clears the tare. InvalidParam for a negative tare and one above maxPreTare.
  ResultCode presetTare(Milligrams tare);

  ResultCode clearTare();

  /// The tare as shown, 0 when there is none.
  Milligrams tare() const { return tare_; }

  void setOverloadAlarm(bool on) { overloadAlarm_ = on; }
  bool overloadAlarm() const { return overloadAlarm_; }

 private:
  /// What the load cell says, from the empty platform.
  struct Reading {
    Milligrams load;
    bool stable;
  };
  Reading readingAt(TimePoint now) const;
  Milligrams shown(Milligrams reading) const;
  Milligrams band() const;
  ResultCode stateAt(Milligrams gross, bool stable) const;
  void setTare(Milligrams tare, TareKind kind);

  ScaleConfig config_;
  Settling settling_;
  Milligrams zero_ = 0;
  Milligrams tare_ = 0;
  TareKind tareKind_ = TareKind::None;
  bool pluggedIn_ = true;
  Milligrams noise_ = 0;
  bool invalid_ = false;
  bool unstable_ = false;
  bool overloadAlarm_ = false;
};

}  // namespace tolvex::sim
