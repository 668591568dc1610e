// Which exchanges are shown.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "control/listing.h"
#include "control/route.h"
#include "traffic/traffic_log.h"

namespace tolvex::sim {

/// Exchanges that somebody looks for; what is not set does not matter.
struct TrafficFilter {
  std::optional<int> job;
  std::optional<std::string> command;
  std::optional<Half> half;
};

bool matches(const TrafficFilter& filter, const TrafficEntry& entry);

/// {"exchanges": [...], "more": bool}, of bounded size.
Json trafficListing(const TrafficLog& traffic, const TrafficFilter& filter,
                    const ListingRange& range);

/// The parameters "after" and "limit", and what they say.
std::vector<Field> rangeFields();
ListingRange rangeOf(const Call& call);

/// The parameters "command" and "port", and what they say.
std::vector<Field> filterFields();
TrafficFilter filterOf(const Call& call);

}  // namespace tolvex::sim
