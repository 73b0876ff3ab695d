// Why nothing of a year can be changed. A year that is closed for good is locked with a reason;
// from then on nothing changes its figures, at whatever station, until it is unlocked with a
// reason. And where several stations work on the same books, one of them writes in a year and the
// others read.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillet {

struct YearLock {
  std::string reason;
  std::string person;
  std::string since;  // "2026-11-22 16:45:00", local time
  // The station that has the year open, without a reason then; "" for a lock.
  std::string station{};
  // This station had the year, and has it no more: another one took it over, or it was silent for
  // too long.
  bool lost = false;
  // Another station has deleted the year, or made it anew in another table.
  bool gone = false;
};

struct LockedYear {
  std::string client;
  std::string firstDate;  // keys, "01042008"
  std::string secondDate;
  std::string table;  // the trial balance's
  long number = 0;    // in the registry
  YearLock lock;
};

class YearLocks {
 public:
  virtual ~YearLocks() = default;

  virtual std::optional<YearLock> find(const std::string& client,
                                       const std::string& secondDate) = 0;
  virtual std::vector<LockedYear> all() = 0;

  // Whether other stations work on the same books.
  virtual bool shared() const = 0;
  // Whether the year is in that table, as far as others may have changed that.
  virtual bool stands(const std::string& client, const std::string& secondDate,
                      const std::string& table) = 0;
  // This station has the year open for writing in that table from now on, or what is in the way.
  // Calls without that are counted, and those for a year that is gone, which is told until leave().
  // To show it: what a person answers is not acted upon when the year was lost over the question.
  // Whoever makes a year sees to that.
  enum class Purpose { show, make };
  virtual std::optional<YearLock> enter(const std::string& client, const std::string& secondDate,
                                        const std::string& table, Purpose purpose) = 0;
  // Has again what it lost, where the year is still in the table that it was in; what is stored is
  // to be read after this.
  virtual void regain(const std::string& client, const std::string& secondDate) = 0;
  // How often it has; whoever has read the year before has to read it anew.
  virtual unsigned regained(const std::string& client, const std::string& secondDate) const = 0;
  virtual void leave(const std::string& client, const std::string& secondDate) = 0;
  // The station that has it reads from now on.
  virtual void takeOver(const std::string& client, const std::string& secondDate) = 0;

  // Neither asks for the right to unlock.
  virtual void lock(const std::string& client, const std::string& secondDate,
                    const std::string& reason) = 0;
  virtual void unlock(const std::string& client, const std::string& secondDate,
                      const std::string& reason) = 0;

  // What the running act changes of these years passes, and is logged with the reason. To be called
  // after the last question to a person.
  virtual void permit(const std::vector<LockedYear>& years, const std::string& reason) = 0;

  // The years, client and second date, that a person reads at this station because another one has
  // them, once for each form: the first of these has asked whether to take the year over.
  std::multiset<std::pair<std::string, std::string>> read;
};

}  // namespace quillet
