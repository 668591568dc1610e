// Everything that the service drives.
#pragma once

#include <utility>

#include "devices/cash_drawer.h"
#include "devices/printers.h"
#include "devices/scale.h"

namespace tolvex::sim {

/// Not thread-safe; whoever owns them serialises the calls.
struct Devices {
  /// The arguments are those of the scale.
  explicit Devices(ScaleConfig config = {}, Milligrams load = 0) : scale(std::move(config), load) {}

  Scale scale;
  Printers printers;
  CashDrawer drawer;
};

}  // namespace tolvex::sim
