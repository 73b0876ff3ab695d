// Which station has a year open for writing, in the table SuitePresence: one row for each station
// and year, heard of again every half minute. The lowest row that was heard of lately has the year;
// a station that is gone loses it by silence. One that lost it so, or was taken over, has to read
// the year anew before it writes again.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ports/year_locks.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

// Of a row that counts: by the clock of the server, whatever the session's timestamp is set to.
// Five beats may be missed, and what an act takes from its turn on.
std::string heardLately(std::chrono::seconds ofAct = {});

class YearPresence {
 public:
  using Year = std::pair<std::string, std::string>;  // client, second date

  // Nobody is asked, and nothing is told, on a database of our own.
  explicit YearPresence(UnitOfWork& unit);
  ~YearPresence();
  YearPresence(const YearPresence&) = delete;
  YearPresence& operator=(const YearPresence&) = delete;

  // Another station has the year; else this one has it from now on, in that table. Calls without
  // that are counted. Those for a year that the registry has elsewhere, or not at all, are as well:
  // it is gone, and this station is not present there.
  std::optional<YearLock> enter(const std::string& client, const std::string& secondDate,
                                const std::string& table, const std::string& person,
                                YearLocks::Purpose purpose);
  // Whether the registry has the year in that table.
  bool stands(const std::string& client, const std::string& secondDate,
              const std::string& table) const;
  void leave(const std::string& client, const std::string& secondDate);
  // What was lost, where the year is still in the same table.
  void regain(const std::string& client, const std::string& secondDate);
  unsigned regained(const std::string& client, const std::string& secondDate) const;
  // Whoever had the year has it no more.
  void takeOver(const std::string& client, const std::string& secondDate,
                const std::string& person);

  // The years that this station must not change: others have them, or had them meanwhile. What is
  // given is sent before, in the same request.
  std::vector<LockedYear> others(const std::vector<std::string>& before = {});

  // The same ahead of a commit, with which the station is heard of when the act took long.
  std::vector<LockedYear> othersAtCommit();

  // Whether a form is open on any year that this station has.
  bool any() const;
  // Those of these years whose row here still counts; asked of the server.
  std::set<Year> kept();
  // The station is heard of again with all its years. Only for a silence in which nobody stored
  // anything.
  void revive();

  // Tells the other stations that this one is still there, when it is time to. `undisturbed`: none
  // of them has done anything since this one looked last, so a silence has lost nothing.
  void beat(bool undisturbed, std::chrono::steady_clock::time_point now);
  // The same while a person thinks over a question in the midst of an act.
  void beatOverQuestion(std::chrono::steady_clock::time_point now) noexcept;

 private:
  // Where the registry has a year; nothing of a year that it has not.
  struct Place {
    std::string table;
    long number = 0;
    bool isAt(const std::string& wanted) const;
  };
  struct Hold {
    int count = 0;
    bool isShown = false;   // by a form
    unsigned regained = 0;  // how often
    Place place;            // where it was entered; the number from when its row was first read
    bool gone = false;      // from there
  };
  Place placeOf(const Year& year) const;
  std::string conditionOf(const Year& year) const;
  static LockedYear hadMeanwhile(const Year& year, const Hold& hold);
  std::string deletionOfSilent(const Year& year) const;
  std::string insertion(const Year& year) const;
  std::string insertionWhereFree(const Year& year) const;
  std::string deletion(const Year& year) const;
  std::string dueBeat(std::chrono::steady_clock::time_point now);
  std::string beatOfAll() const;
  void insert(const Year& year);
  void removeLeft();
  void remove(const Year& year) noexcept;

  UnitOfWork& unit_;
  const bool shared_;
  const std::string station_;  // "DESK2:4711.1"
  std::string person_;
  std::map<Year, Hold> held_;
  std::set<Year> present_;       // those with a row of this station, as read last
  std::set<Year> left_;          // by the last form here since the last beat
  unsigned long takenBack_ = 0;  // how many acts had been by then
  bool silent_ = false;          // for too long, but for the act's length
  std::chrono::steady_clock::time_point heard_;
};

}  // namespace quillet::suite
