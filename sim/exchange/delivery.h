// How a reply goes out.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/clock.h"

namespace tolvex::sim {

/// What becomes of a connection after a reply, or instead of one.
enum class After { Keep, Close, Reset };

/// What a connection has to do about one request, in the order of the members.
struct Delivery {
  /// Waits.
  std::chrono::milliseconds delay{0};
  /// Sends this, byte for byte, as a segment of its own; nothing if it is empty.
  std::string reply;
  /// If this is not 0: sends so many bytes of the reply (it has more), then waits for `pause`, then
  /// sends the rest.
  std::size_t firstPiece = 0;
  std::chrono::milliseconds pause{0};
  After after = After::Keep;

  /// When the request was complete, and under which number the traffic log knows the exchange. The
  /// numbers began again as often as `restarts` says.
  TimePoint began;
  std::uint64_t number = 0;
  std::uint64_t restarts = 0;
};

}  // namespace tolvex::sim
