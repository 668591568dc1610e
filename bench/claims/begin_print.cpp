// A print job against as many bare exchanges of the same bytes.
#include <unistd.h>

#include <stdexcept>

#include "claims/claims.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/library.h"

namespace bench {
namespace {

constexpr int kLines = 1000;
constexpr std::size_t kRequests = kLines + 1;  // and the one that ends the job
constexpr int kJobType = 0;
constexpr int kWarmUpJobs = 3;

void queueLines(const Library& library) {
  for (int line = 0; line < kLines; ++line) {
    const std::string text =
        std::to_string(1000 + line) + " Tomatoes on the vine   1.250 kg   3.49";
    if (library.printTextByPaperWidth(text.c_str(), 24, 80) != TOLVEX_OK) {
      throw std::runtime_error("a line is not queued");
    }
  }
}

void printQueued(const Library& library) {
  if (library.beginPrint(kJobType) != TOLVEX_OK || library.getLastErrCode() != 0) {
    throw std::runtime_error("BeginPrint failed");
  }
}

std::vector<std::string> requestsOfAJob(const Library& library, const FixedService& service) {
  queueLines(library);
  service.watch().startRecording();
  printQueued(library);
  std::vector<std::string> requests = service.watch().recorded();
  if (requests.size() != kRequests || requests[0].find("1000 Tomatoes") == std::string::npos ||
      requests[kLines - 1].find("1999 Tomatoes") == std::string::npos) {
    throw std::runtime_error("a job does not send what it should");
  }
  return requests;
}

}  // namespace

Figure beginPrint(const Setting& setting, Logging logging) {
  const StateFolder state(logging);
  const Cores cores = pinned(setting.cores);
  const FixedService service(kAgreedReply, cores.service);
  const Library library = loadLibrary(setting.library, service.address());
  const std::vector<std::string> requests = requestsOfAJob(library, service);
  const int connection = connectTo(service.address(), kPrintingPort);
  const auto libraryJob = [&] {
    queueLines(library);
    return timedBatch(1, [&] { printQueued(library); });
  };
  const auto bareJob = [&] {
    return timedBatch(1, [&] {
      for (const std::string& request : requests) {
        bareExchange(connection, request, service.reply().size());
      }
    });
  };
  for (int job = 0; job < kWarmUpJobs; ++job) {
    libraryJob();
    bareJob();
  }
  const bool logged = state.logText().find("BeginPrint") != std::string::npos;
  if (logged != (logging == Logging::kDefault)) throw std::runtime_error("the log is not as said");

  const Paired paired = takeTurns(setting.pairs, libraryJob, bareJob);
  close(connection);
  return ratioOf(paired, "library_us", "bare_us");
}

}  // namespace bench
