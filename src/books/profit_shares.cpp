#include "books/profit_shares.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace quillet {
namespace {

constexpr long perCent = wholeShare / 100;
constexpr std::size_t mostDecimals = 4;

bool areDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](unsigned char c) { return std::isdigit(c) != 0; });
}

std::string_view bareNumber(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '%')) text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<long> typedPercent(std::string_view text) {
  text = bareNumber(text);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view whole = text.substr(0, point);
  const std::string_view part = text.substr(std::min(point + 1, text.size()));
  if (whole.size() + part.size() == 0 || whole.size() > 3 || part.size() > mostDecimals ||
      !areDigits(whole) || !areDigits(part)) {
    return std::nullopt;
  }
  std::string digits(part);
  digits.resize(mostDecimals, '0');
  const long millionths =
      (whole.empty() ? 0 : std::stol(std::string(whole))) * perCent + std::stol(digits);
  return millionths > wholeShare ? std::nullopt : std::optional(millionths);
}

std::string percentText(long millionths) {
  std::string decimals = std::to_string(perCent + millionths % perCent).substr(1);
  decimals.erase(decimals.find_last_not_of('0') + 1);
  return std::to_string(millionths / perCent) + (decimals.empty() ? "" : '.' + decimals);
}

long sumOf(const std::vector<ProfitShare>& shares) {
  return std::accumulate(shares.begin(), shares.end(), 0L,
                         [](long sum, const ProfitShare& share) { return sum + share.millionths; });
}

std::vector<Money> amountsOf(Money amount, const std::vector<ProfitShare>& shares) {
  const std::int64_t paise = abs(amount).paise();
  std::vector<std::int64_t> parts;
  std::vector<std::pair<std::int64_t, std::size_t>>
      remainders;  // negative, so that large are first
  std::int64_t left = paise;
  for (const ProfitShare& share : shares) {
    // The product of the two would not fit.
    const std::int64_t rest = paise % wholeShare * share.millionths;
    parts.push_back(paise / wholeShare * share.millionths + rest / wholeShare);
    remainders.emplace_back(-(rest % wholeShare), remainders.size());
    left -= parts.back();
  }
  std::sort(remainders.begin(), remainders.end());
  for (auto next = remainders.begin(); left > 0 && next != remainders.end(); ++next, --left) {
    ++parts[next->second];
  }
  std::vector<Money> amounts;
  for (const std::int64_t part : parts) {
    amounts.push_back(Money::ofPaise(amount < Money() ? -part : part));
  }
  return amounts;
}

}  // namespace quillet
