#include "devices/cash_drawer.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(CashDrawer, IsClosedAtFirst) {
  const CashDrawer drawer;
  EXPECT_FALSE(drawer.isOpen());
  EXPECT_EQ(drawer.openings(), 0);
}

TEST(CashDrawer, StaysOpenUntilItIsClosed) {
  CashDrawer drawer;
  drawer.open();
  drawer.open();
  EXPECT_TRUE(drawer.isOpen());
  EXPECT_EQ(drawer.openings(), 2);
  drawer.close();
  EXPECT_FALSE(drawer.isOpen());
  EXPECT_EQ(drawer.openings(), 2);
}

}  // namespace
}  // namespace tolvex::sim
