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

  /// As constructed with these arguments; job numbers begin again. Whoever listens to the jobs goes
  /// on to do so. Throws, with nothing changed, as the constructor does.
  void restore(ScaleConfig config, Milligrams load);

  Scale scale;
  Printers printers;
  CashDrawer drawer;
};

}  // namespace tolvex::sim
