// The jobs and their paper.
#include <algorithm>
#include <memory>

#include "control/listing.h"
#include "control/paper_cache.h"
#include "control/printer_lookup.h"
#include "control/route.h"
#include "control/traffic_listing.h"
#include "control/views.h"
#include "devices/job_file_name.h"
#include "paper/render.h"

namespace tolvex::sim {

namespace {

using Answer = std::optional<HttpResponse>;

constexpr double kDefaultLimit = 100;

JobLog& jobsOf(Call& call) { return call.simulation.devices.printers.jobs(); }

std::shared_ptr<const Job> jobOf(Call& call) {
  const std::uint64_t number = numberIn(call, "job");
  const int newest = jobsOf(call).nextNumber() - 1;
  auto job = number <= static_cast<std::uint64_t>(newest)
                 ? jobsOf(call).find(static_cast<int>(number))
                 : nullptr;
  if (job) return job;
  throw unknownNumber("job", call.names.at(0), "GET /api/jobs lists those that are kept.");
}

Answer listJobs(Call& call) {
  const std::string printer = textOr(call, "printer", "");
  if (!printer.empty()) printerNamed(call.simulation.devices.printers, printer);
  const bool hasAfter = call.query.count("after") > 0;
  const double after = numberOr(call, "after", 0);
  const auto limit = static_cast<std::size_t>(numberOr(call, "limit", kDefaultLimit));
  std::vector<std::shared_ptr<const Job>> jobs;
  for (const auto& job : jobsOf(call).jobs()) {
    if (job->number() > after && (printer.empty() || job->printer() == printer))
      jobs.push_back(job);
  }
  const auto surplus = static_cast<std::ptrdiff_t>(jobs.size() - std::min(limit, jobs.size()));
  if (hasAfter) {
    jobs.erase(jobs.end() - surplus, jobs.end());
  } else {
    jobs.erase(jobs.begin(), jobs.begin() + surplus);
  }
  Json views = Json::array();
  for (const auto& job : jobs) views.push_back(jobView(*job, call.diary));
  return jsonResponse({{"jobs", views}});
}

Answer getJob(Call& call) { return jsonResponse(jobView(*jobOf(call), call.diary)); }

Answer clearJobs(Call& call) {
  jobsOf(call).clear();
  return jsonResponse(jobsView(jobsOf(call)));
}

HttpResponse paperResponse(const Call& call, const Job& job, std::string body,
                           const std::string& type, std::string_view suffix) {
  HttpResponse response;
  response.contentType = type;
  response.body = std::move(body);
  if (textOr(call, "download", "0") == "1") {
    response.headers.emplace_back(
        "Content-Disposition", "attachment; filename=\"" +
                                   jobFileName(job.number(), job.printer()) + std::string(suffix) +
                                   "\"");
  }
  return response;
}

// Nothing is drawn for a client that has left: those who ask and leave again and again would keep
// everybody else waiting.
PaperCache::Picture pictureOf(const Call& call, const Job& job, Form form) {
  if (auto picture = call.papers.find(job, form)) return picture;
  if (call.clientLeft && call.clientLeft()) {
    throw ControlError(408, "the client has left before the paper was drawn",
                       "Keep the connection open until the answer has come.");
  }
  return call.papers.keep(job, form, svgOf(job.paper(), form));
}

Answer getPicture(Call& call) {
  const auto job = jobOf(call);
  const Form form = textOr(call, "form", "picture") == "strip" ? Form::Strip : Form::Picture;
  return paperResponse(call, *job, *pictureOf(call, *job, form), "image/svg+xml", kPictureSuffix);
}

Answer getText(Call& call) {
  const auto job = jobOf(call);
  return paperResponse(call, *job, plainTextOf(job->paper()), "text/plain; charset=utf-8",
                       kTextSuffix);
}

Answer listExchanges(Call& call) {
  TrafficFilter filter;
  filter.job = jobOf(call)->number();
  return jsonResponse(trafficListing(call.simulation.traffic, filter, rangeOf(call)));
}

Field downloadField() { return {"download", FieldType::Choice, "1", 0, 0, {"0", "1"}}; }

}  // namespace

const RouteTable& jobRoutes() {
  constexpr double kMostNumber = 1e9;
  static const RouteTable table = {
      {"GET",
       "/api/jobs",
       "the print jobs",
       Body::None,
       {{"printer", FieldType::Text, "Ticket", 1, 100},
        numberField("after", 0, kMostNumber),
        numberField("limit", 1, JobLog::kMaxJobs)},
       listJobs},
      {"DELETE", "/api/jobs", "forgets the finished jobs", Body::None, {}, clearJobs},
      {"GET", "/api/jobs/{n}", "a print job", Body::None, {}, getJob},
      {"GET",
       "/api/jobs/{n}/paper.svg",
       "its paper as a picture",
       Body::None,
       {{"form", FieldType::Choice, "strip", 0, 0, {"picture", "strip"}},
        downloadField(),
        // Viewers ask with it for what they have not seen yet, past what their browser keeps.
        numberField("revision", 0, kMostNumber)},
       getPicture},
      {"GET",
       "/api/jobs/{n}/paper.txt",
       "its paper as text",
       Body::None,
       {downloadField()},
       getText},
      {"GET", "/api/jobs/{n}/exchanges", "the exchanges that printed it", Body::None, rangeFields(),
       listExchanges},
  };
  return table;
}

}  // namespace tolvex::sim
