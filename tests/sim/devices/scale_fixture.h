// A scale whose time the test moves, and short words for what the tests do with it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "devices/scale.h"

namespace tolvex::sim {

class ScaleFixture : public ::testing::Test {
 protected:
  /// Puts a load on the scale and gives it no time.
  void put(double kg) { scale_.setLoad(kilograms(kg), now_); }

  void pass(double seconds) {
    now_ += std::chrono::duration_cast<Clock::duration>(Seconds(seconds));
  }

  /// Puts a load on the scale and waits until it is stable.
  void settle(double kg) {
    put(kg);
    pass(10);
  }

  Weight weigh() const { return scale_.weigh(now_); }
  ResultCode result() const { return weigh().result; }
  ResultCode zero() { return scale_.setZero(now_); }
  ResultCode tare() { return scale_.tareByKey(now_); }

  std::string net() const { return formatKilograms(weigh().net, 3); }
  std::string gross() const { return formatKilograms(weigh().gross, 3); }
  std::string shownTare() const { return formatKilograms(weigh().tare, 3); }
  std::string highResNet() const { return formatKilograms(weigh().highResNet, 4); }

  TimePoint now_{std::chrono::hours(1)};
  Scale scale_{ScaleConfig()};
};

}  // namespace tolvex::sim
