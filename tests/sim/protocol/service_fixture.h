// A service with its devices behind it, whose time the test moves.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "devices/devices.h"
#include "protocol/service.h"

namespace tolvex::sim {

class ServiceFixture : public ::testing::Test {
 protected:
  /// The reply to a request on the weighing port.
  std::string weighing(std::string_view request) {
    return service_.answer(Half::Weighing, request, now_).json();
  }

  /// The reply to a request on the printing port.
  std::string printing(std::string_view request) {
    return service_.answer(Half::Printing, request, now_).json();
  }

  /// Puts a load on the scale and gives it the time to settle.
  void settle(double kg) {
    scale_.setLoad(kilograms(kg), now_);
    now_ += std::chrono::seconds(10);
  }

  TimePoint now_{std::chrono::hours(1)};
  Devices devices_;
  Scale& scale_{devices_.scale};
  /// The pictures that can be printed, by the names of their files.
  std::map<std::string, Bitmap> pictures_;
  Service service_{devices_, [this](const std::string& fileName) -> std::optional<Bitmap> {
                     const auto found = pictures_.find(fileName);
                     if (found == pictures_.end()) return std::nullopt;
                     return found->second;
                   }};
};

}  // namespace tolvex::sim
