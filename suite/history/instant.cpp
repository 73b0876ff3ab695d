#include "suite/history/instant.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace quillet::suite {
namespace {

using std::chrono::microseconds;
using Time = std::chrono::sys_time<microseconds>;

}  // namespace

std::string instantText(Instant instant) {
  const Time time{microseconds(instant)};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  char text[40];
  std::snprintf(
      text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d.%06d", static_cast<int>(date.year()),
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
      static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
      static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
  return text;
}

Instant instantFrom(const std::string& text) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  int hour = 0;
  int minute = 0;
  int seconds = 0;
  char fraction[7] = "";
  const int read = std::sscanf(text.c_str(), "%d-%u-%u %d:%d:%d.%6[0-9]", &year, &month, &day,
                               &hour, &minute, &seconds, fraction);
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                         std::chrono::day(day)};
  if (read < 3 || !date.ok()) return 0;
  std::string digits(fraction);
  digits.resize(6, '0');
  const auto time = std::chrono::sys_days(date) + std::chrono::hours(hour) +
                    std::chrono::minutes(minute) + std::chrono::seconds(seconds);
  return std::chrono::duration_cast<microseconds>(time.time_since_epoch()).count() +
         std::stol(digits);
}

std::string localTime(Instant instant) {
  const std::time_t time = instant / oneSecond;
  std::tm local{};
  localtime_r(&time, &local);
  char text[24];
  std::strftime(text, sizeof text, "%d/%m/%Y %H:%M:%S", &local);
  return text;
}

std::string localDay(Instant instant) { return localTime(instant).substr(0, 10); }

Instant localInstant(Date day, int hour, int minute, int seconds) {
  std::tm local{};
  local.tm_year = day.year - 1900;
  local.tm_mon = day.month - 1;
  local.tm_mday = day.day;
  local.tm_hour = hour;
  local.tm_min = minute;
  local.tm_sec = seconds;
  local.tm_isdst = -1;
  return static_cast<Instant>(std::mktime(&local)) * oneSecond;
}

Instant dayAfter(Date day) { return localInstant({day.year, day.month, day.day + 1}); }

Instant instantNow() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<microseconds>(now).count();
}

}  // namespace quillet::suite
