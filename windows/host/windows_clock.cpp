#include "windows/host/windows_clock.h"

#include <windows.h>

#include <array>
#include <cstdio>

namespace quillet::windows {
namespace {

SYSTEMTIME localTime() {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  return time;
}

}  // namespace

Date WindowsClock::today() const {
  const SYSTEMTIME time = localTime();
  return {time.wYear, time.wMonth, time.wDay};
}

std::string WindowsClock::now() const {
  const SYSTEMTIME time = localTime();
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth,
                time.wDay, time.wHour, time.wMinute, time.wSecond);
  return text.data();
}

}  // namespace quillet::windows
