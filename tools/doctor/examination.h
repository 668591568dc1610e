// The whole examination, layer by layer.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/context.h"
#include "doctor/probe.h"
#include "doctor/report.h"

namespace tolvex::ctl {

struct DoctorOptions {
  bool fix = false;            // make what is missing
  std::set<std::string> skip;  // names of layers that are left out
};

// The names of the layers, in their order.
std::vector<std::string> layerNames();

// What a call of the library that could not go on says about `who`: "the scale".
Finding outcomeOf(const std::string& who, const Failure& failure);

// Looks at everything from the library to the printers. A layer that fails is the last one that is
// looked at: what builds on it is marked as skipped. Asks the devices only how they are; nothing is
// printed, fed, cut or opened, and no setting is changed.
class Examination {
 public:
  Examination(Context& context, const DoctorOptions& options);

  Report run();

  // The INI file that was looked for; empty before the address was examined.
  const std::string& iniPath() const { return iniPath_; }

 private:
  friend struct LayerRow;
  using Findings = std::vector<Finding>;

  Findings library();
  Findings address();
  Findings log();
  Findings thresholds();
  Findings ports();
  Findings service();
  Findings scale();
  Findings printers();
  Findings codePage();

  Findings addressFromIni(const std::string& folder);
  std::string whereToCorrect() const;
  Finding port(const char* use, unsigned short number, const PortProbe& probe, bool none) const;
  Finding openPort(const std::string& where, double taken) const;
  Finding closedPort(const std::string& where, const PortProbe& probe, bool none) const;
  Finding answer(const char* use, unsigned short number, const char* request);
  Finding answerOfLibrary();
  Finding serviceVersion();
  Finding printerStatus(unsigned type);
  Service& serviceOfLibrary();
  std::string place(const char* use, unsigned short number) const;

  Context& context_;
  DoctorOptions options_;
  Globals globals_;  // with a time limit in any case
  std::string address_;
  std::string source_;  // where the address comes from, in words
  std::string iniPath_;
  bool fromIni_ = false;
  std::unique_ptr<Service> service_;
};

}  // namespace tolvex::ctl
