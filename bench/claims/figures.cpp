#include "claims/claims.h"

namespace bench {

Figure medianOf(const std::vector<double>& values) {
  return {quantile(values, 0.5), quantile(values, 0.25), quantile(values, 0.75), {}};
}

Figure ratioOf(const Paired& paired, const std::string& a, const std::string& b) {
  Figure figure = medianOf(paired.ratios);
  figure.details[a] = quantile(paired.a, 0.5);
  figure.details[b] = quantile(paired.b, 0.5);
  return figure;
}

}  // namespace bench
