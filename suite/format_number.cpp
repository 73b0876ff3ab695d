#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "data/errors.h"
#include "data/text.h"
#include "suite/format.h"

namespace quillet::suite {
namespace {

constexpr int significantDigits = 15;

// The decimal number 0.DIGITS times ten to the power of `point`, without its sign.
struct Decimal {
  std::string digits;
  int point = 0;
};

Decimal decimalOf(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.begin(), text.end(), std::abs(number),
                                 std::chars_format::scientific, significantDigits - 1)
                       .ptr;
  const char* const e = std::find<const char*>(text.begin(), end, 'e');
  int exponent = 0;
  std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, exponent);
  Decimal decimal;
  std::copy_if<const char*>(text.begin(), e, std::back_inserter(decimal.digits),
                            [](char c) { return c != '.'; });
  decimal.point = exponent + 1;
  return decimal;
}

struct Parts {
  std::string whole;     // without zeros in front
  std::string fraction;  // as many digits as asked for
  bool isZero() const {
    return whole.empty() && fraction.find_first_not_of('0') == std::string::npos;
  }
};

Parts roundedTo(Decimal decimal, std::size_t places) {
  // Zeros in front, so that the digits begin at or before the point.
  if (decimal.point < 0) {
    decimal.digits.insert(0, -decimal.point, '0');
    decimal.point = 0;
  }
  const std::size_t kept = decimal.point + places;
  if (decimal.digits.size() > kept) {
    const bool up = decimal.digits[kept] >= '5';
    decimal.digits.resize(kept);
    if (up && increment(decimal.digits)) ++decimal.point;
  } else {
    decimal.digits.resize(kept, '0');
  }
  Parts parts{decimal.digits.substr(0, decimal.point), decimal.digits.substr(decimal.point)};
  parts.whole.erase(0, std::min(parts.whole.find_first_not_of('0'), parts.whole.size()));
  return parts;
}

// One section of a format: texts around the places for digits.
struct Section {
  std::string_view before;
  std::string_view after;
  std::size_t leastWhole = 0;     // zeros before the point
  std::size_t leastFraction = 0;  // zeros after it
  std::size_t mostFraction = 0;   // zeros and number signs after it
  bool grouped = false;
  bool point = false;
};

Section sectionOf(std::string_view text) {
  // A point or comma before the first place belongs to the text in front.
  const std::size_t begin = std::min(text.find_first_of("#0"), text.size());
  const std::size_t end = std::min(text.find_first_not_of("#0,.", begin), text.size());
  Section section{text.substr(0, begin), text.substr(end)};
  for (const char c : text.substr(begin, end - begin)) {
    if (c == '.') {
      section.point = true;
    } else if (c == ',') {
      section.grouped = true;
    } else if (section.point) {
      ++section.mostFraction;
      if (c == '0') section.leastFraction = section.mostFraction;
    } else if (c == '0') {
      ++section.leastWhole;
    }
  }
  return section;
}

std::string grouped(const std::string& whole) {
  std::string result;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (i > 0 && (whole.size() - i) % 3 == 0) result += ',';
    result += whole[i];
  }
  return result;
}

std::string written(const Parts& parts, const Section& section) {
  std::string whole = parts.whole;
  if (whole.size() < section.leastWhole) whole.insert(0, section.leastWhole - whole.size(), '0');
  std::string fraction = parts.fraction;
  while (fraction.size() > section.leastFraction && fraction.back() == '0') fraction.pop_back();
  std::string text = section.grouped ? grouped(whole) : whole;
  if (section.point) text += '.' + fraction;
  return text;
}

// The everyday case, a grid's thousands of amounts: whole paise of at most 15 digits in the plain
// format need no decimal expansion. Nothing for any other number or format.
std::optional<std::string> plainPaise(double number, std::string_view format) {
  constexpr double limit = 1e13;
  const double size = std::abs(number);
  if (format != "###0.00" || !(size < limit)) return std::nullopt;
  const double paise = std::round(size * 100);
  if (paise / 100 != size) return std::nullopt;
  std::array<char, 24> text{};
  char* const begin = text.data() + 1;
  const auto whole = static_cast<long long>(paise) / 100;
  const auto rest = static_cast<int>(static_cast<long long>(paise) % 100);
  char* end = std::to_chars(begin, text.data() + text.size(), whole).ptr;
  *end++ = '.';
  *end++ = static_cast<char>('0' + rest / 10);
  *end++ = static_cast<char>('0' + rest % 10);
  const bool negative = number < 0 && paise > 0;
  text[0] = '-';
  return std::string(negative ? text.data() : begin, end);
}

}  // namespace

std::string formatNumber(double number, std::string_view format) {
  if (!std::isfinite(number)) throw RunTimeError(6, "Overflow", "formatgen");
  if (auto plain = plainPaise(number, format)) return *std::move(plain);
  const std::size_t semicolon = format.find(';');
  const bool ownNegative = semicolon != std::string_view::npos;
  const Section positive = sectionOf(format.substr(0, semicolon));
  const Section negative = ownNegative ? sectionOf(format.substr(semicolon + 1)) : positive;

  const Section& chosen = number < 0 ? negative : positive;
  const Parts parts = roundedTo(decimalOf(number), chosen.mostFraction);
  if (number < 0 && !parts.isZero()) {
    const std::string text =
        std::string(negative.before) + written(parts, negative) + std::string(negative.after);
    return ownNegative ? text : '-' + text;
  }
  return std::string(positive.before) + written(parts, positive) + std::string(positive.after);
}

}  // namespace quillet::suite
