// The printers of the service.
#pragma once

#include <string_view>
#include <vector>

#include "devices/job_log.h"
#include "devices/printer.h"

namespace tolvex::sim {

/// A label printer, a ticket printer and a third one, all ready. Not thread-safe.
class Printers {
 public:
  /// Stands for the ticket printer.
  static constexpr int kDefaultType = 100;

  Printers();
  Printers(const Printers&) = delete;
  Printers& operator=(const Printers&) = delete;

  /// The printer of a type or name, null if there is none. Unplugged ones are found as well.
  Printer* findType(int type);
  Printer* findName(std::string_view name);

  /// The one that is meant when none is named.
  Printer& defaultPrinter();

  std::vector<Printer>& all() { return printers_; }
  const std::vector<Printer>& all() const { return printers_; }

  JobLog& jobs() { return jobs_; }
  const JobLog& jobs() const { return jobs_; }

  /// As constructed; job numbers begin again. References to the printers stay valid, and whoever
  /// listens to the jobs goes on to do so.
  void restore();

  /// Finishes what is still being printed, so that none of it is lost.
  void endJobs();

 private:
  JobLog jobs_;
  std::vector<Printer> printers_;
};

}  // namespace tolvex::sim
