#include "control/traffic_listing.h"

#include "control/views.h"

namespace tolvex::sim {

namespace {

constexpr double kShownByDefault = 100;
constexpr double kMostShown = 1000;
constexpr double kLastExchange = 1e15;
constexpr double kMostCommandBytes = TrafficLog::kMaxCommandBytes;
// Of requests and replies, before they are written as JSON.
constexpr std::size_t kMaxBytes = std::size_t{4} * 1024 * 1024;

std::size_t bytesOfExchange(const TrafficEntry& entry) {
  return entry.request.size() + entry.reply.size();
}

}  // namespace

bool matches(const TrafficFilter& filter, const TrafficEntry& entry) {
  return (!filter.job || *filter.job == entry.job) &&
         (!filter.command || *filter.command == entry.command) &&
         (!filter.half || *filter.half == entry.half);
}

Json trafficListing(const TrafficLog& traffic, const TrafficFilter& filter,
                    const ListingRange& range) {
  const auto isWanted = [&](const TrafficEntry& entry) {
    return entry.number > range.after.value_or(0) && matches(filter, entry);
  };
  const auto listing = listingOf(traffic.entries(), range, kMaxBytes, isWanted, bytesOfExchange);
  Json views = Json::array();
  for (const TrafficEntry* entry : listing.items) views.push_back(exchangeView(*entry));
  return {{"exchanges", views}, {"more", listing.more}};
}

std::vector<Field> rangeFields() {
  return {numberField("after", 0, kLastExchange), numberField("limit", 1, kMostShown)};
}

ListingRange rangeOf(const Call& call) {
  ListingRange range;
  if (call.query.count("after") > 0) {
    range.after = static_cast<std::uint64_t>(numberOr(call, "after", 0));
  }
  range.limit = static_cast<std::size_t>(numberOr(call, "limit", kShownByDefault));
  return range;
}

std::vector<Field> filterFields() {
  return {{"command", FieldType::Text, "getweight", 1, kMostCommandBytes},
          {"port", FieldType::Choice, "printing", 0, 0, {"weighing", "printing"}}};
}

TrafficFilter filterOf(const Call& call) {
  TrafficFilter filter;
  if (const auto found = call.query.find("command"); found != call.query.end()) {
    filter.command = found->second.get<std::string>();
  }
  if (const auto found = call.query.find("port"); found != call.query.end()) {
    filter.half = found->second == "weighing" ? Half::Weighing : Half::Printing;
  }
  return filter;
}

}  // namespace tolvex::sim
