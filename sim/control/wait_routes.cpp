// Waiting for what clients of the service do.
#include <algorithm>
#include <set>

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
constexpr double kMostNumber = 1e15;

WaitingRoom::Wish wishOf(Call& call) {
  WaitingRoom::Wish wish;
  wish.timeout = std::chrono::duration_cast<std::chrono::milliseconds>(
      Seconds(numberOr(call, "timeout_s", kDefaultTimeout)));
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

// Which jobs count: with `after`, those with a larger number; without it, those that are not
// finished yet.
std::function<bool(const Job&)> jobWanted(Call& call) {
  const JobLog& jobs = call.simulation.devices.printers.jobs();
  const std::string printer = textOr(call, "printer", "");
  if (!printer.empty()) printerNamed(call.simulation.devices.printers, printer);
  const double after = numberOr(call, "after", jobs.nextNumber() - 1);
  std::set<int> open;
  if (call.query.count("after") == 0) {
    for (const auto& job : jobs.jobs()) {
      if (!job->isFinished()) open.insert(job->number());
    }
  }
  return [printer, after, open](const Job& job) {
    return job.isFinished() && (job.number() > after || open.count(job.number()) > 0) &&
           (printer.empty() || job.printer() == printer);
  };
}

Answer waitForJob(Call& call) {
  refuse(call, "job", {"command", "port"});
  WaitingRoom::Wish wish = wishOf(call);
  wish.job = jobWanted(call);
  const auto& jobs = call.simulation.devices.printers.jobs().jobs();
  const auto found =
      std::find_if(jobs.begin(), jobs.end(), [&](const auto& job) { return wish.job(*job); });
  if (found != jobs.end()) return jsonResponse({{"job", jobView(**found, call.diary)}});
  call.waitingRoom.wait(std::move(wish));
  return std::nullopt;
}

Answer waitForRequest(Call& call) {
  refuse(call, "request", {"printer"});
  const TrafficLog& traffic = call.simulation.traffic;
  WaitingRoom::Wish wish = wishOf(call);
  const double after = numberOr(call, "after", static_cast<double>(traffic.newest()));
  wish.exchange = [after, filter = filterOf(call)](const TrafficEntry& entry) {
    return static_cast<double>(entry.number) > after && entry.outcome != Outcome::Pending &&
           matches(filter, entry);
  };
  const auto found =
      std::find_if(traffic.entries().begin(), traffic.entries().end(), wish.exchange);
  if (found != traffic.entries().end()) return jsonResponse({{"exchange", exchangeView(*found)}});
  call.waitingRoom.wait(std::move(wish));
  return std::nullopt;
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
                               numberField("after", 0, kMostNumber),
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
