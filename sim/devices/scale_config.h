// What kind of scale is simulated: capacity, divisions, limits, and how quickly it settles.
#pragma once

#include <string>
#include <vector>

#include "base/clock.h"
#include "devices/mass.h"

namespace tolvex::sim {

/// One weighing range: loads up to `max` are shown in steps of `division`.
struct WeighingRange {
  Milligrams max = 0;
  Milligrams division = 0;
};

/// The defaults describe a shop scale of 3/6/15 kg with divisions of 1/2/5 g.
struct ScaleConfig {
  /// One to three ranges, the smallest first.
  std::vector<WeighingRange> ranges = {{kilograms(3), kilograms(0.001)},
                                       {kilograms(6), kilograms(0.002)},
                                       {kilograms(15), kilograms(0.005)}};
  /// Smallest load that the scale may be used for in trade; reported, not enforced.
  Milligrams minRange = kilograms(0.02);
  /// Largest tare that the tare key takes.
  Milligrams maxTare = kilograms(6);
  /// Largest tare that can be entered as a number.
  Milligrams maxPreTare = kilograms(3);
  /// Unit as replies show it, 1 to 4 printable ASCII characters. Masses are kilograms whatever it
  /// says.
  std::string unit = "kg";
  /// Version that the scale reports about itself, 1 to 64 printable ASCII characters.
  std::string systemVersion = "SIM 1.0";
  /// Time constant of the first-order settling towards a new load; 0 jumps.
  Seconds timeConstant{1.0 / 12};
  /// How long the reading must have stayed close to its final value before it counts as stable.
  Seconds holdTime{0.3};

  /// The capacity: the end of the last range.
  Milligrams max() const { return ranges.back().max; }
  /// The division that loads of this size are shown with.
  Milligrams divisionAt(Milligrams gross) const;
  /// Decimals of every weight text: those of the finest division.
  int decimals() const;
};

/// Makes a load of 1 kg stable after about `duration` (>= 0; 0: every load at once), sharing the
/// time between settling and holding in the proportion that the defaults have for one second.
void setSettling(ScaleConfig& config, Seconds duration);

/// The duration for which setSettling() gives this configuration its times; about that if it has
/// other times than setSettling() gives.
Seconds settlingOf(const ScaleConfig& config);

/// Throws std::invalid_argument with a message that names the wrong value, unless `config`
/// describes a scale that can exist.
void validate(const ScaleConfig& config);

}  // namespace tolvex::sim
