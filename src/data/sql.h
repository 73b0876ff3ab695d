// Values as they stand in SQL text.
#pragma once

#include <string>

namespace quillet {

// The shortest text that reads back as the same number: a point, no exponent, whatever the locale.
std::string sqlNumber(double number);
std::string sqlNumber(long number);

// Sent after every statement that changes data.
inline constexpr const char* flushTables = "flush tables";

}  // namespace quillet
