#include "suite/stations/year_presence.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <utility>

#include "data/table_names.h"
#include "data/text.h"
#include "data/year.h"
#include "suite/history/act_log.h"
#include "suite/history/act_row.h"

namespace quillet::suite {
namespace {

constexpr auto interval = std::chrono::seconds(30);

// As a lock tells since when it stands: "2026-11-22 16:45:00", local time.
std::string localMoment(Instant instant) {
  const std::string shown = localTime(instant);
  return shown.substr(6, 4) + '-' + shown.substr(3, 2) + '-' + shown.substr(0, 2) +
         shown.substr(10);
}

// Of one connection of one process.
std::string ownName() {
  static std::atomic<int> connections = 0;
  return stationName() + ':' + std::to_string(getpid()) + '.' + std::to_string(++connections);
}

}  // namespace

std::string heardLately(std::chrono::seconds ofAct) {
  return "Heard>sysdate(6)-interval " + std::to_string(150 + ofAct.count()) + " second";
}

YearPresence::YearPresence(UnitOfWork& unit)
    : unit_(unit),
      shared_(unit.shared()),
      station_(ownName()),
      heard_(std::chrono::steady_clock::now()) {}

YearPresence::~YearPresence() {
  for (const auto& [year, hold] : held_) remove(year);
}

std::string YearPresence::conditionOf(const Year& year) const {
  return "Code_No='" + unit_.escape(year.first) + "' and Yr='" + unit_.escape(year.second) + '\'';
}

// Whoever was not heard of for too long comes back to a year that is not theirs.
std::string YearPresence::deletionOfSilent(const Year& year) const {
  return "delete from SuitePresence where " + conditionOf(year) + " and not " + heardLately();
}

std::string YearPresence::insertion(const Year& year) const {
  return "insert into SuitePresence(Code_No,Yr,Station,Person,Since,Heard) select '" +
         unit_.escape(year.first) + "','" + unit_.escape(year.second) + "','" +
         unit_.escape(station_) + "','" + unit_.escape(person_) +
         "',sysdate(6),sysdate(6) from dual";
}

std::string YearPresence::insertionWhereFree(const Year& year) const {
  return insertion(year) + " where not exists(select 1 from SuitePresence where " +
         conditionOf(year) + ')';
}

std::string YearPresence::deletion(const Year& year) const {
  return "delete from SuitePresence where Station='" + unit_.escape(station_) + "' and " +
         conditionOf(year);
}

void YearPresence::insert(const Year& year) {
  unit_.executeAside(deletionOfSilent(year));
  unit_.executeAside(insertion(year));
}

void YearPresence::remove(const Year& year) noexcept {
  try {
    unit_.executeAside(deletion(year));
    unit_.executeAside(Turn::stir);
  } catch (const std::exception&) {
    // It is heard of no more, and so the year is free before long.
  }
}

// Old books may name the table by its number alone.
bool YearPresence::Place::isAt(const std::string& wanted) const {
  if (table.empty() && number == 0) return false;
  return wanted.empty() || table.empty() || equalIgnoringCase(table, wanted) ||
         equalIgnoringCase(trialBalanceTable(std::to_string(number)), wanted);
}

YearPresence::Place YearPresence::placeOf(const Year& year) const {
  const RecordsetPtr row = unit_.queryAside("select tbl_nm,count from master where code_no='" +
                                            unit_.escape(year.first) + "' and s_yr='" +
                                            unit_.escape(year.second) + '\'');
  return row->EOF_() ? Place{} : Place{row->text(0), row->integer(1)};
}

std::optional<YearLock> YearPresence::enter(const std::string& client,
                                            const std::string& secondDate, const std::string& table,
                                            const std::string& person, YearLocks::Purpose purpose) {
  person_ = person;
  const Year year{client, secondDate};
  Hold& hold = held_[year];
  if (purpose == YearLocks::Purpose::show) hold.isShown = true;
  std::vector<std::string> before;
  if (++hold.count == 1) {
    hold.place.table = table;
    before = {deletionOfSilent(year), insertionWhereFree(year)};
  }
  for (const LockedYear& other : others(before)) {
    if (Year(other.client, other.secondDate) != year) continue;
    if (hold.gone) {
      if (present_.contains(year)) unit_.executeAside(deletion(year));
      return other.lock;
    }
    // Another station may have been quicker by a moment.
    if (--hold.count == 0) {
      held_.erase(year);
      if (present_.contains(year)) remove(year);
    }
    return other.lock;
  }
  return std::nullopt;
}

void YearPresence::regain(const std::string& client, const std::string& secondDate) {
  const Year year{client, secondDate};
  const auto held = held_.find(year);
  if (held == held_.end()) return;
  Hold& hold = held->second;
  const Place place = placeOf(year);
  hold.gone = !place.isAt(hold.place.table);
  if (hold.gone) return;
  hold.place.number = place.number;
  unit_.executeAside(deletionOfSilent(year));
  unit_.executeAside(insertionWhereFree(year));
  ++hold.regained;
}

bool YearPresence::stands(const std::string& client, const std::string& secondDate,
                          const std::string& table) const {
  return placeOf({client, secondDate}).isAt(table);
}

unsigned YearPresence::regained(const std::string& client, const std::string& secondDate) const {
  const auto held = held_.find({client, secondDate});
  return held == held_.end() ? 0 : held->second.regained;
}

void YearPresence::leave(const std::string& client, const std::string& secondDate) {
  const auto held = held_.find({client, secondDate});
  if (held == held_.end() || --held->second.count > 0) return;
  remove(held->first);
  left_.insert(held->first);
  held_.erase(held);
}

// What the other station has under way is stored before: the year is read after this.
void YearPresence::takeOver(const std::string& client, const std::string& secondDate,
                            const std::string& person) {
  if (!shared_) return;
  person_ = person;
  const Year year{client, secondDate};
  unit_.inTurn([&] {
    unit_.executeAside("delete from SuitePresence where " + conditionOf(year));
    if (const auto held = held_.find(year); held != held_.end() && !held->second.gone) {
      insert(year);
      ++held->second.regained;
    }
    unit_.executeAside(Turn::stir);
  });
}

std::vector<LockedYear> YearPresence::others(const std::vector<std::string>& before) {
  std::vector<LockedYear> years;
  if (!shared_) return years;
  const RecordsetPtr rows = unit_.queryAside(
      "select p.Code_No,p.Yr,m.tbl_nm,m.count,p.Station,p.Person,date_format(p.Since,'%Y-%m-%d "
      "%H:%i:%s'),p.Station='" +
          unit_.escape(station_) + "'," + heardLately() +
          " from SuitePresence as p left join master as m on m.code_no=p.Code_No and m.s_yr=p.Yr "
          "where p." +
          heardLately(unit_.turnTaken()) + " order by p.row_id",
      before);
  std::set<Year> seen;
  present_.clear();
  silent_ = false;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const Year year{rows->text(0), rows->text(1)};
    const Place place{rows->text(2), rows->integer(3)};
    const bool own = rows->integer(7) == 1;
    if (own) present_.insert(year);
    silent_ = silent_ || (own && rows->integer(8) == 0);
    if (const auto held = held_.find(year); held != held_.end()) {
      Hold& hold = held->second;
      hold.gone = !place.isAt(hold.place.table);
      if (hold.place.table.empty()) hold.place.table = place.table;
      if (!hold.gone) hold.place.number = place.number;
    }
    if (!seen.insert(year).second || own) continue;
    const std::string station = rows->text(4);
    years.push_back({year.first,
                     firstDateKey(yearOf(year.second) - 1),
                     year.second,
                     place.table,
                     place.number,
                     {"", shownPerson(rows->text(5)), localMoment(instantFrom(rows->text(6))),
                      station.substr(0, station.find(':'))}});
  }
  for (const auto& [year, hold] : held_) {
    // Before who has it in another table by now.
    if (hold.gone) years.insert(years.begin(), hadMeanwhile(year, hold));
    if (hold.gone || present_.contains(year)) continue;
    if (!seen.contains(year)) years.push_back(hadMeanwhile(year, hold));
    for (LockedYear& each : years) {
      if (Year(each.client, each.secondDate) == year) each.lock.lost = true;
    }
  }
  return years;
}

LockedYear YearPresence::hadMeanwhile(const Year& year, const Hold& hold) {
  const char* const reason = hold.gone
                                 ? "Another station has deleted the year, or made it anew"
                                 : "Another station has changed the year meanwhile, or deleted it";
  return {year.first,        firstDateKey(yearOf(year.second) - 1),
          year.second,       hold.place.table,
          hold.place.number, {reason, "", "", "another station", hold.gone, hold.gone}};
}

// Of every year, also of those whose row came back with an act that was taken back.
std::string YearPresence::beatOfAll() const {
  std::string years;
  for (const auto& [year, hold] : held_) {
    years += (years.empty() ? "('" : ",('") + unit_.escape(year.first) + "','" +
             unit_.escape(year.second) + "')";
  }
  return "update SuitePresence set Heard=sysdate(6) where Station='" + unit_.escape(station_) +
         "' and (Code_No,Yr) in (" + years + ')';
}

// "" while it is too early.
std::string YearPresence::dueBeat(std::chrono::steady_clock::time_point now) {
  if (held_.empty() || now - heard_ < interval) return {};
  heard_ = now;
  return beatOfAll();
}

bool YearPresence::any() const {
  return std::ranges::any_of(held_, [](const auto& held) { return held.second.isShown; });
}

std::set<YearPresence::Year> YearPresence::kept() {
  others();
  std::set<Year> years;
  for (const auto& [year, hold] : held_) {
    if (hold.isShown && !hold.gone && present_.contains(year)) years.insert(year);
  }
  return years;
}

void YearPresence::revive() { unit_.executeAside(beatOfAll()); }

std::vector<LockedYear> YearPresence::othersAtCommit() {
  std::vector<LockedYear> years = others();
  if (silent_) revive();
  return years;
}

// One that was silent for too long may have lost the year and does not know it.
void YearPresence::beat(bool undisturbed, std::chrono::steady_clock::time_point now) {
  removeLeft();
  const std::string sql = dueBeat(now);
  if (!sql.empty()) unit_.executeAside(undisturbed ? sql : sql + " and " + heardLately());
}

// The row of a year that was left comes back with an act that was taken back.
void YearPresence::removeLeft() {
  const std::set<Year> left = std::exchange(left_, {});
  const unsigned long before = std::exchange(takenBack_, unit_.takenBackSoFar());
  if (before == takenBack_) return;
  for (const Year& year : left) {
    if (!held_.contains(year)) remove(year);
  }
}

void YearPresence::beatOverQuestion(std::chrono::steady_clock::time_point now) noexcept {
  try {
    const std::string sql = dueBeat(now);
    if (!sql.empty() && unit_.answersSoon()) unit_.executeIdle(sql + " and " + heardLately());
  } catch (const std::exception&) {
    // What the act does next finds out.
  }
}

}  // namespace quillet::suite
