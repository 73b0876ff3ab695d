// The tables of one number: the books of all clients that have a year there.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "suite/check/finding.h"
#include "suite/check/masters.h"
#include "suite/check/registered_years.h"
#include "suite/database.h"

namespace quillet::suite::check {

class YearTables {
 public:
  // Locked, nobody else changes what was read until the transaction ends.
  YearTables(Database& database, const RegisteredYears& years, const Masters& masters,
             std::string trialBalance, bool locked)
      : database_(database),
        years_(years),
        masters_(masters),
        trialBalance_(std::move(trialBalance)),
        locked_(locked) {}

  void examine(Examined& examined);

  // What mending must not change, summed by the database: the balance of each client's ledgers, and
  // the amounts and lines of each pair in the journal.
  std::string figures();

 private:
  // Whose rows they are: a year of the registry, else a client without one in this table.
  struct Owner {
    long year = 0;
    std::string client;  // of those without
    auto operator<=>(const Owner&) const = default;
  };
  std::string sibling(const char* prefix) const;
  template <class Row, class Read>
  std::map<Owner, std::vector<Row>> read(const std::string& table, const std::string& columns,
                                         Read read);
  // Judges the rows of each registered year, and reports the others.
  template <class Row, class Judge>
  void examineEach(const std::string& table, const std::map<Owner, std::vector<Row>>& byOwner,
                   Judge judge, Examined& examined);
  void reportUnregistered(const Owner& owner, const std::string& table, std::size_t rows,
                          Examined& examined) const;
  Place placeOf(const Owner& owner, const std::string& table) const;

  void examineTrialBalances(Examined& examined);
  void examineJournals(Examined& examined);
  void examineSchedules(Examined& examined);

  Database& database_;
  const RegisteredYears& years_;
  const Masters& masters_;
  std::string trialBalance_;
  bool locked_;
};

}  // namespace quillet::suite::check
