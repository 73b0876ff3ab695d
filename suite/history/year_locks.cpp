#include "suite/history/year_locks.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "books/clients.h"
#include "books/locked_years.h"
#include "data/errors.h"
#include "data/text.h"
#include "data/year.h"
#include "suite/client_register.h"
#include "suite/history/written_table.h"
#include "suite/history/year_rows.h"
#include "suite/stations/dead_names.h"

namespace quillet::suite {
namespace {

// Of the module's own kind: the server never sends it.
constexpr long yearIsLocked = 20002;
constexpr const char* lockTable = "suiteyearlock";
constexpr const char* groupTable = "mast_allgrp";
constexpr const char* withYears =
    " as l left join master as m on m.code_no=l.Code_No and m.s_yr=l.Yr";

bool sameYear(const LockedYear& year, const std::string& client, const std::string& secondDate) {
  return equalIgnoringCase(year.client, client) && year.secondDate == secondDate;
}

}  // namespace

YearLockTable::YearLockTable(Database& database, UnitOfWork& unit, ActLog& log, const Clock& clock)
    : database_(database),
      unit_(unit),
      log_(log),
      clock_(clock),
      shared_(unit.shared()),
      presence_(unit) {
  unit_.onCommitting = [this](const ActLog& act) { check(act); };
  unit_.onDefining = [this](const auto& tables) { checkDefinition(tables); };
}

// --- reading ------------------------------------------------------------------------------------

std::vector<LockedYear> YearLockTable::read(const std::string& which) const {
  const RecordsetPtr rows = unit_.queryAside(
      "select l.Code_No,l.Yr,m.tbl_nm,m.count,l.Reason,l.Person,l.Since from SuiteYearLock" +
      which);
  std::vector<LockedYear> years;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const std::string secondDate = rows->text(1);
    years.push_back({rows->text(0),
                     firstDateKey(yearOf(secondDate) - 1),
                     secondDate,
                     rows->text(2),
                     rows->integer(3),
                     {rows->text(4), shownPerson(rows->text(5)), rows->text(6)}});
  }
  return years;
}

bool YearLockTable::changesLocks(const ActLog& act) const {
  return act.changed() && (act.tables().contains(lockTable) || act.tables().contains("master"));
}

const std::vector<LockedYear>& YearLockTable::current() {
  const bool stays = !shared_ && !changesLocks(log_) && !std::exchange(passing_, false);
  if (!stays || !known_) known_ = read(withYears);
  passing_ = changesLocks(log_);
  return *known_;
}

std::vector<LockedYear> YearLockTable::all() {
  std::vector<LockedYear> years = current();
  if (shared_) std::ranges::move(presence_.others(), std::back_inserter(years));
  return years;
}

namespace {

std::optional<YearLock> lockAmong(const std::vector<LockedYear>& years, const std::string& client,
                                  const std::string& secondDate) {
  for (const LockedYear& year : years) {
    if (sameYear(year, client, secondDate)) return year.lock;
  }
  return std::nullopt;
}

}  // namespace

std::optional<YearLock> YearLockTable::find(const std::string& client,
                                            const std::string& secondDate) {
  return lockAmong(shared_ ? all() : current(), client, secondDate);
}

std::optional<YearLock> YearLockTable::enter(const std::string& client,
                                             const std::string& secondDate,
                                             const std::string& table, Purpose purpose) {
  const auto lock = lockAmong(current(), client, secondDate);
  if (lock || !shared_) return lock;
  return presence_.enter(client, secondDate, table, log_.person(), purpose);
}

// --- changing -----------------------------------------------------------------------------------

void YearLockTable::lock(const std::string& client, const std::string& secondDate,
                         const std::string& reason) {
  const auto quoted = [&](const std::string& text) { return '\'' + unit_.escape(text) + '\''; };
  changeLock("insert into SuiteYearLock(Code_No,Yr,Reason,Person,Since) values(" + quoted(client) +
                 ',' + quoted(secondDate) + ',' + quoted(reason) + ',' + quoted(log_.person()) +
                 ',' + quoted(clock_.now()) + ')',
             client, secondDate, reason);
}

void YearLockTable::unlock(const std::string& client, const std::string& secondDate,
                           const std::string& reason) {
  changeLock("delete from SuiteYearLock where Code_No='" + unit_.escape(client) + "' and Yr='" +
                 unit_.escape(secondDate) + '\'',
             client, secondDate, reason);
}

void YearLockTable::changeLock(const std::string& sql, const std::string& client,
                               const std::string& secondDate, const std::string& reason) {
  sanction_ = {act(), {}, true, client, secondDate, reason};
  unit_.execute(sql);
}

void YearLockTable::permit(const std::vector<LockedYear>& years, const std::string& reason) {
  sanction_ = {act(), years, false, {}, {}, reason};
}

// --- ahead of a commit --------------------------------------------------------------------------

// Those that were locked before the act.
std::vector<LockedYear> YearLockTable::lockedFor(const ActLog& act) {
  if (!shared_ && !changesLocks(act)) return current();
  known_.reset();
  const std::string at = '\'' + instantText(act.instant()) + '\'';
  // A locking read sees what another station has stored since the transaction began.
  return read(" for system_time all" + std::string(withYears) + " where l.row_from<>" + at +
              " and (l.row_till=" + at + " or l.row_till>'" + instantText(act.instant() + oneDay) +
              "')" + (shared_ ? " lock in share mode" : ""));
}

void YearLockTable::check(const ActLog& act) {
  std::optional<Sanction> sanction = std::exchange(sanction_, std::nullopt);
  if (sanction && sanction->act != this->act()) sanction.reset();
  std::vector<LockedYear> others;
  const bool known = !sanction && !shared_ && !changesLocks(act);
  if (!known) others = lockedFor(act);
  if (act.tables().contains(lockTable) && !(sanction && sanction->changesLocks)) {
    throw RunTimeError(yearIsLocked,
                       "The locks of years are changed only by \"Lock Year...\" and "
                       "\"Unlock Year...\".",
                       "Year locks");
  }
  if (sanction) {
    log_.note({.reason = sanction->reason,
               .client = sanction->client,
               .secondDate = sanction->secondDate});
    std::erase_if(others, [&](const LockedYear& year) {
      return std::ranges::any_of(sanction->years, [&](const LockedYear& permitted) {
        return sameYear(year, permitted.client, permitted.secondDate);
      });
    });
  }
  if (shared_) {
    refuseDeadNames(unit_, database_, act);
    std::ranges::move(presence_.othersAtCommit(), std::back_inserter(others));
  }
  const std::vector<LockedYear>& locked = known ? current() : others;
  if (locked.empty()) return;
  const auto refuse = [this](const std::optional<LockedYear>& year) {
    if (year) this->refuse(*year);
  };
  for (const std::string& table : act.tables()) {
    if (act.movesRows()) {
      refuse(yearChanged(database_, table, act.instant(), locked));
    } else {
      if (act.endsRows()) refuse(yearEnded(database_, table, act.instant(), locked));
      refuse(yearBegun(database_, table, act.instant(), locked, shared_));
    }
  }
  if (act.tables().contains(groupTable)) {
    refuse(yearRegrouped(database_, act.instant(), locked));
  }
}

// Without a table that all years share, none of them is what it was.
void YearLockTable::checkDefinition(const std::set<std::string>& tables) {
  for (const LockedYear& year : all()) {
    const std::string suffix = yearSuffix(year.table);
    for (const std::string& table : tables) {
      const std::string changed = yearSuffix(table);
      if (changed.empty() || changed == suffix) refuse(year);
    }
  }
}

void YearLockTable::refuse(const LockedYear& year) const {
  throw RunTimeError(yearIsLocked, lockedText(subject(year), year.lock), "Year locks");
}

std::string YearLockTable::subject(const LockedYear& year) const {
  const auto client = findClient(unit_, year.client);
  const std::string name = client ? client->displayName() : std::string();
  return subjectOf(name, year.client, year.firstDate, year.secondDate);
}

// --- taking back --------------------------------------------------------------------------------

bool YearLockTable::isChangeOfLock(const ActRow& act) {
  return (',' + act.tables + ',').find(std::string(",") + lockTable + ',') != std::string::npos;
}

std::string YearLockTable::against(const ActRow& act) {
  const std::vector<LockedYear> locked = current();
  if (locked.empty()) return {};
  std::istringstream tables(act.tables);
  for (std::string table; std::getline(tables, table, ',');) {
    const auto year = table == groupTable ? yearRegrouped(database_, act.at, locked)
                                          : yearChanged(database_, table, act.at, locked);
    if (year) return lockedSentence(subject(*year), year->lock);
  }
  return {};
}

}  // namespace quillet::suite
