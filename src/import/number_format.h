// What the number format of a workbook's cell says about its number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

class NumberFormat {
 public:
  enum class Shows : std::uint8_t { number, percent, date, time };

  // As a workbook stores it: 0.00" Dr";0.00" Cr"
  explicit NumberFormat(std::string_view code);

  Shows shows(double number) const { return sectionOf(number).shows; }
  // 'D' or 'C' when this number is shown with "Dr" or "Cr", else 0.
  char side(double number) const { return sectionOf(number).side; }
  // Whether a negative number is shown without its sign.
  bool hidesSign(double number) const;

 private:
  struct Section {
    Shows shows = Shows::number;
    char side = 0;
    std::string comparison;  // "<", "<=", ...; empty without a condition
    double limit = 0;
    bool ownSign = false;  // a minus or a bracket stands in it
  };
  static Section read(std::string_view code);
  std::size_t indexOf(double number) const;
  const Section& sectionOf(double number) const { return sections_[indexOf(number)]; }
  bool onlyNegative(std::size_t index) const;

  std::vector<Section> sections_;  // one at least
};

// The shortest decimal digits with a point that tell the number to 15 digits: 0.30000000000000004
// is "0.3", 1.5E+15 "1500000000000000".
std::string decimalText(double number);
// Of the day that a workbook counts: "2026-03-31"; empty when there is none. Some count from 1904.
std::string dayText(double serial, bool from1904);
// "12.5%" of 0.125.
std::string percentText(double number);
// The time of the day, "13:45:00".
std::string timeText(double serial);

}  // namespace quillet
