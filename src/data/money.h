// An amount of money in whole paise. What is reckoned with it is exact; a sum that no longer fits
// is a run-time error and never another amount.
#pragma once

#include <compare>
#include <cstdint>

namespace quillet {

class Money {
 public:
  constexpr Money() = default;
  static constexpr Money ofPaise(std::int64_t paise) {
    Money money;
    money.paise_ = paise;
    return money;
  }
  // A number of rupees as the tables keep it, rounded as on paper: halves of a paisa go away from
  // zero, and what a binary number of 15 digits cannot tell from a half is one.
  static Money rounded(double rupees);

  constexpr std::int64_t paise() const { return paise_; }
  // For the tables and for number formats: the nearest number, at any size.
  constexpr double rupees() const {
    constexpr std::int64_t exact = std::int64_t{1} << 53;
    if (-exact <= paise_ && paise_ <= exact) return static_cast<double>(paise_) / 100;
    const std::int64_t whole = paise_ / 100;
    return static_cast<double>(whole) + static_cast<double>(paise_ % 100) / 100;
  }
  constexpr bool isZero() const { return paise_ == 0; }

  Money& operator+=(Money other);
  Money& operator-=(Money other) { return *this += -other; }
  friend Money operator+(Money a, Money b) { return a += b; }
  friend Money operator-(Money a, Money b) { return a -= b; }
  // The range of amounts lies evenly around zero.
  friend constexpr Money operator-(Money money) { return ofPaise(-money.paise_); }
  friend constexpr Money abs(Money money) { return money.paise_ < 0 ? -money : money; }
  // The linter takes a zero of the compiler for a pointer.
  friend constexpr auto operator<=>(Money, Money) = default;  // NOLINT(modernize-use-nullptr)

 private:
  std::int64_t paise_ = 0;
};

}  // namespace quillet
