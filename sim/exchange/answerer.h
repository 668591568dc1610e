// Where replies come from.
#pragma once

#include <string>
#include <string_view>

#include "base/clock.h"
#include "base/half.h"
#include "exchange/delivery.h"

namespace tolvex::sim {

/// Answers requests: the service does it from its devices, a recorded session from memory. Not
/// thread-safe.
class Answerer {
 public:
  struct Answer {
    /// Byte for byte as it is to be sent. Empty: there is no reply, and what `after` says comes
    /// instead.
    std::string reply;
    After after = After::Keep;
  };

  virtual ~Answerer() = default;

  /// The answer to one request that came to the port of `half`. `request` is the text of a JSON
  /// object as received, or, of bytes that belong to none, the first ones.
  virtual Answer answer(Half half, std::string_view request, TimePoint now) = 0;
};

}  // namespace tolvex::sim
