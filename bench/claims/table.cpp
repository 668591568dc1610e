// The claims and their limits.
#include "claims/claims.h"

namespace bench {
namespace {

constexpr std::size_t kPairs = 3000;

}  // namespace

const std::vector<Claim>& claims() {
  static const std::vector<Claim> rows = {
      {"read_standard_silent", "read_standard, log silenced", "bare send, wait and receive", "x",
       1.10, kPairs, true, readStandardSilent},
      {"read_standard_logged", "read_standard, log at its defaults",
       "the bare exchange and one write of each record", "x", 1.20, kPairs, true,
       readStandardLogged},
      {"read_standard_zeromq", "read_standard, log silenced", "ZeroMQ REQ/REP over TCP", "x", 0.45,
       kPairs, true, readStandardZeromq},
      {"begin_print", "BeginPrint of 1,000 lines, log at its defaults", "1,001 bare exchanges", "x",
       1.15, kPairs, false,
       [](const Setting& setting) { return beginPrint(setting, Logging::kDefault); }},
      {"begin_print_silent", "BeginPrint of 1,000 lines, log silenced", "1,001 bare exchanges", "x",
       1.15, kPairs, false,
       [](const Setting& setting) { return beginPrint(setting, Logging::kSilenced); }},
      {"log_record", "one record of the log", "spdlog's rotating file, flushed", "x", 0.95, kPairs,
       false, logRecordAgainstSpdlog},
      {"log_record_write", "one record of the log", "a bare write of it", "x", kNoLimit, kPairs,
       false, logRecordAgainstWrite},
      {"log_rejected", "a record below the threshold", "", "ns", 30, kPairs, false, logRejected},
      {"allocations", "heap allocations of a warm read_standard", "", "", 2, 1000, false,
       allocationCount},
      {"largest_allocation", "the largest of them", "", "bytes", 1024, 1000, false,
       largestAllocation},
      {"tail", "99 % over median, read_standard, log silenced", "the same of the bare exchange",
       "x", 1.2, 100000, false,
       [](const Setting& setting) { return tail(setting, Logging::kSilenced); }},
      {"tail_logged", "99 % over median, read_standard, log at its defaults",
       "the same of the bare exchange", "x", kNoLimit, 100000, false,
       [](const Setting& setting) { return tail(setting, Logging::kDefault); }},
      {"load", "from dlopen to the first weight, beyond", "two bare connections and exchanges",
       "ms", 2, 300, false, load},
      {"load_from_c", "the same in a program in C, beyond", "two bare connections and exchanges",
       "ms", kNoLimit, 300, false, loadFromC},
      {"long_reply", "sendRawCmdToLC, reply of 2 KiB, log silenced", "bare send, wait and receive",
       "x", kNoLimit, kPairs, false, longReply},
  };
  return rows;
}

}  // namespace bench
