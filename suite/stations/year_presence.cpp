#include "suite/stations/year_presence.h"

#include <unistd.h>

#include <atomic>

#include "data/text.h"
#include "data/year.h"
#include "suite/history/act_log.h"

namespace quillet::suite {
namespace {

constexpr auto interval = std::chrono::seconds(30);
// The clock of the server, whatever the session's timestamp is set to. Five beats may be missed.
constexpr const char* lately = "Heard>sysdate(6)-interval 150 second";

// Of one connection of one process.
std::string ownName() {
  static std::atomic<int> connections = 0;
  return stationName() + ':' + std::to_string(getpid()) + '.' + std::to_string(++connections);
}

}  // namespace

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
void YearPresence::insert(const Year& year) {
  unit_.executeAside("delete from SuitePresence where " + conditionOf(year) + " and not " + lately);
  unit_.executeAside("insert into SuitePresence(Code_No,Yr,Station,Person,Since,Heard) values('" +
                     unit_.escape(year.first) + "','" + unit_.escape(year.second) + "','" +
                     unit_.escape(station_) + "','" + unit_.escape(person_) +
                     "',sysdate(6),sysdate(6))");
}

void YearPresence::remove(const Year& year) noexcept {
  try {
    unit_.executeAside("delete from SuitePresence where Station='" + unit_.escape(station_) +
                       "' and " + conditionOf(year));
    unit_.executeAside(Turn::stir);
  } catch (const std::exception&) {
    // It is heard of no more, and so the year is free before long.
  }
}

YearPresence::Place YearPresence::placeOf(const Year& year) const {
  const RecordsetPtr row = unit_.queryAside("select tbl_nm,count from master where code_no='" +
                                            unit_.escape(year.first) + "' and s_yr='" +
                                            unit_.escape(year.second) + '\'');
  return row->EOF_() ? Place{} : Place{row->text(0), row->integer(1)};
}

void YearPresence::enter(const std::string& client, const std::string& secondDate,
                         const std::string& person) {
  if (!shared_) return;
  person_ = person;
  const Year year{client, secondDate};
  Hold& hold = held_[year];
  if (++hold.count > 1) return;
  hold.place = placeOf(year);
  insert(year);
}

void YearPresence::regain(const std::string& client, const std::string& secondDate) {
  const Year year{client, secondDate};
  const auto held = held_.find(year);
  if (held != held_.end() && placeOf(year) == held->second.place) insert(year);
}

void YearPresence::leave(const std::string& client, const std::string& secondDate) {
  const auto held = held_.find({client, secondDate});
  if (held == held_.end() || --held->second.count > 0) return;
  remove(held->first);
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
    if (held_.contains(year)) insert(year);
    unit_.executeAside(Turn::stir);
  });
}

// Those in which this station is present.
std::set<YearPresence::Year> YearPresence::present() const {
  std::set<Year> years;
  const RecordsetPtr rows =
      unit_.queryAside(std::string("select Code_No,Yr from SuitePresence where ") + lately +
                       " and Station='" + unit_.escape(station_) + '\'');
  for (; !rows->EOF_(); rows->MoveNext()) years.emplace(rows->text(0), rows->text(1));
  return years;
}

bool YearPresence::lost(const std::string& client, const std::string& secondDate) const {
  const Year year{client, secondDate};
  return held_.contains(year) && !present().contains(year);
}

std::vector<LockedYear> YearPresence::others() const {
  std::vector<LockedYear> years;
  if (!shared_) return years;
  const RecordsetPtr rows = unit_.queryAside(
      "select p.Code_No,p.Yr,m.tbl_nm,m.count,p.Station,p.Person,date_format(p.Since,'%Y-%m-%d "
      "%H:%i:%s'),p.Station='" +
      unit_.escape(station_) +
      "' from SuitePresence as p left join master as m on m.code_no=p.Code_No and m.s_yr=p.Yr "
      "where p." +
      lately + " order by p.row_id");
  std::set<Year> seen;
  std::set<Year> present;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const Year year{rows->text(0), rows->text(1)};
    const bool own = rows->integer(7) == 1;
    if (own) present.insert(year);
    if (!seen.insert(year).second || own) continue;
    const std::string station = rows->text(4);
    years.push_back({year.first,
                     firstDateKey(yearOf(year.second) - 1),
                     year.second,
                     rows->text(2),
                     rows->integer(3),
                     {"", rows->text(5), rows->text(6), station.substr(0, station.find(':'))}});
  }
  for (const auto& [year, hold] : held_) {
    if (!present.contains(year) && !seen.contains(year)) years.push_back(hadMeanwhile(year, hold));
  }
  return years;
}

LockedYear YearPresence::hadMeanwhile(const Year& year, const Hold& hold) {
  return {
      year.first,
      firstDateKey(yearOf(year.second) - 1),
      year.second,
      hold.place.table,
      hold.place.number,
      {"Another station has changed the year meanwhile, or deleted it", "", "", "another station"}};
}

// One that was silent for too long may have lost the year and does not know it.
void YearPresence::beat() {
  const auto now = std::chrono::steady_clock::now();
  if (held_.empty() || now - heard_ < interval) return;
  heard_ = now;
  unit_.executeAside("update SuitePresence set Heard=sysdate(6) where " + std::string(lately) +
                     " and Station='" + unit_.escape(station_) + '\'');
}

}  // namespace quillet::suite
