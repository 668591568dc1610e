// What is claimed about the library's speed, and how each claim is measured.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "support/paired.h"
#include "support/state_folder.h"

namespace bench {

struct Setting {
  std::size_t pairs;    // or calls, or batches, as the claim has it
  int cores;            // 1: caller and service on one core; 2: on one each
  std::string library;  // path of the library to load
};

// One measurement: the figure of the claim with its quartiles (equal to it where it is a count), and
// what else was learnt, by names that say the unit.
struct Figure {
  double value;
  double lower;
  double upper;
  std::map<std::string, double> details;
};

// Each runs in a process of its own, since the library's context lives as long as its process. They
// throw when anything is not as it has to be for the figure to mean what it says.
Figure readStandardSilent(const Setting& setting);
Figure readStandardLogged(const Setting& setting);
Figure readStandardZeromq(const Setting& setting);
Figure longReply(const Setting& setting);
Figure beginPrint(const Setting& setting, Logging logging);
Figure logRecordAgainstSpdlog(const Setting& setting);
Figure logRecordAgainstWrite(const Setting& setting);
Figure logRejected(const Setting& setting);
Figure allocationCount(const Setting& setting);
Figure largestAllocation(const Setting& setting);
Figure tail(const Setting& setting, Logging logging);
Figure load(const Setting& setting);
Figure loadFromC(const Setting& setting);

constexpr double kNoLimit = -1;

struct Claim {
  const char* name;
  const char* what;     // is measured,
  const char* against;  // and what it is compared with; empty where it is a time or a count
  const char* unit;     // "x": so many times as long
  double limit;         // the most that it is to be, on one core; kNoLimit: nothing is claimed
  std::size_t pairs;    // unless said otherwise
  bool twoCores;        // measured on two cores as well, without a limit
  Figure (*measure)(const Setting& setting);
};

// All of them, in the order of the report.
const std::vector<Claim>& claims();

// The median of the paired ratios, its quartiles, and the medians of both sides.
Figure ratioOf(const Paired& paired, const std::string& a, const std::string& b);

// Of many values of one kind, with its quartiles.
Figure medianOf(const std::vector<double>& values);

}  // namespace bench
