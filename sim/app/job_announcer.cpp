#include "app/job_announcer.h"

#include <variant>

namespace tolvex::sim {

namespace {

bool isCut(const Job& job) {
  const auto& items = job.paper().items();
  return !items.empty() && std::holds_alternative<CutItem>(items.back());
}

}  // namespace

std::string JobAnnouncer::announce(const Job& job) {
  int& latest = announced_[job.printer()];
  const bool isKnown = latest == job.number();
  latest = job.number();
  const int mm = (job.paper().length() + kDotsPerMm - 1) / kDotsPerMm;
  std::string text = "job " + std::to_string(job.number()) + " on " + job.printer() + ", " +
                     std::to_string(mm) + " mm";
  if (isCut(job)) return text + ", cut";
  return isKnown ? text + ", fed" : text;
}

}  // namespace tolvex::sim
