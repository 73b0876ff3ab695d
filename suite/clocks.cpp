#include "suite/clocks.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace quillet::suite {
namespace {

std::tm localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return parts;
}

std::string text(const char* format, const std::tm& parts) {
  std::array<char, 32> buffer{};
  return {buffer.data(), std::strftime(buffer.data(), buffer.size(), format, &parts)};
}

}  // namespace

Date SystemClock::today() const {
  const std::tm parts = localTime();
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

std::string SystemClock::now() const { return text("%Y-%m-%d %H:%M:%S", localTime()); }

Date FixedClock::today() const { return date_ ? *date_ : SystemClock().today(); }

std::string FixedClock::now() const {
  if (!date_) return SystemClock().now();
  std::tm parts{};
  parts.tm_year = date_->year - 1900;
  parts.tm_mon = date_->month - 1;
  parts.tm_mday = date_->day;
  parts.tm_hour = 12;
  return text("%Y-%m-%d %H:%M:%S", parts);
}

}  // namespace quillet::suite
