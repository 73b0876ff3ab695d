#include <cctype>
#include <string>
#include <string_view>

#include "suite/format.h"

namespace quillet::suite {
namespace {

std::string padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

std::string monthText(int month, std::size_t letters) {
  if (letters < 3) return padded(month, letters);
  std::string name(monthNames.at(month - 1));
  name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return letters == 3 ? name.substr(0, 3) : name;
}

}  // namespace

std::string normalisedDate(std::string_view text) {
  const std::optional<Date> date = readDate(text);
  return date ? formatDate(*date, "DD/MM/YYYY") : std::string();
}

std::string formatDate(Date date, std::string_view format) {
  std::string result;
  for (std::size_t i = 0; i < format.size();) {
    const char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(format[i])));
    std::size_t run = 1;
    while (i + run < format.size() &&
           std::tolower(static_cast<unsigned char>(format[i + run])) == letter) {
      ++run;
    }
    if (letter == 'd') {
      result += padded(date.day, run);
    } else if (letter == 'm') {
      result += monthText(date.month, run);
    } else if (letter == 'y') {
      result += run <= 2 ? padded(date.year % 100, 2) : padded(date.year, 4);
    } else {
      result += format.substr(i, run);
    }
    i += run;
  }
  return result;
}

}  // namespace quillet::suite
