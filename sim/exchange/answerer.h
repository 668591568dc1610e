// Where replies come from.
#pragma once

#include <string>
#include <string_view>

#include "base/clock.h"
#include "base/half.h"

namespace tolvex::sim {

/// Answers requests: the service does it from its devices, a recorded session from memory. Not
/// thread-safe.
class Answerer {
 public:
  virtual ~Answerer() = default;

  /// The reply to one request that came to the port of `half`, byte for byte as it is to be sent;
  /// never empty. `request` is the text of a JSON object as received, or, of bytes that belong to
  /// none, the first ones.
  virtual std::string answer(Half half, std::string_view request, TimePoint now) = 0;
};

}  // namespace tolvex::sim
