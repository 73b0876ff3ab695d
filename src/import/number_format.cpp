#include "import/number_format.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "data/text.h"

namespace quillet {
namespace {

// The end of the quoted text, the bracket or the escaped character that begins here; `at` itself
// for any other character.
std::size_t partEnd(std::string_view code, std::size_t at) {
  const char c = code[at];
  if (c == '\\' || c == '_' || c == '*') return std::min(at + 1, code.size() - 1);
  if (c != '"' && c != '[') return at;
  return std::min(code.find(c == '"' ? '"' : ']', at + 1), code.size() - 1);
}

std::vector<std::string_view> sectionsOf(std::string_view code) {
  std::vector<std::string_view> sections;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < code.size(); at = partEnd(code, at) + 1) {
    if (code[at] != ';') continue;
    sections.push_back(code.substr(begin, at - begin));
    begin = at + 1;
  }
  sections.push_back(code.substr(begin));
  return sections;
}

// A section taken apart: the letters that are shown as they stand, and the places of a date.
struct Parts {
  std::string shown;   // anything between the letters is one blank or more
  std::string places;  // unquoted characters in small letters
  std::vector<std::string> brackets;
};

Parts partsOf(std::string_view code) {
  Parts parts;
  for (std::size_t at = 0; at < code.size();) {
    const std::size_t end = partEnd(code, at);
    const std::string_view part = code.substr(at, end - at + 1);
    if (part.front() == '"') {
      parts.shown += part.substr(1, part.size() - (part.size() > 1 && part.back() == '"' ? 2 : 1));
    } else if (part.front() == '\\') {
      parts.shown += part.substr(1);
    } else if (part.starts_with("[$")) {
      parts.shown += part.substr(2, part.find_first_of("-]") - 2);
    } else if (part.front() == '[') {
      parts.brackets.emplace_back(part.substr(1, part.find(']') - 1));
    } else if (part.front() != '_' && part.front() != '*') {
      parts.places +=
          isLetter(part.front()) ? static_cast<char>(part.front() | 0x20) : part.front();
      parts.shown += isLetter(part.front()) ? part.front() : ' ';
    }
    at = end + 1;
  }
  return parts;
}

char sideIn(std::string_view shown) {
  std::string word;
  for (std::size_t at = 0; at <= shown.size(); ++at) {
    if (at < shown.size() && isLetter(shown[at])) {
      word += shown[at];
      continue;
    }
    if (equalIgnoringCase(word, "dr") || equalIgnoringCase(word, "debit")) return 'D';
    if (equalIgnoringCase(word, "cr") || equalIgnoringCase(word, "credit")) return 'C';
    word.clear();
  }
  return 0;
}

NumberFormat::Shows shownBy(const Parts& parts) {
  using Shows = NumberFormat::Shows;
  const auto has = [&](std::string_view any) {
    return parts.places.find_first_of(any) != std::string::npos;
  };
  const bool elapsed = std::any_of(parts.brackets.begin(), parts.brackets.end(), [](const auto& b) {
    return !b.empty() && b.find_first_not_of("hHmMsS") == std::string::npos;
  });
  if (elapsed) return Shows::time;
  if (has("%")) return Shows::percent;
  if (parts.places.find("general") != std::string::npos || has("#?")) return Shows::number;
  if (has("0") && !has(":")) return Shows::number;
  if (has("yd")) return Shows::date;
  if (has("hs")) return Shows::time;
  return has("m") ? Shows::date : Shows::number;
}

bool meets(double number, const std::string& comparison, double limit) {
  if (comparison == "<") return number < limit;
  if (comparison == "<=") return number <= limit;
  if (comparison == ">") return number > limit;
  if (comparison == ">=") return number >= limit;
  if (comparison == "<>") return number != limit;
  return number == limit;
}

}  // namespace

NumberFormat::NumberFormat(std::string_view code) {
  for (const std::string_view section : sectionsOf(code)) sections_.push_back(read(section));
}

NumberFormat::Section NumberFormat::read(std::string_view code) {
  const Parts parts = partsOf(code);
  Section section;
  section.shows = shownBy(parts);
  section.side = section.shows == Shows::number ? sideIn(parts.shown) : '\0';
  section.ownSign = (parts.places + parts.shown).find_first_of("-(") != std::string::npos;
  for (const std::string& bracket : parts.brackets) {
    const std::size_t end = bracket.find_first_not_of("<>=");
    if (end == 0 || end == std::string::npos) continue;
    section.comparison = bracket.substr(0, end);
    std::from_chars(bracket.data() + end, bracket.data() + bracket.size(), section.limit);
  }
  return section;
}

std::size_t NumberFormat::indexOf(double number) const {
  const std::size_t count = std::min<std::size_t>(sections_.size(), 3);  // the fourth is of texts
  const auto applies = [&](std::size_t i) {
    const Section& section = sections_[i];
    if (!section.comparison.empty()) return meets(number, section.comparison, section.limit);
    if (i == 0) return count == 2 ? number >= 0 : number > 0;
    return number < 0;
  };
  for (std::size_t i = 0; i + 1 < count; ++i) {
    if (applies(i)) return i;
  }
  return count - 1;
}

// Whether no other number is shown by this section.
bool NumberFormat::onlyNegative(std::size_t index) const {
  const Section& section = sections_[index];
  if (section.comparison.starts_with('<')) return section.comparison != "<>" && section.limit <= 0;
  if (!section.comparison.empty() || index != 1) return false;
  const Section& first = sections_.front();
  return first.comparison.empty() || (first.comparison.starts_with('>') && first.limit <= 0);
}

bool NumberFormat::hidesSign(double number) const {
  const std::size_t index = indexOf(number);
  return number < 0 && onlyNegative(index) && !sections_[index].ownSign;
}

std::string decimalText(double number) {
  char digits[32];
  // 15 digits are what a spreadsheet keeps; the rest is the noise of binary fractions.
  const auto rounded = std::to_chars(std::begin(digits), std::end(digits), number,
                                     std::chars_format::scientific, 14);
  double kept = 0;
  std::from_chars(digits, rounded.ptr, kept);
  if (kept == 0) return "0";
  char text[400];
  const auto end = std::to_chars(std::begin(text), std::end(text), kept, std::chars_format::fixed);
  return {text, end.ptr};
}

std::string percentText(double number) { return decimalText(number * 100) + '%'; }

std::string dayText(double serial, bool from1904) {
  constexpr double lastDay = 2'958'465;  // of the year 9999
  if (!(serial >= 0 && serial <= lastDay)) return {};
  using namespace std::chrono;
  const auto days = static_cast<int>(serial);
  // The calendar from 1900 has a 29 February 1900, its day 60, that never was.
  const sys_days first = from1904    ? sys_days(1904y / January / 1)
                         : days > 59 ? sys_days(1899y / December / 30)
                                     : sys_days(1899y / December / 31);
  const year_month_day day(first + std::chrono::days(days));
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
  return text;
}

std::string timeText(double serial) {
  constexpr int day = 24 * 60 * 60;
  const auto seconds = std::lround((serial - std::floor(serial)) * day) % day;
  char text[16];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
  return text;
}

}  // namespace quillet
