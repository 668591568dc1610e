#include "control/iso_time.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace tolvex::sim {

namespace {

struct Date {
  std::int64_t year;
  int month;
  int day;
};

// The Gregorian calendar by arithmetic, because the functions of the systems differ and some share
// one buffer between threads. Years begin in March here, so that the leap day comes last.
Date dateOf(std::int64_t daysSince1970) {
  constexpr std::int64_t kDaysFromYear0 = 719468;
  constexpr std::int64_t kDaysOfEra = 146097;  // 400 years
  const std::int64_t days = daysSince1970 + kDaysFromYear0;
  const std::int64_t era = days / kDaysOfEra;
  const std::int64_t dayOfEra = days % kDaysOfEra;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const auto march = static_cast<int>((5 * dayOfYear + 2) / 153);
  const int month = march < 10 ? march + 3 : march - 9;
  const auto day = static_cast<int>(dayOfYear - (153 * march + 2) / 5 + 1);
  return {era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month, day};
}

}  // namespace

std::string isoTime(std::chrono::system_clock::time_point time) {
  constexpr std::int64_t kMillisecondsPerDay = 86'400'000;
  const std::int64_t all =
      std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
  const Date date = dateOf(all / kMillisecondsPerDay);
  const auto rest = static_cast<int>(all % kMillisecondsPerDay);
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ",
                static_cast<int>(date.year), date.month, date.day, rest / 3'600'000,
                rest / 60'000 % 60, rest / 1000 % 60, rest % 1000);
  return text.data();
}

}  // namespace tolvex::sim
