#include "platform/clock.h"

#include <windows.h>

namespace tolvex::platform {

LocalTime localTime() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace tolvex::platform
