// Jobs, exchanges and the whole state as JSON.
#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <variant>

#include "base/version.h"
#include "control/iso_time.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

const char* nameOf(JobEnd end) {
  switch (end) {
    case JobEnd::Cut:
      return "cut";
    case JobEnd::Torn:
      return "torn";
    case JobEnd::Open:
      break;
  }
  return "open";
}

template <typename Item>
std::size_t countOf(const Paper& paper) {
  return static_cast<std::size_t>(
      std::count_if(paper.items().begin(), paper.items().end(),
                    [](const PaperItem& item) { return std::holds_alternative<Item>(item); }));
}

// Whole millimetres, as the program announces a job.
int lengthOf(const Paper& paper) { return (paper.length() + kDotsPerMm - 1) / kDotsPerMm; }

double millisecondsOf(std::chrono::microseconds duration) {
  constexpr double kPerMillisecond = 1000;
  return static_cast<double>(duration.count()) / kPerMillisecond;
}

Json resultText(const std::optional<std::int64_t>& result) {
  if (!result) return nullptr;
  return message(static_cast<ResultCode>(*result));
}

Json portsView(const Ports& ports) {
  return {{"address", ports.address},
          {"weighing", ports.weighing},
          {"printing", ports.printing},
          {"web_address", ports.webAddress},
          {"web", ports.web}};
}

Json lastErrorOf(const TrafficLog& traffic) {
  const TrafficEntry* entry = traffic.find(traffic.lastError());
  return entry == nullptr ? Json() : Json(entry->number);
}

}  // namespace

Json jobsView(const JobLog& jobs) {
  const int newest = jobs.nextNumber() - 1;
  return {{"oldest", jobs.jobs().empty() ? newest + 1 : jobs.jobs().front()->number()},
          {"newest", newest},
          {"count", jobs.jobs().size()}};
}

Json jobView(const Job& job, const JobDiary& diary) {
  const JobDiary::Times times = diary.timesOf(job);
  return {{"number", job.number()},
          {"printer", job.printer()},
          {"finished", job.isFinished()},
          {"length_mm", lengthOf(job.paper())},
          {"end", nameOf(job.end())},
          {"continues", job.continues()},
          {"revision", job.revision()},
          {"began_at", isoTime(times.began)},
          {"changed_at", isoTime(times.changed)},
          {"lines", countOf<TextItem>(job.paper())},
          {"images", countOf<ImageItem>(job.paper())}};
}

Json exchangeView(const TrafficEntry& entry) {
  return {{"number", entry.number},
          {"port", name(entry.half)},
          {"connection", entry.connection},
          {"client", entry.client},
          {"time", isoTime(entry.time)},
          {"duration_ms", plainNumber(millisecondsOf(entry.duration))},
          {"request", entry.request},
          {"reply", entry.reply},
          {"request_bytes", entry.requestBytes},
          {"reply_bytes", entry.replyBytes},
          {"command", entry.command},
          {"known", entry.known},
          {"result", entry.result ? Json(*entry.result) : Json()},
          {"result_text", resultText(entry.result)},
          {"job", entry.job == 0 ? Json() : Json(entry.job)},
          {"outcome", name(entry.outcome)},
          {"faults", entry.faults}};
}

Json trafficView(const TrafficLog& traffic) {
  const std::optional<WallTime> lastRequest = traffic.lastRequest();
  return {{"oldest", traffic.oldest()},
          {"newest", traffic.newest()},
          {"connections",
           {{"weighing", traffic.connections(Half::Weighing)},
            {"printing", traffic.connections(Half::Printing)}}},
          {"last_client", traffic.lastClient().empty() ? Json() : Json(traffic.lastClient())},
          {"last_request_at", lastRequest ? Json(isoTime(*lastRequest)) : Json()},
          {"last_error", lastErrorOf(traffic)}};
}

Json stateView(const Simulation& simulation, TimePoint now) {
  return {{"version", version()},
          {"started_at", isoTime(simulation.started)},
          {"epoch", simulation.epoch},
          {"ports", portsView(simulation.ports)},
          {"scale", scaleView(simulation.devices.scale, now)},
          {"printers", printersView(simulation.devices.printers)},
          {"drawer", drawerView(simulation.devices.drawer)},
          {"faults", rulesView(simulation.faults)},
          {"jobs", jobsView(simulation.devices.printers.jobs())},
          {"traffic", trafficView(simulation.traffic)}};
}

}  // namespace tolvex::sim
