#include "scenario/run_limits.h"

#include <algorithm>
#include <iterator>

#include "base/integer.h"

namespace tolvex::sim {

namespace {

using std::chrono::milliseconds;

constexpr std::int64_t kMostCounted = 1'000'000'000;
constexpr milliseconds kMaxTime = std::chrono::hours(24);

enum class Kind { Time, Jobs, Requests };

struct Unit {
  std::string_view name;
  Kind kind;
  std::int64_t factor;  // of a time, in milliseconds
};

constexpr Unit kUnits[] = {
    {"ms", Kind::Time, 1},           {"s", Kind::Time, 1000}, {"m", Kind::Time, 60'000},
    {"job", Kind::Jobs, 1},          {"jobs", Kind::Jobs, 1}, {"request", Kind::Requests, 1},
    {"requests", Kind::Requests, 1},
};

// Only once of each kind.
template <typename T>
bool setOnce(std::optional<T>& limit, T value, T most) {
  if (limit || value > most) return false;
  limit = value;
  return true;
}

bool addLimit(std::string_view text, RunLimits& limits) {
  const auto digits = std::min(text.find_first_not_of("0123456789"), text.size());
  const auto number = parseInteger(text.substr(0, digits));
  const auto* const unit =
      std::find_if(std::begin(kUnits), std::end(kUnits),
                   [&](const Unit& candidate) { return candidate.name == text.substr(digits); });
  if (!number || *number < 1 || unit == std::end(kUnits)) return false;
  switch (unit->kind) {
    case Kind::Time:
      return setOnce(limits.time, milliseconds(*number * unit->factor), kMaxTime);
    case Kind::Jobs:
      return setOnce(limits.jobs, std::int64_t{*number}, kMostCounted);
    case Kind::Requests:
      break;
  }
  return setOnce(limits.requests, std::int64_t{*number}, kMostCounted);
}

}  // namespace

std::optional<RunLimits> parseRunLimits(std::string_view text) {
  RunLimits limits;
  while (true) {
    const auto comma = std::min(text.find(','), text.size());
    if (!addLimit(text.substr(0, comma), limits)) return std::nullopt;
    if (comma == text.size()) return limits;
    text.remove_prefix(comma + 1);
  }
}

}  // namespace tolvex::sim
