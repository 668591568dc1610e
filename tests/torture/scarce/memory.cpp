// Memory that runs out, at each allocation of each export in turn.
#include "support/scarce_calls.h"
#include "support/scarce_memory.h"
#include "torture/scarce/report.h"
#include "torture/scarce/runs.h"
#include "torture/scarce/stage.h"

namespace tolvex::test {
namespace {

constexpr int kUnknown = 1;  // what a function that returns a code answers

// What holds while a call is looked at.
class Scarce {
 public:
  Scarce(std::size_t& allocations, bool connectionIsGone, std::size_t failing = 0,
         bool fromThenOn = false)
      : connection_(connectionIsGone), memory_(failing, fromThenOn), allocations_(allocations) {}
  ~Scarce() { allocations_ = memory_.allocations(); }

 private:
  struct Connection {
    explicit Connection(bool isGone) {
      if (isGone) ScarceCalls::failOnce("send", kConnectionGone);
    }
    ScarceCalls calls;
  };
  Connection connection_;
  ScarceMemory memory_;
  std::size_t& allocations_;
};

class MemoryRun {
 public:
  MemoryRun(const std::string& library, bool full) : stage_(library), full_(full) {}

  int run() {
    const std::size_t ofConstants = ofLaterCalls("an ordinary reply", false, false);
    ofLaterCalls("a long reply", true, false);
    ofLaterCalls("a connection that is gone", false, true);
    const std::size_t later = failures_;
    for (const ExportCall& call : exportCalls()) {
      if (call.answers != Answers::kConstant && (full_ || isInTheShare(call))) ofTheFirst(call);
    }
    report().at("the run");
    if (failures_ == 0) report().found("nothing has failed, so nothing is shown");
    return report().end(std::to_string(exportCalls().size()) + " exports, " +
                        std::to_string(failures_) + " failed allocations, " +
                        std::to_string(failures_ - later) + " of them in a first call, " +
                        std::to_string(ofConstants) + " by functions without a device");
  }

 private:
  static bool isInTheShare(const ExportCall& call) {
    const std::string name = call.name;
    if (kSmallShare) return name == "PrintText";
    return name == "read_standard" || name == "SetServerIpForRemoteAccess" || name == "PrintText";
  }

  // Returns how much the functions without a device allocate.
  std::size_t ofLaterCalls(const char* with, bool atLength, bool connectionIsGone) {
    std::size_t ofConstants = 0;
    stage_.loadAfresh();
    stage_.answersAtLength(atLength);
    throwOnce();
    for (const ExportCall& call : exportCalls()) {
      std::size_t count = 0;
      const auto counted = [&] { return Scarce(count, connectionIsGone); };
      for (int warm = 0; warm < 2; ++warm) stage_.observe(call, false, counted);
      const Observation good = stage_.observe(call, false, counted);
      const std::string name = std::string(call.name) + ", with " + with;
      report().at(name);
      report().found(checkGood(call, good));
      if (call.answers == Answers::kConstant) ofConstants += count;
      ofEachAllocation(name, count, [&](std::size_t failing, bool fromThenOn) {
        const Held before;
        const Observation seen = stage_.observe(
            call, false, [&] { return Scarce(count, connectionIsGone, failing, fromThenOn); });
        report().found(judge(call, good, seen, kUnknown, {Stage::kKnownError, good.lastError}));
        report().found(Held().moreThan(before));
      });
    }
    return ofConstants;
  }

  // The first exception of a thread leaves something behind that all others use.
  void throwOnce() {
    std::size_t ignored = 0;
    stage_.observe(exportCall("sendRawCmdToLC"), false, [&] { return Scarce(ignored, false, 1); });
  }

  template <typename Try>
  void ofEachAllocation(const std::string& name, std::size_t count, Try attempt) {
    for (std::size_t failing = 1; failing <= count; ++failing) {
      for (const bool fromThenOn : {false, true}) {
        report().at(name + ": allocation " + std::to_string(failing) + " of " +
                    std::to_string(count) + (fromThenOn ? " and all after it" : ""));
        attempt(failing, fromThenOn);
        ++failures_;
      }
    }
  }

  void ofTheFirst(const ExportCall& call) {
    std::size_t count = 0;
    Held kept;
    const auto first = [&](std::size_t failing, bool fromThenOn) {
      stage_.loadAfresh();
      const Held before;
      Observation seen =
          stage_.observe(call, true, [&] { return Scarce(count, false, failing, fromThenOn); });
      std::size_t ignored = 0;  // once more, for what a call makes at its first success
      stage_.observe(call, true, [&] { return Scarce(ignored, false); });
      throwOnce();
      kept = Held() - before;
      return seen;
    };
    stage_.answersAtLength(false);
    const std::string name = std::string(call.name) + " as the first call";
    report().at(name);
    const Observation good = first(ScarceMemory::kNever, false);
    const Held keptByGood = kept;
    report().found(checkGood(call, good));
    checkLog(call);
    ofEachAllocation(name, count, [&](std::size_t failing, bool fromThenOn) {
      const Observation seen = first(failing, fromThenOn);
      report().found(judge(call, good, seen, kUnknown, {0, good.lastError}));
      report().found(kept.moreThan(keptByGood));
      checkLog(call);
    });
  }

  void checkLog(const ExportCall& call) {
    // Whoever chooses the address first has the log in the other folder.
    if (std::string(call.name).find("SetServerIp") == 0) return;
    report().found(stage_.checkLog());
  }

  Stage stage_;
  bool full_;
  std::size_t failures_ = 0;
};

}  // namespace

int runMemory(const std::string& library, bool full) { return MemoryRun(library, full).run(); }

}  // namespace tolvex::test
