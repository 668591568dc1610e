// System calls that fail when a test says so, of one library and one thread.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tolvex::test {

class LoadedLibrary;

// One way in which a call fails.
struct CallFailure {
  enum Kind {
    kError,    // as the system tells a failure, with the number
    kHalf,     // takes half of what it was given
    kNothing,  // takes nothing, without an error; of a wait: the time is over
  };
  Kind kind;
  int error;
  const char* name;
};

// A function that the library imports and that may fail.
struct ScarceCall {
  const char* name;
  std::vector<CallFailure> failures;
};

// All of them, on this system.
const std::vector<ScarceCall>& scarceCalls();
// How "send" fails when the other end has gone.
extern const CallFailure kConnectionGone;

// Whether an import that is not among them cannot fail, is memory or belongs to the run-time library.
bool isHarmlessImport(const std::string& name);

// Notes the calls that the calling thread makes while an object exists, and lets some fail. Waits
// are cut to five seconds and pauses to nothing; what ends one is noted just the same.
class ScarceCalls {
 public:
  // A call that was made: its index in scarceCalls().
  using Calls = std::vector<std::size_t>;

  ScarceCalls();
  // The first call of this function (its index in scarceCalls()) that is the one of this position
  // (from 0) or later fails in this way; with fromThenOn all others after it, too, at most a thousand
  // (interruptions by a signal: a hundred). Another function's call in that position is let through.
  ScarceCalls(std::size_t call, std::size_t position, const CallFailure& failure, bool fromThenOn);
  ~ScarceCalls();
  ScarceCalls(const ScarceCalls&) = delete;
  ScarceCalls& operator=(const ScarceCalls&) = delete;

  Calls calls() const;
  std::size_t failures() const;

  // The first call of this name fails once. For what a test wants beside its own failures.
  static void failOnce(const char* name, const CallFailure& failure);
};

// To be called for each library that is loaded, before its first call.
void haveScarceCalls(LoadedLibrary& library);

// The sockets and files that the library has open, and their end when it is unloaded.
std::size_t libraryHandles();
void closeLibraryHandles();

}  // namespace tolvex::test
