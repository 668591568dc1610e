// A reading that does not stand still.
#pragma once

#include "base/clock.h"
#include "devices/mass.h"

namespace tolvex::sim {

/// What noise of up to +-`noise` (>= 0) adds to a reading: another value every 100 ms, spread
/// evenly. Depends on nothing but the arguments, so that any number of reads at a time agree.
Milligrams flickerAt(TimePoint now, Milligrams noise);

}  // namespace tolvex::sim
