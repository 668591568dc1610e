#include "platform/clock.h"

#include <ctime>

namespace tolvex::platform {

LocalTime localTime() {
  timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  tm local = {};
  localtime_r(&now.tv_sec, &local);
  return {static_cast<unsigned>(local.tm_year + 1900), static_cast<unsigned>(local.tm_mon + 1),
          static_cast<unsigned>(local.tm_mday),        static_cast<unsigned>(local.tm_hour),
          static_cast<unsigned>(local.tm_min),         static_cast<unsigned>(local.tm_sec),
          static_cast<unsigned>(now.tv_nsec / 1000000)};
}

}  // namespace tolvex::platform
