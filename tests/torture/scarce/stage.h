// The till on which something runs out: the library, loaded as often as wanted, its service, its
// folders, and what is looked at after each call.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "support/host.h"
#include "support/loaded_library.h"
#include "support/scripted_service.h"
#include "torture/scarce/export_calls.h"

namespace tolvex::test {

// What a call did, as far as anyone outside can see.
struct Observation {
  int result = 0;
  bool wroteBuffer = false;
  std::string buffer;
  std::vector<std::string> requests;  // of the call itself
  int lastError = 0;
  std::vector<std::string> printed;  // by the BeginPrint(8) after it
  std::string afterwards;            // what did not work after it; empty for nothing
};

class Stage {
 public:
  explicit Stage(std::string libraryFile);

  // With the option resync of the INI file or without it: from the next loadAfresh() on. Without it
  // a reply that nobody took answers the next call, alone or with that call's own, which is as
  // documented: both connections are then made anew before what follows a call is looked at.
  void resync(bool on);

  // The library as it is before the first call, in folders without a log.
  void loadAfresh();
  // Before the first call, so that the INI file is not asked.
  void chooseAddress();
  LoadedLibrary& library() { return *library_; }
  Host& host() { return host_; }

  // Replies that take more memory to read than an ordinary one, or ordinary ones.
  void answersAtLength(bool on) { long_ = on; }

  // Whether the log is where it belongs and holds what NLog.ini asks for; empty, or what is wrong.
  std::string checkLog() const;

  // Whether no more than one record in the log is not whole, and the last one is; empty, or what is
  // wrong. Not after a text in lines of its own.
  std::string checkRecords() const;

  // Makes the call; what is scarce is so between begin() and end(). The last error is kKnownError
  // before it, unless it is the first call.
  static constexpr int kKnownError = 2;
  template <typename Scarce>
  Observation observe(const ExportCall& call, bool isFirst, Scarce scarce) {
    CallBuffer buffer;
    prepare(call, isFirst);
    Observation seen;
    {
      [[maybe_unused]] const auto held = scarce();
      seen.result = call.run(*library_, buffer);
    }
    complete(seen, buffer);
    return seen;
  }

 private:
  void prepare(const ExportCall& call, bool isFirst);
  void complete(Observation& seen, const CallBuffer& buffer);
  int ask(const char* name, int argument = 0);
  int run(const ExportCall& call, CallBuffer& buffer);
  std::string checkNextCalls(Observation& seen);
  void connectAnew(Observation& seen);
  std::string reply(const std::string& request);
  std::vector<std::string> takeRequests();

  std::string libraryFile_;
  Host host_;
  std::string address_;
  std::unique_ptr<ScriptedService> service_;
  std::unique_ptr<LoadedLibrary> library_;
  bool resync_ = true;
  std::atomic<bool> long_{false};
  std::atomic<unsigned> weight_{0};
  std::mutex mutex_;
  std::vector<std::string> requests_;
};

// What tells this observation from a good one, if it is not a failure as exports.h documents it;
// empty where nothing does. Of a call that failed the last error has to be among those given.
std::string judge(const ExportCall& call, const Observation& good, const Observation& seen,
                  int failureCode, const std::vector<int>& lastErrors);

}  // namespace tolvex::test
