#include "logs/log_time.h"

#include <array>
#include <cstdio>

#include "platform/clock.h"

namespace tolvex::ctl {
namespace {

constexpr LogTime kSecond = 1000;
constexpr LogTime kMinute = 60 * kSecond;
constexpr LogTime kHour = 60 * kMinute;
constexpr LogTime kDay = 24 * kHour;

// Days from 1970-01-01 in the Gregorian calendar; years count from March, so that the leap day is
// the last one.
std::int64_t daysOf(unsigned year, unsigned month, unsigned day) {
  const std::int64_t y = static_cast<std::int64_t>(year) - (month <= 2 ? 1 : 0);
  const std::int64_t era = y / 400;
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

bool isLeap(unsigned year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

unsigned daysIn(unsigned year, unsigned month) {
  constexpr std::array<unsigned, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeap(year) ? 29 : days[month - 1];
}

struct Date {
  unsigned year, month, day;
};

Date dateOf(std::int64_t days) {
  days += 719468;
  const std::int64_t era = days / 146097;
  const std::int64_t dayOfEra = days - era * 146097;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t fromMarch = (5 * dayOfYear + 2) / 153;
  const auto month = static_cast<unsigned>(fromMarch < 10 ? fromMarch + 3 : fromMarch - 9);
  const std::int64_t year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
  return {static_cast<unsigned>(year), month,
          static_cast<unsigned>(dayOfYear - (153 * fromMarch + 2) / 5 + 1)};
}

// Takes digits from the front of a text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool number(std::size_t least, std::size_t most, unsigned& value) {
    value = 0;
    std::size_t count = 0;
    while (count < most && count < rest_.size() && rest_[count] >= '0' && rest_[count] <= '9') {
      value = value * 10 + static_cast<unsigned>(rest_[count++] - '0');
    }
    rest_.remove_prefix(count);
    return count >= least;
  }
  bool one(std::string_view characters) {
    if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    return true;
  }
  bool atEnd() const { return rest_.empty(); }
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// Up to three digits behind the point, as milliseconds.
bool readFraction(Scanner& scanner, unsigned& millisecond) {
  const std::size_t before = scanner.rest().size();
  if (!scanner.number(1, 3, millisecond)) return false;
  for (std::size_t digits = before - scanner.rest().size(); digits < 3; ++digits) millisecond *= 10;
  return true;
}

// "08:00", "08:00:30", "08:00:30.5" as milliseconds of the day.
std::optional<LogTime> readClock(Scanner& scanner) {
  unsigned hour = 0;
  unsigned minute = 0;
  unsigned second = 0;
  unsigned millisecond = 0;
  if (!scanner.number(1, 2, hour) || !scanner.one(":") || !scanner.number(2, 2, minute)) return {};
  if (scanner.one(":") && !scanner.number(2, 2, second)) return {};
  if (scanner.one(".,") && !readFraction(scanner, millisecond)) return {};
  if (hour > 23 || minute > 59 || second > 59) return {};
  return hour * kHour + minute * kMinute + second * kSecond + millisecond;
}

std::optional<LogTime> readAgo(std::string_view text, LogTime now) {
  Scanner scanner(text);
  unsigned count = 0;
  if (!scanner.number(1, 6, count) || scanner.rest().size() != 1) return {};
  switch (scanner.rest().front()) {
    case 's':
      return now - count * kSecond;
    case 'm':
      return now - count * kMinute;
    case 'h':
      return now - count * kHour;
    case 'd':
      return now - count * kDay;
    default:
      return {};
  }
}

std::optional<LogTime> readDateAndClock(std::string_view text) {
  Scanner scanner(text);
  unsigned year = 0;
  unsigned month = 0;
  unsigned day = 0;
  if (!scanner.number(4, 4, year) || !scanner.one("-") || !scanner.number(2, 2, month) ||
      !scanner.one("-") || !scanner.number(2, 2, day)) {
    return {};
  }
  const std::optional<LogTime> date = logTime(year, month, day, 0, 0, 0, 0);
  if (!date || scanner.atEnd()) return date;
  if (!scanner.one(" T")) return {};
  const std::optional<LogTime> clock = readClock(scanner);
  if (!clock || !scanner.atEnd()) return {};
  return *date + *clock;
}

}  // namespace

std::optional<LogTime> logTime(unsigned year, unsigned month, unsigned day, unsigned hour,
                               unsigned minute, unsigned second, unsigned millisecond) {
  if (year < 1 || month < 1 || month > 12 || day < 1 || day > daysIn(year, month)) return {};
  // A leap second is 60.
  if (hour > 23 || minute > 59 || second > 60 || millisecond > 999) return {};
  return daysOf(year, month, day) * kDay + hour * kHour + minute * kMinute + second * kSecond +
         millisecond;
}

LogTime currentLogTime() {
  const tolvex::platform::LocalTime now = tolvex::platform::localTime();
  return logTime(now.year, now.month, now.day, now.hour, now.minute, now.second, now.millisecond)
      .value_or(0);
}

std::string logTimeText(LogTime time, char separator) {
  std::int64_t days = time / kDay;
  if (time % kDay < 0) --days;
  const Date date = dateOf(days);
  const LogTime clock = time - days * kDay;
  char text[64];
  std::snprintf(
      text, sizeof(text), "%04u-%02u-%02u%c%02u:%02u:%02u.%03u", date.year, date.month, date.day,
      separator, static_cast<unsigned>(clock / kHour), static_cast<unsigned>(clock / kMinute % 60),
      static_cast<unsigned>(clock / kSecond % 60), static_cast<unsigned>(clock % kSecond));
  return text;
}

std::optional<LogTime> parseLogTime(std::string_view text, LogTime now) {
  if (const std::optional<LogTime> ago = readAgo(text, now)) return ago;
  if (const std::optional<LogTime> time = readDateAndClock(text)) return time;
  Scanner scanner(text);
  const std::optional<LogTime> clock = readClock(scanner);
  if (!clock || !scanner.atEnd()) return {};
  std::int64_t today = now / kDay;
  if (now % kDay < 0) --today;
  return today * kDay + *clock;
}

}  // namespace tolvex::ctl
