// A lock that its owner may take again.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/threads.h"

namespace tolvex {

// A critical section with its owner's thread id and a count of how often the owner has entered.
// leave() by a thread that is not the owner is the caller's error; a leave() too many does nothing.
class RecursiveLock {
 public:
  void enter();
  void leave();

 private:
  platform::CriticalSection section_;
  // Read by threads that do not hold the section, hence atomic. The owner is written before the
  // count: whoever sees a count of another thread's making must not find itself still named there.
  std::atomic<std::uint32_t> owner_{0};
  std::atomic<std::int32_t> count_{0};
};

// Holds the lock for the length of a scope.
class ScopedLock {
 public:
  explicit ScopedLock(RecursiveLock& lock) : lock_(lock) { lock_.enter(); }
  ~ScopedLock() { lock_.leave(); }
  ScopedLock(const ScopedLock&) = delete;
  ScopedLock& operator=(const ScopedLock&) = delete;

 private:
  RecursiveLock& lock_;
};

}  // namespace tolvex
