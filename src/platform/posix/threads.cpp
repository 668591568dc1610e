#include "platform/threads.h"

#include <pthread.h>

#include <atomic>
#include <new>

namespace tolvex::platform {

struct CriticalSection::Native {
  pthread_mutex_t mutex;
};

CriticalSection::CriticalSection() {
  static_assert(sizeof(Native) <= sizeof(storage_), "storage_ holds a mutex");
  pthread_mutex_init(&(new (storage_) Native)->mutex, nullptr);
}

CriticalSection::~CriticalSection() { pthread_mutex_destroy(&native()->mutex); }

void CriticalSection::enter() { pthread_mutex_lock(&native()->mutex); }

void CriticalSection::leave() { pthread_mutex_unlock(&native()->mutex); }

CriticalSection::Native* CriticalSection::native() {
  return std::launder(reinterpret_cast<Native*>(storage_));
}

// Counted, not asked of the kernel: the lock needs the number at every entry, and a system call
// there would cost more than the lock itself.
std::uint32_t currentThreadId() {
  static std::atomic<std::uint32_t> last{0};
  thread_local const std::uint32_t id = ++last;
  return id;
}

NotCancelled::NotCancelled() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_); }

NotCancelled::~NotCancelled() { pthread_setcancelstate(before_, nullptr); }

}  // namespace tolvex::platform
