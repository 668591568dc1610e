// Mutual exclusion and thread identity.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tolvex::platform {

// A lock for one owner at a time (a Windows critical section, a POSIX mutex). Not to be entered
// twice by one thread: log/recursive_lock.h adds that.
class CriticalSection {
 public:
  CriticalSection();
  ~CriticalSection();
  CriticalSection(const CriticalSection&) = delete;
  CriticalSection& operator=(const CriticalSection&) = delete;

  void enter();
  void leave();

 private:
  struct Native;
  Native* native();

  // Room for the system's own object, which this header must not name.
  alignas(std::max_align_t) unsigned char storage_[64];
};

// A number that no other living thread of the process has; never 0.
std::uint32_t currentThreadId();

// From construction to destruction the thread is not cancelled (POSIX): a cancellation in the middle of a
// call would unwind through its locks and its barrier against exceptions, which ends the process. It
// waits until the call is over.
class NotCancelled {
 public:
  NotCancelled();
  ~NotCancelled();
  NotCancelled(const NotCancelled&) = delete;
  NotCancelled& operator=(const NotCancelled&) = delete;

 private:
  int before_ = 0;
};

}  // namespace tolvex::platform
