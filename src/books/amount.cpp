#include "books/amount.h"

#include <charconv>

#include "data/text.h"

namespace quillet {
namespace {

struct Digits {
  std::string whole;  // without leading zeros
  std::string fraction;
};

// What the text says, without sign and commas; nothing when it is no number.
std::optional<Digits> digitsOf(std::string_view text) {
  Digits digits;
  bool point = false;
  bool any = false;
  for (const char c : text) {
    if (c == ',' && any && !point) continue;
    if (c == '.' ? point : (c < '0' || c > '9')) return std::nullopt;
    point = point || c == '.';
    if (c == '.') continue;
    any = true;
    if (point) {
      digits.fraction += c;
    } else if (c != '0' || !digits.whole.empty()) {
      digits.whole += c;
    }
  }
  return any ? std::optional(digits) : std::nullopt;
}

std::string_view withoutSign(std::string_view text) {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  return text;
}

// 0 when the digits are too many.
std::int64_t numberOf(std::string_view digits) {
  std::int64_t number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return read.ec == std::errc() ? number : 0;
}

// A double keeps 15 digits: 13 before the point and the paise, or more of them without paise.
bool keptExactly(const Digits& digits) {
  constexpr std::size_t mostDigits = 16;  // of which a Money still has a hundredfold
  if (digits.whole.size() <= 13) return true;
  if (digits.whole.size() > mostDigits) return false;
  const std::int64_t whole = numberOf(digits.whole);
  return digits.fraction.find_first_not_of('0') == std::string::npos &&
         static_cast<std::int64_t>(static_cast<double>(whole)) == whole;
}

}  // namespace

std::optional<Money> typedAmount(std::string_view text) {
  text = trimmed(text);
  const auto digits = digitsOf(withoutSign(text));
  if (!digits || !keptExactly(*digits)) return std::nullopt;
  const std::string fraction = digits->fraction + "000";
  std::int64_t paise = numberOf(digits->whole + fraction.substr(0, 2));
  if (fraction[2] >= '5') ++paise;
  return Money::ofPaise(text.front() == '-' ? -paise : paise);
}

std::string notAnAmount(std::string_view text) {
  const std::string typed = '"' + std::string(text) + '"';
  return digitsOf(withoutSign(trimmed(text)))
             ? typed + " is too large: type at most 13 digits before the point."
             : typed + " is not an amount: type digits and at most one point.";
}

std::string plainAmount(const ServiceObject& host, double rupees) {
  return host.formatgen(rupees, "###0.00");
}

std::string groupedAmount(const ServiceObject& host, double rupees) {
  return host.formatgen(rupees, "#,##0.00");
}

std::string groupedBalance(const ServiceObject& host, Money balance) {
  if (balance.isZero()) return {};
  return groupedAmount(host, abs(balance)) + (balance < Money() ? " CR" : " DR");
}

Money shownAmount(std::string_view text) {
  const std::string digits = replacedAll(std::string(text), ",", "");
  double rupees = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), rupees);
  return Money::rounded(rupees);
}

}  // namespace quillet
