#include "devices/devices.h"

namespace tolvex::sim {

void Devices::restore(ScaleConfig config, Milligrams load) {
  scale = Scale(std::move(config), load);
  printers.restore();
  drawer = CashDrawer();
}

}  // namespace tolvex::sim
