#include "printing/begin_print.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "api/call_frame.h"
#include "log/nlog.h"
#include "printing/drain.h"
#include "printing/job_names.h"
#include "service/result_codes.h"
#include "service/vco_client_api.h"

namespace tolvex {
namespace {

// ---- Names ----

// A name has 15 characters at most; a longer one is passed over.
constexpr std::size_t kNameField = 16;

// ---- Printers ----

struct PrinterOfJobs {
  int first, last;  // job types
  int printerType;
};

constexpr int kLabelPrinter = 0;
constexpr int kTicketPrinter = 1;
constexpr int kThirdPrinter = 2;

constexpr PrinterOfJobs kPrintersOfJobs[] = {
    {2, 2, kLabelPrinter},     {80, 80, kLabelPrinter},   {90, 90, kLabelPrinter},
    {204, 206, kLabelPrinter}, {208, 208, kLabelPrinter}, {81, 81, kTicketPrinter},
    {91, 91, kTicketPrinter},  {301, 311, kThirdPrinter},
};

// ---- Actions ----

struct Job {
  VcoClientApi& client;
  std::string name;
  int printerType;
};

const char* clientName(const Job& job) { return job.client.getClientName().c_str(); }

// The last line of a job that went well.
int succeed(const Job& job, unsigned line) {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, line, "[%s][BeginPrint] %s OK",
            clientName(job), job.name.c_str());
  return kExportOk;
}

// Likewise of one whose confirmation or closing command failed.
int failWith(const Job& job, unsigned line, unsigned code) {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, line,
            "[%s][BeginPrint] %s Err, ret:%#x", clientName(job), job.name.c_str(), code);
  return kExportFailed;
}

// After the closing command. Of a failed one the line shows this function's own verdict.
int finish(const Job& job, unsigned code) {
  if (code == result::kOk) return succeed(job, 714);
  return failWith(job, 711, kExportFailed);
}

// How the part before the closing feed or cut reads in the log.
struct Closing {
  const char* name;
  struct {
    unsigned notPrinted, notConfirmed, confirmed;
  } line;
};

constexpr Closing kFeed = {"Feed", {640, 646, 649}};
constexpr Closing kCut = {"Cut", {668, 674, 677}};

// Prints and confirms what is queued, if anything is. False when it could not be printed; a
// confirmation that fails is told and changes nothing.
bool printQueued(const Job& job, const Closing& closing) {
  if (job.client.printJob().isEmpty()) return true;
  NLog* const log = NLog::GetInstance();
  const unsigned drained = drainPrintJob(job.client, job.printerType);
  if (drained != result::kOk) {
    NLog::Log(log, kModuleDll, kLevelFailure, closing.line.notPrinted,
              "[%s][%s - BeginPrint] %s Err when printing, ret:%d", clientName(job), closing.name,
              job.name.c_str(), static_cast<int>(drained));
    return false;
  }
  const unsigned confirmed = job.client.beginPrint(job.printerType);
  if (confirmed != result::kOk) {
    NLog::Log(log, kModuleDll, kLevelFailure, closing.line.notConfirmed,
              "[%s][%s - BeginPrint] %s Err, ret:%#x", clientName(job), closing.name,
              job.name.c_str(), confirmed);
  } else {
    NLog::Log(log, kModuleDll, kLevelTrace, closing.line.confirmed, "[%s][%s - BeginPrint] %s OK",
              clientName(job), closing.name, job.name.c_str());
  }
  return true;
}

int feed(const Job& job) {
  if (!printQueued(job, kFeed)) return kExportFailed;
  return finish(job, job.client.feedPaper(job.printerType));
}

int cut(const Job& job) {
  if (!printQueued(job, kCut)) return kExportFailed;
  return finish(job, job.client.cutPaper(job.printerType, kCutPercent));
}

int calibrateLabels(const Job& job) {
  return finish(job, job.client.calibrateLabelGap(job.printerType));
}

int calibrateTickets(const Job& job) {
  return finish(job, job.client.calibrateOutOfPaper(job.printerType));
}

int doNothing(const Job& job) { return succeed(job, 700); }

int print(const Job& job) {
  const unsigned drained = drainPrintJob(job.client, job.printerType);
  if (drained != result::kOk) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 725,
              "[%s][BeginPrint] %s Err when printing, ret:%d", clientName(job), job.name.c_str(),
              static_cast<int>(drained));
    return kExportFailed;
  }
  const unsigned confirmed = job.client.beginPrint(job.printerType);
  return confirmed == result::kOk ? succeed(job, 734) : failWith(job, 731, confirmed);
}

struct ActionOfJob {
  int jobType;
  int (*run)(const Job& job);
};

constexpr ActionOfJob kActions[] = {
    {4, feed},
    {104, feed},
    {206, feed},
    {208, feed},
    {304, feed},
    {8, cut},
    {105, cut},
    {207, cut},
    {305, cut},
    {80, calibrateLabels},
    {90, calibrateLabels},
    {81, calibrateTickets},
    {91, calibrateTickets},
    {6, doNothing},
    {106, doNothing},
    {209, doNothing},
    {306, doNothing},
};

}  // namespace

std::string jobNameOf(int jobType) {
  for (const JobName& row : kJobNames) {
    if (row.jobType == jobType && std::strlen(row.name) < kNameField) return row.name;
  }
  return std::to_string(jobType);
}

int printerTypeOf(int jobType) {
  for (const PrinterOfJobs& row : kPrintersOfJobs) {
    if (row.first <= jobType && jobType <= row.last) return row.printerType;
  }
  return kTicketPrinter;
}

int runPrintJob(VcoClientApi& client, int jobType) {
  const Job job{client, jobNameOf(jobType), printerTypeOf(jobType)};
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, 612, "[%s][BeginPrint] %s Begin",
            clientName(job), job.name.c_str());
  const auto* const row =
      std::find_if(std::begin(kActions), std::end(kActions),
                   [jobType](const ActionOfJob& action) { return action.jobType == jobType; });
  return row != std::end(kActions) ? row->run(job) : print(job);
}

}  // namespace tolvex
