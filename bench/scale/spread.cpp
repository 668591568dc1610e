#include "scale/spread.h"

#include <chrono>

#include "support/quantile.h"

namespace bench::scale {

nlohmann::json spread(const std::vector<double>& values) {
  return {{"least", quantile(values, 0)},
          {"lower", quantile(values, 0.25)},
          {"median", quantile(values, 0.5)},
          {"upper", quantile(values, 0.75)},
          {"most", quantile(values, 1)}};
}

double now() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::micro>(time).count();
}

}  // namespace bench::scale
