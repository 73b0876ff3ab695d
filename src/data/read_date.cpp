// Dates as people write them.
#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "data/dates.h"
#include "data/text.h"

namespace quillet {
namespace {

// "1st Apr., 2008" into "1", "Apr", "2008": runs of digits and of letters. Nothing when another
// character than a separator stands between.
std::optional<std::vector<std::string>> partsWithin(std::string_view text) {
  std::vector<std::string> parts;
  for (std::size_t i = 0; i < text.size();) {
    if (!isDigit(text[i]) && !isLetter(text[i])) {
      if (std::string_view("/-., ").find(text[i]) == std::string_view::npos) return std::nullopt;
      ++i;
      continue;
    }
    const auto same = isDigit(text[i]) ? isDigit : isLetter;
    const std::size_t begin = i;
    while (i < text.size() && same(text[i])) ++i;
    parts.emplace_back(text.substr(begin, i - begin));
  }
  return parts;
}

// Without the time that follows a date: " 10:30:00", "T10:30".
std::string_view withoutTime(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return text;
  const std::size_t before = text.find_last_of(" T", colon);
  return before == std::string_view::npos ? text : text.substr(0, before);
}

int valueOf(const std::string& digits) {
  int value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  return value;
}

// 1 to 12 for a name of at least three letters, else 0.
int monthNamed(const std::string& part) {
  std::string name;
  for (const char c : part) name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (name.size() < 3) return 0;
  for (std::size_t i = 0; i < monthNames.size(); ++i) {
    if (monthNames[i].starts_with(name)) return static_cast<int>(i) + 1;
  }
  return 0;
}

std::optional<int> yearOf(const std::string& digits) {
  if (digits.size() == 4) return valueOf(digits);
  if (digits.size() != 2) return std::nullopt;
  const int value = valueOf(digits);
  return value < 30 ? 2000 + value : 1900 + value;
}

bool allDigits(const std::string& part) { return std::all_of(part.begin(), part.end(), isDigit); }

std::optional<Date> checked(std::optional<int> year, int month, int day) {
  const Date date{year.value_or(0), month, day};
  return exists(date) ? std::optional(date) : std::nullopt;
}

// "01042008" and "010408".
std::optional<Date> fromRun(const std::string& digits) {
  if (digits.size() != 8 && digits.size() != 6) return std::nullopt;
  return checked(yearOf(digits.substr(4)), valueOf(digits.substr(2, 2)),
                 valueOf(digits.substr(0, 2)));
}

std::optional<Date> fromThree(const std::string& a, const std::string& b, const std::string& c) {
  const auto isDay = [](const std::string& part) { return allDigits(part) && part.size() <= 2; };
  if (!allDigits(c)) return std::nullopt;
  if (allDigits(a) && a.size() == 4 && isDay(b) && isDay(c)) {
    return checked(valueOf(a), valueOf(b), valueOf(c));
  }
  if (isDay(a) && isDay(b)) return checked(yearOf(c), valueOf(b), valueOf(a));
  if (isDay(a) && monthNamed(b) > 0) return checked(yearOf(c), monthNamed(b), valueOf(a));
  if (monthNamed(a) > 0 && isDay(b)) return checked(yearOf(c), monthNamed(a), valueOf(b));
  return std::nullopt;
}

}  // namespace

std::optional<Date> readDate(std::string_view text) {
  std::optional<std::vector<std::string>> parts = partsWithin(trimmed(withoutTime(trimmed(text))));
  if (!parts) return std::nullopt;
  if (parts->size() == 1 && allDigits(parts->front())) return fromRun(parts->front());
  // The letters after a number, as in "1st".
  std::erase_if(*parts, [](const std::string& part) {
    return part == "st" || part == "nd" || part == "rd" || part == "th";
  });
  if (parts->size() != 3) return std::nullopt;
  return fromThree((*parts)[0], (*parts)[1], (*parts)[2]);
}

}  // namespace quillet
