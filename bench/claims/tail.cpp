// How much longer than usual the slowest calls take.
#include <stdexcept>

#include "claims/claims.h"
#include "claims/warm_call.h"

namespace bench {
namespace {

constexpr double kSlowest = 0.99;

double slownessOf(const std::vector<double>& times) {
  return quantile(times, kSlowest) / quantile(times, 0.5);
}

}  // namespace

Figure tail(const Setting& setting, Logging logging) {
  const StateFolder state(logging);
  const WarmCall warm(setting, kWeightReply);
  const std::uint64_t logged = state.logSize();
  const Paired paired = measurePairs(
      setting.pairs, 1, [&] { warm.call(); }, [&] { warm.bare(); });
  if ((state.logSize() != logged) != (logging == Logging::kDefault)) {
    throw std::runtime_error("the log is not as said");
  }
  const double value = slownessOf(paired.a) / slownessOf(paired.b);
  return {value,
          value,
          value,
          {{"library_median_us", quantile(paired.a, 0.5)},
           {"library_p99_us", quantile(paired.a, kSlowest)},
           {"library_p999_us", quantile(paired.a, 0.999)},
           {"bare_median_us", quantile(paired.b, 0.5)},
           {"bare_p99_us", quantile(paired.b, kSlowest)},
           {"bare_p999_us", quantile(paired.b, 0.999)}}};
}

}  // namespace bench
