// A client's year on its way into the registry, and what it takes over from the year before it.
#pragma once

#include <optional>
#include <string>

#include "books/registry.h"

namespace quillet {

class YearCreation {
 public:
  explicit YearCreation(ServiceObject& host) : host_(host), registry_(host) {}

  // Begins with the year that two valid dates ask for; it has neither table nor row yet.
  void begin(const std::string& client, const std::string& firstDate,
             const std::string& secondDate);
  // The year, its dates as they were typed.
  const RegisteredYear& year() const { return year_; }
  // Whether its row is known to stand in the registry.
  bool registered() const { return registered_; }

  // The row that the client has of this year.
  std::optional<RegisteredYear> existing() const;
  // The year goes into the table of such a row, even if the row is deleted before.
  void takeTableOf(const RegisteredYear& row);
  // Whether the row still stands is asked anew, since others may have changed it.
  void findRow();
  // Takes the lowest free table number; false when there is none.
  bool takeFreeTable();
  void takeTable(const std::string& table) { year_.table = table; }

  // Writes the year's row. One that stands stays, with the annexure that hangs on it; dates that
  // differ are updated. From the insert on the year is registered, even if the flush fails.
  void registerYear();
  // Writes the row of a year that is not registered; the flush after it is the caller's.
  void insertRow();

  // The latest year that ends before this one; years may have gaps.
  std::optional<RegisteredYear> previous() const;
  // Copies the client's lines of that table, with their amounts or with none.
  void copyLines(const std::string& previousTable, bool figures);

 private:
  RegisteredYear normalised() const;
  long lastSerial(const Sql& table) const;

  ServiceObject& host_;
  Registry registry_;
  RegisteredYear year_;
  bool registered_ = false;
  std::string keptDates_[2];  // of the row that stands
};

}  // namespace quillet
