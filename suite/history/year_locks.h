// The locked years, kept in the table SuiteYearLock, which has a history of its own: locking and
// unlocking are acts with their reasons.
//
// Ahead of each commit the rows that the act began or ended are looked for in locked years. So no
// command, no script and no other station changes one: the lock is read within the transaction. An
// act that changes the locks themselves is held against those from before it.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "controls/acts.h"
#include "ports/ports.h"
#include "ports/year_locks.h"
#include "suite/database.h"
#include "suite/history/act_log.h"
#include "suite/history/act_row.h"
#include "suite/stations/year_presence.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class YearLockTable : public YearLocks {
 public:
  // Watches the commits of the unit of work, which outlives this object.
  YearLockTable(Database& database, UnitOfWork& unit, ActLog& log, const Clock& clock);
  ~YearLockTable() override {
    unit_.onCommitting = {};
    unit_.onDefining = {};
  }
  YearLockTable(const YearLockTable&) = delete;
  YearLockTable& operator=(const YearLockTable&) = delete;

  // Whose acts a permission holds for; null for none.
  void follow(const Acts* acts) {
    acts_ = acts;
    known_.reset();
  }

  std::optional<YearLock> find(const std::string& client, const std::string& secondDate) override;
  std::vector<LockedYear> all() override;
  bool shared() const override { return shared_; }
  bool stands(const std::string& client, const std::string& secondDate,
              const std::string& table) override {
    return !shared_ || presence_.stands(client, secondDate, table);
  }
  std::optional<YearLock> enter(const std::string& client, const std::string& secondDate,
                                const std::string& table, Purpose purpose) override;
  void regain(const std::string& client, const std::string& secondDate) override {
    presence_.regain(client, secondDate);
  }
  unsigned regained(const std::string& client, const std::string& secondDate) const override {
    return presence_.regained(client, secondDate);
  }
  void leave(const std::string& client, const std::string& secondDate) override {
    presence_.leave(client, secondDate);
  }
  void takeOver(const std::string& client, const std::string& secondDate) override {
    presence_.takeOver(client, secondDate, log_.person());
  }
  void lock(const std::string& client, const std::string& secondDate,
            const std::string& reason) override;
  void unlock(const std::string& client, const std::string& secondDate,
              const std::string& reason) override;
  void permit(const std::vector<LockedYear>& years, const std::string& reason) override;

  YearPresence& presence() { return presence_; }

  // An act that locked a year or unlocked it.
  static bool isChangeOfLock(const ActRow& act);
  // Which locked year stands in the way of taking the act back, in one sentence; "" for none.
  std::string against(const ActRow& act);

 private:
  // What one act may do.
  struct Sanction {
    unsigned long act = 0;
    std::vector<LockedYear> years;  // change these although they are locked
    bool changesLocks = false;
    std::string client, secondDate;  // the lock that is changed
    std::string reason;
  };

  unsigned long act() const { return acts_ ? acts_->number() : 0; }
  bool changesLocks(const ActLog& act) const;
  void changeLock(const std::string& sql, const std::string& client, const std::string& secondDate,
                  const std::string& reason);
  std::vector<LockedYear> read(const std::string& which) const;
  const std::vector<LockedYear>& current();
  void check(const ActLog& act);
  void checkDefinition(const std::set<std::string>& tables);
  std::vector<LockedYear> lockedFor(const ActLog& act);
  void refuse(const LockedYear& year) const;
  std::string subject(const LockedYear& year) const;

  Database& database_;
  UnitOfWork& unit_;
  ActLog& log_;
  const Clock& clock_;
  const bool shared_;
  YearPresence presence_;
  const Acts* acts_ = nullptr;
  std::optional<Sanction> sanction_;
  // As they are stored; nothing when they have to be read.
  std::optional<std::vector<LockedYear>> known_;
  bool passing_ = false;  // read during an act that changes them
};

}  // namespace quillet::suite
