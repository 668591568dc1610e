// What went over the wire.
#include "control/route.h"
#include "control/traffic_listing.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

using Answer = std::optional<HttpResponse>;

constexpr double kLastJob = 1e9;

Answer listTraffic(Call& call) {
  TrafficFilter filter = filterOf(call);
  if (call.query.count("job") > 0) filter.job = static_cast<int>(numberOr(call, "job", 0));
  return jsonResponse(trafficListing(call.simulation.traffic, filter, rangeOf(call)));
}

Answer getExchange(Call& call) {
  const TrafficEntry* entry = call.simulation.traffic.find(numberIn(call, "exchange"));
  if (entry != nullptr) return jsonResponse(exchangeView(*entry));
  throw unknownNumber("exchange", call.names.at(0), "GET /api/traffic lists the latest ones.");
}

Answer clearTraffic(Call& call) {
  call.simulation.traffic.clear();
  return jsonResponse(trafficView(call.simulation.traffic));
}

std::vector<Field> listingFields() {
  std::vector<Field> fields = rangeFields();
  for (const Field& field : filterFields()) fields.push_back(field);
  fields.push_back(numberField("job", 1, kLastJob));
  return fields;
}

}  // namespace

const RouteTable& trafficRoutes() {
  static const RouteTable table = {
      {"GET", "/api/traffic", "requests and replies", Body::None, listingFields(), listTraffic},
      {"DELETE", "/api/traffic", "forgets them", Body::None, {}, clearTraffic},
      {"GET", "/api/traffic/{n}", "one request and its reply", Body::None, {}, getExchange},
  };
  return table;
}

}  // namespace tolvex::sim
