// Instants of the history: microseconds since 1970 in universal time. An act has one that no other
// act has, and its rows begin and end at it.
#pragma once

#include <cstdint>
#include <string>

namespace quillet::suite {

using Instant = std::int64_t;

// As the database reads it: "2026-03-31 09:15:00.000001".
std::string instantText(Instant instant);
// 0 when the text is none.
Instant instantFrom(const std::string& text);
// As a person reads it, by the clock of this computer: "2026-03-31 14:45:00".
std::string localTime(Instant instant);
// By the computer's clock.
Instant instantNow();

}  // namespace quillet::suite
