#include "platform/threads.h"

#include <windows.h>

#include <new>

namespace tolvex::platform {

struct CriticalSection::Native {
  CRITICAL_SECTION section;
};

CriticalSection::CriticalSection() {
  static_assert(sizeof(Native) <= sizeof(storage_), "storage_ holds a critical section");
  InitializeCriticalSection(&(new (storage_) Native)->section);
}

CriticalSection::~CriticalSection() { DeleteCriticalSection(&native()->section); }

void CriticalSection::enter() { EnterCriticalSection(&native()->section); }

void CriticalSection::leave() { LeaveCriticalSection(&native()->section); }

CriticalSection::Native* CriticalSection::native() {
  return std::launder(reinterpret_cast<Native*>(storage_));
}

std::uint32_t currentThreadId() { return GetCurrentThreadId(); }

NotCancelled::NotCancelled() = default;  // Windows has no such thing
NotCancelled::~NotCancelled() = default;

}  // namespace tolvex::platform
