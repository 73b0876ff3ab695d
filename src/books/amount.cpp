#include "books/amount.h"

#include <charconv>

#include "data/text.h"

namespace quillet {
namespace {

// What the text says, without sign, commas and leading zeros; nothing when it is no number.
std::optional<std::string> plainDigits(std::string_view text) {
  std::string digits;
  bool point = false;
  bool any = false;
  for (const char c : text) {
    if (c == ',' && any && !point) continue;
    if (c == '.' ? point : (c < '0' || c > '9')) return std::nullopt;
    point = point || c == '.';
    any = any || c != '.';
    if (c != '0' || !digits.empty()) digits += c;
  }
  return any ? std::optional(digits) : std::nullopt;
}

std::string_view withoutSign(std::string_view text) {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  return text;
}

// The part before the point.
std::string_view wholePart(std::string_view digits) { return digits.substr(0, digits.find('.')); }

// A double keeps 15 digits: 13 before the point and the paise, or more of them without paise.
bool keptExactly(std::string_view digits, std::string_view shown) {
  const std::string_view whole = wholePart(digits);
  if (whole.size() <= 13) return true;
  return digits.find_first_not_of(".0", whole.size()) == std::string_view::npos &&
         wholePart(shown) == whole;
}

}  // namespace

std::optional<double> typedAmount(const ServiceObject& host, std::string_view text) {
  text = trimmed(text);
  const bool negative = !text.empty() && text.front() == '-';
  const auto digits = plainDigits(withoutSign(text));
  if (!digits) return std::nullopt;
  double amount = 0;
  const std::string number = digits->empty() || digits->front() == '.' ? '0' + *digits : *digits;
  std::from_chars(number.data(), number.data() + number.size(), amount);
  const std::string shown = host.formatgen(amount, "###0.00");
  if (!keptExactly(*digits, shown)) return std::nullopt;
  std::from_chars(shown.data(), shown.data() + shown.size(), amount);
  return negative ? -amount : amount;
}

std::string notAnAmount(std::string_view text) {
  const std::string typed = '"' + std::string(text) + '"';
  return plainDigits(withoutSign(trimmed(text)))
             ? typed + " is too large: type at most 13 digits before the point."
             : typed + " is not an amount: type digits and at most one point.";
}

double shownAmount(std::string_view text) {
  if (text.find(',') != std::string_view::npos) {
    return shownAmount(replacedAll(std::string(text), ",", ""));
  }
  double amount = 0;
  std::from_chars(text.data(), text.data() + text.size(), amount);
  return amount;
}

}  // namespace quillet
