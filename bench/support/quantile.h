// Reading many measurements.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace bench {

// The value that this part (0 to 1) of the values lies below; 0.5 is the median.
inline double quantile(std::vector<double> values, double part) {
  const auto at = static_cast<std::size_t>(part * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(at), values.end());
  return values[at];
}

}  // namespace bench
