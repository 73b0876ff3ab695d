// The financial year of a journal's books, its dates as the date boxes show them: dd/mm/yyyy.
#pragma once

#include <string>

#include "data/dates.h"

namespace quillet {

struct BooksYear {
  int first = 0;  // it begins in April of this one

  std::string from() const { return "01/04/" + std::to_string(first); }
  std::string to() const { return "31/03/" + std::to_string(first + 1); }
  bool holds(const std::string& date) const {
    return compareDates(date, from()) >= 0 && compareDates(date, to()) <= 0;
  }
};

}  // namespace quillet
