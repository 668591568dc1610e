#include "platform/clock.h"

#include <ctime>

namespace tolvex::platform {
namespace {

// The latest second that the thread asked for: within a second only the milliseconds change, and the
// conversion would take as long as all else that a log record is made of.
struct LatestSecond {
  std::time_t second = -1;
  LocalTime time = {};
};

thread_local LatestSecond latest;

LocalTime converted(std::time_t second) {
  tm local = {};
  localtime_r(&second, &local);
  return {static_cast<unsigned>(local.tm_year + 1900),
          static_cast<unsigned>(local.tm_mon + 1),
          static_cast<unsigned>(local.tm_mday),
          static_cast<unsigned>(local.tm_hour),
          static_cast<unsigned>(local.tm_min),
          static_cast<unsigned>(local.tm_sec),
          0};
}

}  // namespace

LocalTime localTime() {
  timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  if (latest.second != now.tv_sec) latest = {now.tv_sec, converted(now.tv_sec)};
  LocalTime time = latest.time;
  time.millisecond = static_cast<unsigned>(now.tv_nsec / 1000000);
  return time;
}

std::int64_t coarseMilliseconds() {
  timespec now = {};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

}  // namespace tolvex::platform
