// The registry of trial balances, the table `master`: one row for each client and financial year.
// Forms spell their look-ups differently; the spelling is an argument where that is so.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/ports.h"

namespace quillet {

// A financial year: "0104" and its first year, "3103" and its second.
struct YearKeys {
  std::string first;
  std::string second;

  YearKeys before() const;   // the keys of the year before
  YearKeys after() const;    // of the year after
  std::string text() const;  // "2008-2009"
  bool operator==(const YearKeys&) const = default;
};

// One row of the registry.
struct RegisteredYear {
  std::string client;
  YearKeys keys;
  std::string firstDate;  // as the host normalises dates
  std::string secondDate;
  std::string table;  // the trial balance's
  long number = 0;    // from which the table's suffix was made
  bool isSigned = false;
};

// How the select of one year is spelt.
enum class YearSelect { home, creation, editor, binding };

class Registry {
 public:
  explicit Registry(ServiceObject& host) : host_(host) {}

  // --- one year

  std::optional<RegisteredYear> year(const std::string& client, const YearKeys& keys,
                                     YearSelect select) const;
  // The client's year in that table.
  std::optional<RegisteredYear> yearIn(const std::string& table, const std::string& client) const;
  // Whether the client has a year in that table; somebody may have deleted it.
  bool has(const std::string& table, const std::string& client) const;
  // The table of the client's year, "" when there is no such year. All rows of the client are read.
  std::string tableOf(const std::string& client, const YearKeys& keys) const;

  // --- many

  // The client's years in their order.
  std::vector<YearKeys> keysOf(const std::string& client) const;
  std::vector<RegisteredYear> yearsOf(const std::string& client) const;
  // The same year of other clients, by client code.
  std::vector<RegisteredYear> others(const std::string& client, const YearKeys& keys) const;
  // The trial-balance tables of every year or of one client's; a table may be "" in old data.
  std::vector<std::string> tables() const;
  std::vector<std::string> tables(const std::string& client) const;

  // --- table numbers

  // The lowest that none of the client's years holds; nothing when all are taken.
  std::optional<long> freeNumber(const std::string& client) const;
  // The trial-balance table that belongs to a number.
  std::string tableOfNumber(long number) const;

  // --- changes

  // Not flushed: from here on the year is there, even if the flush fails.
  void insert(const RegisteredYear& year);
  // Writes the two dates into the year's row.
  void setDates(const RegisteredYear& year);

 private:
  std::vector<RegisteredYear> read(const Sql& select) const;
  std::vector<std::string> readTables(const Sql& select) const;

  ServiceObject& host_;
};

}  // namespace quillet
