// The registry of years as it stands in `master`, and what holds for it: a client's year stands
// there once, has a table of its own that belongs to its number, and client and tables are there.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "suite/check/finding.h"
#include "suite/database.h"

namespace quillet::suite::check {

// "01042008" and "31032009": the days on which a year begins and ends.
bool areKeys(const YearKeys& keys);

class RegisteredYears {
 public:
  RegisteredYears(Database& database, ServiceObject& host);

  // In capitals: the trial balances of all years and of all numbers, as far as they are there.
  std::vector<std::string> trialBalances() const;
  bool hasTable(const std::string& name) const;
  // The year that stands in that row of the registry, with the table given.
  Place placeOf(long rowId, const std::string& table) const;
  // The client's year in that table.
  Place placeIn(const std::string& table, const std::string& client) const;

  std::size_t years() const { return rows_.size(); }
  std::size_t clients() const;

  void examine(Examined& examined) const;

 private:
  struct Row {
    Place place;  // the table in capitals
    long rowId = 0;
    long number = 0;
    std::vector<std::string> fields;  // all of them
  };
  struct Stranger {
    std::string client;  // the code
    std::string quoted;  // for a statement
    std::string years;
  };
  static void examineStranger(const Stranger& stranger, Examined& examined);
  void examineRow(const Row& row, Examined& examined) const;
  void examineTwins(Examined& examined) const;
  static void examineTwin(const Row& row, const Row& first, Examined& examined);

  ServiceObject& host_;
  std::vector<Row> rows_;  // in the order of their entry
  std::vector<Stranger> strangers_;
  std::set<std::string> tables_;  // in capitals
};

}  // namespace quillet::suite::check
