#include "data/money.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

#include "data/errors.h"

namespace quillet {
namespace {

constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();

[[noreturn]] void overflow() { throw RunTimeError(6, "Overflow", "Money"); }

// A hundred times the number as 15 digits write it, so that half a paisa is exactly a half.
double hundredfold(double rupees) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + 24, rupees, std::chars_format::scientific, 14).ptr;
  const std::string_view written(text.data(), end);
  const std::size_t mark = written.find('e');
  int exponent = 0;
  const char* const digits = written.data() + mark + 1;
  std::from_chars(*digits == '+' ? digits + 1 : digits, end, exponent);
  *std::to_chars(text.data() + mark + 1, text.data() + text.size(), exponent + 2).ptr = '\0';
  double result = 0;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

}  // namespace

Money Money::rounded(double rupees) {
  // Refuses what is not a number as well.
  if (!(std::fabs(rupees) < static_cast<double>(greatest) / 100)) overflow();
  double paise = std::round(rupees * 100);
  // Nearly always the tables hold whole paise.
  if (paise / 100 != rupees) paise = std::round(hundredfold(rupees));
  return ofPaise(static_cast<std::int64_t>(paise));
}

Money& Money::operator+=(Money other) {
  if (other.paise_ > 0 ? paise_ > greatest - other.paise_ : paise_ < -greatest - other.paise_) {
    overflow();
  }
  paise_ += other.paise_;
  return *this;
}

}  // namespace quillet
