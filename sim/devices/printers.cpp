#include "devices/printers.h"

#include <algorithm>
#include <utility>

namespace tolvex::sim {

namespace {

constexpr int kLabelType = 0;
constexpr int kTicketType = 1;
constexpr int kThirdType = 2;

// 80 mm wide, 72 mm of it printed on.
constexpr PaperFormat kRoll = {80 * kDotsPerMm, 72 * kDotsPerMm};
// Labels of 40 mm with gaps of 3 mm, 56 mm of their 60 mm printed on.
constexpr PaperFormat kLabels = {60 * kDotsPerMm, 56 * kDotsPerMm, 40 * kDotsPerMm, 3 * kDotsPerMm};

std::vector<Printer> newPrinters(JobLog& jobs) {
  return {Printer({kLabelType, "Label", kLabels}, jobs),
          Printer({kTicketType, "Ticket", kRoll}, jobs),
          Printer({kThirdType, "Third", kRoll}, jobs)};
}

template <typename Condition>
Printer* find(std::vector<Printer>& printers, Condition condition) {
  const auto found = std::find_if(printers.begin(), printers.end(), condition);
  return found == printers.end() ? nullptr : &*found;
}

}  // namespace

Printers::Printers() : printers_(newPrinters(jobs_)) {}

Printer* Printers::findType(int type) {
  const int wanted = type == kDefaultType ? kTicketType : type;
  return find(printers_, [wanted](const Printer& printer) { return printer.type() == wanted; });
}

Printer* Printers::findName(std::string_view name) {
  return find(printers_, [name](const Printer& printer) { return printer.name() == name; });
}

Printer& Printers::defaultPrinter() { return *findType(kDefaultType); }

void Printers::restore() {
  jobs_.restart();
  std::vector<Printer> fresh = newPrinters(jobs_);
  std::move(fresh.begin(), fresh.end(), printers_.begin());
}

void Printers::endJobs() {
  for (Printer& printer : printers_) printer.endJob();
}

}  // namespace tolvex::sim
