// Instants of the history: microseconds since 1970 in universal time. An act has one that no other
// act has, and its rows begin and end at it.
#pragma once

#include <cstdint>
#include <string>

#include "data/dates.h"

namespace quillet::suite {

using Instant = std::int64_t;
inline constexpr Instant oneSecond = 1'000'000;
inline constexpr Instant oneDay = 24L * 3600 * oneSecond;

// As the database reads it: "2026-03-31 09:15:00.000001".
std::string instantText(Instant instant);
// 0 when the text is none.
Instant instantFrom(const std::string& text);
// As a person reads it, by the clock of this computer: "31/03/2026 14:45:00".
std::string localTime(Instant instant);
// "31/03/2026", the day of it.
std::string localDay(Instant instant);
// The instant of a time by the clock of this computer.
Instant localInstant(Date day, int hour = 0, int minute = 0, int second = 0);
// The first instant of the day after.
Instant dayAfter(Date day);
// By the computer's clock.
Instant instantNow();

}  // namespace quillet::suite
