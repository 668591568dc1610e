#include "devices/devices.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvex::sim {
namespace {

constexpr TimePoint kNow{std::chrono::hours(1)};

TEST(Devices, AreRestoredAsTheyWere) {
  const ScaleConfig config;
  Devices devices(config, kilograms(1));
  Printer& label = *devices.printers.findName("Label");
  int told = 0;
  devices.printers.jobs().listen([&told](const Job& /*job*/) { ++told; });
  devices.scale.presetTare(kilograms(0.1));
  devices.scale.setUnstable(true);
  devices.drawer.open();
  label.set(Setting::LeftMargin, 8);
  label.setFault(PrinterFault::Busy, true);
  label.loadPaper(5000, LabelStock{StockKind::Mark, 400, 16, 3});
  label.setFault(PrinterFault::Busy, false);
  label.printText("a", 24);

  devices.restore(config, kilograms(0.5));
  EXPECT_EQ(devices.scale.weigh(kNow).net, kilograms(0.5));
  EXPECT_EQ(devices.scale.weigh(kNow).result, ResultCode::Ok);
  EXPECT_FALSE(devices.drawer.isOpen());
  EXPECT_EQ(devices.drawer.openings(), 0);
  EXPECT_EQ(devices.printers.findName("Label"), &label);
  EXPECT_EQ(label.settings()[Setting::LeftMargin], 0);
  EXPECT_EQ(label.paperLeft(), std::nullopt);
  EXPECT_EQ(*label.stock(), (LabelStock{StockKind::Gap, 320, 24, 0}));
  EXPECT_EQ(label.job(), nullptr);
  EXPECT_TRUE(devices.printers.jobs().jobs().empty());

  told = 0;
  label.printText("b", 24);
  EXPECT_EQ(label.job()->number(), 1);
  EXPECT_EQ(told, 1);
}

TEST(Devices, KeepTheirStateWhenTheScaleIsImpossible) {
  Devices devices;
  devices.drawer.open();
  ScaleConfig config;
  config.unit = "";
  EXPECT_THROW(devices.restore(config, 0), std::invalid_argument);
  EXPECT_TRUE(devices.drawer.isOpen());
}

}  // namespace
}  // namespace tolvex::sim
