#include "platform/clock.h"

#include <windows.h>

namespace tolvex::platform {

LocalTime localTime() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

std::int64_t coarseMilliseconds() { return static_cast<std::int64_t>(GetTickCount64()); }

}  // namespace tolvex::platform
