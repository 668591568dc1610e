// Many measurements of one thing in a few figures.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

namespace bench::scale {

// {"least", "lower", "median", "upper", "most"}: lower and upper are the quartiles.
nlohmann::json spread(const std::vector<double>& values);

// Microseconds of a clock that never goes back.
double now();

}  // namespace bench::scale
