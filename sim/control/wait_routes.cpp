// Waiting for what clients of the service do.

#include "control/printer_lookup.h"
#include "control/route.h"
#include "control/traffic_listing.h"
#include "control/views.h"
#include "control/waiting_room.h"

namespace tolvex::sim {

namespace {

using Answer = std::optional<HttpResponse>;

constexpr double kDefaultTimeout = 30;
constexpr double kLongestTimeout = 600;
constexpr double kLastKnown = 1e15;

WaitingRoom::Wish wishOf(Call& call) {
  WaitingRoom::Wish wish;
  wish.timeout = std::chrono::duration_cast<std::chrono::milliseconds>(
      Seconds(numberOr(call, "timeout_s", kDefaultTimeout)));
  if (call.query.count("after") > 0) {
    wish.after = static_cast<std::uint64_t>(numberOr(call, "after", 0));
  }
  wish.respond = call.respond;
  wish.clientLeft = call.clientLeft;
  return wish;
}

ControlError pointless(const std::string& name, const std::string& event) {
  return badRequest(name + " means nothing for event=" + event, "Leave it out.");
}

void refuse(const Call& call, const std::string& event, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (call.query.count(name) > 0) throw pointless(name, event);
  }
}

Answer waitForJob(Call& call) {
  refuse(call, "job", {"command", "port"});
  const std::string printer = textOr(call, "printer", "");
  if (!printer.empty()) printerNamed(call.simulation.devices.printers, printer);
  WaitingRoom::Wish wish = wishOf(call);
  wish.job = [printer](const Job& job) { return printer.empty() || job.printer() == printer; };
  return call.waitingRoom.wait(std::move(wish));
}

Answer waitForRequest(Call& call) {
  refuse(call, "request", {"printer"});
  WaitingRoom::Wish wish = wishOf(call);
  wish.exchange = [filter = filterOf(call)](const TrafficEntry& entry) {
    return matches(filter, entry);
  };
  return call.waitingRoom.wait(std::move(wish));
}

const Field& eventField() {
  static const Field field{"event", FieldType::Choice, "job", 0, 0, {"job", "request"}};
  return field;
}

Answer wait(Call& call) {
  const std::string event = textOr(call, "event", "");
  if (event.empty()) {
    throw badRequest("it is not said what to wait for",
                     "Say it with ?event=job or ?event=request.");
  }
  return event == "job" ? waitForJob(call) : waitForRequest(call);
}

std::vector<Field> waitFields() {
  std::vector<Field> fields = {eventField(),
                               numberField("after", 0, kLastKnown),
                               {"timeout_s", FieldType::Number, "30", 0, kLongestTimeout},
                               {"printer", FieldType::Text, "Ticket", 1, 100}};
  for (const Field& field : filterFields()) fields.push_back(field);
  return fields;
}

}  // namespace

const RouteTable& waitRoutes() {
  static const RouteTable table = {
      {"GET", "/api/wait", "waits for the next finished job or request", Body::None, waitFields(),
       wait},
  };
  return table;
}

}  // namespace tolvex::sim
