// Which station has a year open for writing, in the table SuitePresence: one row for each station
// and year, heard of again every half minute. The lowest row that was heard of lately has the year;
// a station that is gone loses it by silence. One that lost it so, or was taken over, has to read
// the year anew before it writes again.
#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ports/year_locks.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class YearPresence {
 public:
  // Nobody is asked, and nothing is told, on a database of our own.
  explicit YearPresence(UnitOfWork& unit);
  ~YearPresence();
  YearPresence(const YearPresence&) = delete;
  YearPresence& operator=(const YearPresence&) = delete;

  // Calls are counted.
  void enter(const std::string& client, const std::string& secondDate, const std::string& person);
  void leave(const std::string& client, const std::string& secondDate);
  // What was lost, where the year is still in the same table.
  void regain(const std::string& client, const std::string& secondDate);
  // Whoever had the year has it no more.
  void takeOver(const std::string& client, const std::string& secondDate,
                const std::string& person);

  // The years that this station must not change: others have them, or had them meanwhile.
  std::vector<LockedYear> others() const;
  // Whether this station has the year no more, though it did not leave it.
  bool lost(const std::string& client, const std::string& secondDate) const;

  // Tells the other stations that this one is still there, when it is time to.
  void beat();

 private:
  using Year = std::pair<std::string, std::string>;  // client, second date
  // Where the registry had the year when it was entered.
  struct Place {
    std::string table;
    long number = 0;
    bool operator==(const Place&) const = default;
  };
  struct Hold {
    int count = 0;
    Place place;
  };
  Place placeOf(const Year& year) const;
  std::string conditionOf(const Year& year) const;
  std::set<Year> present() const;
  static LockedYear hadMeanwhile(const Year& year, const Hold& hold);
  void insert(const Year& year);
  void remove(const Year& year) noexcept;

  UnitOfWork& unit_;
  const bool shared_;
  const std::string station_;  // "DESK2:4711.1"
  std::string person_;
  std::map<Year, Hold> held_;
  std::chrono::steady_clock::time_point heard_;
};

}  // namespace quillet::suite
