// System calls that fail, each at each position in each way, once and from then on.
#include <errno.h>

#include <algorithm>
#include <optional>
#include <set>

#include "support/scarce_calls.h"
#include "support/scarce_memory.h"
#include "torture/scarce/report.h"
#include "torture/scarce/runs.h"
#include "torture/scarce/stage.h"

namespace tolvex::test {
namespace {

constexpr int kSocketInterrupt = 4;
constexpr int kUnreadable = -1;
// How many calls, and how many records, a failure may cost beyond those of a good run. A record for
// which no file can be opened costs twenty.
constexpr std::size_t kMoreCalls = 1000;
// What is tried again after a pause is no busy loop: the pause, a look and the try.
constexpr std::size_t kCallsOfATry = 3;
constexpr std::size_t kMoreRecords = 40;

// What is not optimised imports what is inline otherwise.
#ifdef TOLVEX_OPTIMISED
constexpr bool kIsOptimised = true;
#else
constexpr bool kIsOptimised = false;
#endif

// A share is made with the first few ways in which a call fails.
constexpr std::size_t kWaysOfTheShare = 3;

class CallsRun {
 public:
  CallsRun(const std::string& library, bool full) : stage_(library), full_(full) {}

  int run() {
    if (kIsOptimised) checkList();
    ofLaterCalls(true);
    ofLaterCalls(false);
    stage_.resync(true);
    const std::size_t later = failures_;
    for (const char* const name : {"SetServerIpForRemoteAccess", "read_standard", "PrintText"}) {
      if (full_ || std::string(name) != "PrintText") ofFirst(exportCall(name));
    }
    report().at("the run");
    if (failures_ == 0) report().found("nothing has failed, so nothing is shown");
    return report().end(std::to_string(scarceCalls().size()) + " system calls, " +
                        std::to_string(failures_) + " failures, " +
                        std::to_string(failures_ - later) + " of them in a first call, " +
                        std::to_string(longest_) + " calls at most beyond a good run's");
  }

 private:
  void ofLaterCalls(bool resync) {
    resync_ = resync;
    option_ = resync ? ", with resync" : ", without resync";
    stage_.resync(resync);
    stage_.loadAfresh();
    for (const ExportCall& call : exportCalls()) {
      if (call.answers != Answers::kConstant && (full_ || isInTheShare(call))) ofLater(call);
    }
  }

  static bool isInTheShare(const ExportCall& call) {
    static const std::set<std::string> names = {"read_standard", "BeginPrint", "PrintBitmapFile",
                                                "GetPrinterList", "checkConnection"};
    return kSmallShare ? std::string(call.name) == "BeginPrint" : names.count(call.name) > 0;
  }

  // What the library imports is what fails here, or what cannot fail.
  void checkList() {
    stage_.loadAfresh();
    std::set<std::string> known;
    for (const ScarceCall& call : scarceCalls()) known.insert(call.name);
    for (const std::string& name : stage_.library().imports()) {
      report().at("the imports of the library");
      if (known.count(name) == 0 && !isHarmlessImport(name)) {
        report().found(name + " is new: let it fail in scarce_calls, or say that it cannot");
      }
    }
  }

  // One call of the system that fails, and how.
  struct Failure {
    std::size_t call;  // in scarceCalls()
    std::size_t position;
    const CallFailure& way;
    bool fromThenOn;
  };

  template <typename Try>
  void ofEachFailure(const ExportCall& call, const ScarceCalls::Calls& calls, bool first,
                     Try attempt) {
    for (std::size_t position = 0; position < calls.size(); ++position) {
      const ScarceCall& failing = scarceCalls()[calls[position]];
      std::size_t ways = 0;
      for (const CallFailure& failure : failing.failures) {
        if (++ways > kWaysOfTheShare && !full_) break;
        if (first && isChoiceOfSet(calls, position) && failure.error == EINVAL) continue;
        for (const bool fromThenOn : {false, true}) {
          report().at(std::string(call.name) + (first ? " as the first call" : option_) +
                      ": call " + std::to_string(position + 1) + " of " +
                      std::to_string(calls.size()) + ", " + failing.name + " with " + failure.name +
                      (fromThenOn ? ", and from then on" : ""));
          const std::size_t problems = report().problems();
          // A call that the failing run does not make, as each 64 KiB of the log, cannot fail in it.
          if (attempt(Failure{calls[position], position, failure, fromThenOn})) ++failures_;
          if (report().problems() == problems || first) continue;
          stage_.loadAfresh();  // what is wrong now is not told again with each further failure
          warmUp(call);
        }
      }
    }
  }

  // The system answers EINVAL also for a character set that it does not know, and then texts are
  // UTF-8 for as long as the process lives. Later a set that it knew is there no more.
  static bool isChoiceOfSet(const ScarceCalls::Calls& calls, std::size_t position) {
    const auto end = calls.begin() + static_cast<std::ptrdiff_t>(position);
    const std::size_t call = calls[position];
    return scarceCalls()[call].name == std::string("iconv_open") &&
           std::find(calls.begin(), end, call) == end;
  }

  // What a call makes at its first success, the log at its first record of a connection's failure, a
  // thread at its first exception.
  void warmUp(const ExportCall& call) {
    struct Gone {
      Gone() { ScarceCalls::failOnce("send", kConnectionGone); }
      ScarceCalls calls;
      ScarceMemory memory;
    };
    struct Full {
      ScarceCalls calls;
      ScarceMemory memory{1};
    };
    stage_.observe(exportCall("checkConnection"), false, [] { return Gone(); });
    stage_.observe(exportCall("sendRawCmdToLC"), false, [] { return Full(); });
    for (int warm = 0; warm < 2; ++warm) watched(call, false);
  }

  void ofLater(const ExportCall& call) {
    warmUp(call);
    const Watched good = watched(call, false);
    report().at(call.name);
    report().found(checkGood(call, good.seen));
    ofEachFailure(call, good.calls, false, [&](const Failure& failure) {
      const Held before;
      const Watched now = watched(call, false, &failure);
      check(call, good, now, Stage::kKnownError);
      report().found(Held().moreThan(before));
      return now.failures > 0;
    });
  }

  void ofFirst(const ExportCall& call) {
    const auto begin = [&] {
      stage_.loadAfresh();
      if (std::string(call.name) != "SetServerIpForRemoteAccess") stage_.chooseAddress();
    };
    // An INI file that cannot be read counts as none: another service, and another test's matter.
    begin();
    const Held atStart;
    const Watched good = watched(call, true);
    const Held kept = Held() - atStart;
    ofEachFailure(call, good.calls, true, [&](const Failure& failure) {
      begin();
      const Held before;
      const Watched now = watched(call, true, &failure);
      check(call, good, now, 0);
      if ((Held() - before).handles > kept.handles) report().found("a handle is left");
      report().found(stage_.checkRecords());
      return now.failures > 0;
    });
  }

  struct Watched {
    Observation seen;
    ScarceCalls::Calls calls;
    std::size_t failures = 0;
  };

  // What holds while a call is looked at, and afterwards the calls that it made.
  class Scarce {
   public:
    explicit Scarce(Watched& made) : made_(made) {}
    Scarce(Watched& made, const Failure& failure)
        : calls_(failure.call, failure.position, failure.way, failure.fromThenOn), made_(made) {}
    ~Scarce() {
      memory_.reset();  // what follows is the test's own
      made_.calls = calls_.calls();
      made_.failures = calls_.failures();
    }

   private:
    ScarceCalls calls_;
    std::optional<ScarceMemory> memory_{std::in_place};
    Watched& made_;
  };

  Watched watched(const ExportCall& call, bool first, const Failure* failure = nullptr) {
    Watched now;
    now.seen = stage_.observe(
        call, first, [&] { return failure == nullptr ? Scarce(now) : Scarce(now, *failure); });
    return now;
  }

  void check(const ExportCall& call, const Watched& good, const Watched& now, int errorBefore) {
    std::vector<int> errors = {kSocketInterrupt, errorBefore};
    // Two replies at once, one of them late, are none that can be read.
    if (!resync_) errors.push_back(kUnreadable);
    report().found(judge(call, good.seen, now.seen, kSocketInterrupt, errors));
    const std::size_t expectedCalls = good.calls.size() + kCallsOfATry * waits(now.calls);
    const std::size_t more = now.calls.size() - std::min(now.calls.size(), expectedCalls);
    longest_ = std::max(longest_, more);
    if (more > kMoreCalls) report().found("a busy loop of " + std::to_string(more) + " calls");
    // Of the writes that failed some are the same one, tried again.
    const std::size_t expected = writes(good.calls) + now.failures + kMoreRecords;
    if (writes(now.calls) > expected) {
      report().found(std::to_string(writes(now.calls)) + " writes to the log");
    }
  }

  static std::size_t writes(const ScarceCalls::Calls& calls) {
    return count(calls, {"write", "WriteFile"});
  }
  static std::size_t waits(const ScarceCalls::Calls& calls) { return count(calls, {"nanosleep"}); }

  static std::size_t count(const ScarceCalls::Calls& calls, const std::set<std::string>& names) {
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(),
                      [&](std::size_t call) { return names.count(scarceCalls()[call].name) > 0; }));
  }

  Stage stage_;
  bool full_;
  bool resync_ = true;
  const char* option_ = "";
  std::size_t failures_ = 0;
  std::size_t longest_ = 0;
};

}  // namespace

int runSystemCalls(const std::string& library, bool full) { return CallsRun(library, full).run(); }

}  // namespace tolvex::test
