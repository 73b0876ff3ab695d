#include "suite/stations/year_presence.h"

#include <unistd.h>

#include "data/text.h"
#include "data/year.h"
#include "suite/history/act_log.h"

namespace quillet::suite {
namespace {

constexpr auto interval = std::chrono::seconds(30);
// The clock of the server, whatever the session's timestamp is set to. Five beats may be missed.
constexpr const char* lately = "Heard>sysdate(6)-interval 150 second";

}  // namespace

YearPresence::YearPresence(Database& database, bool shared)
    : database_(database),
      shared_(shared),
      station_(stationName() + ':' + std::to_string(getpid())),
      heard_(std::chrono::steady_clock::now()) {}

YearPresence::~YearPresence() {
  for (const auto& [year, count] : held_) remove(year);
}

std::string YearPresence::conditionOf(const Year& year) const {
  return "Code_No='" + database_.escape(year.first) + "' and Yr='" + database_.escape(year.second) +
         '\'';
}

void YearPresence::insert(const Year& year) {
  database_.execute("insert into SuitePresence(Code_No,Yr,Station,Person,Since,Heard) values('" +
                    database_.escape(year.first) + "','" + database_.escape(year.second) + "','" +
                    database_.escape(station_) + "','" + database_.escape(person_) +
                    "',sysdate(6),sysdate(6))");
}

void YearPresence::remove(const Year& year) noexcept {
  try {
    database_.execute("delete from SuitePresence where Station='" + database_.escape(station_) +
                      "' and " + conditionOf(year));
  } catch (const std::exception&) {
    // It is heard of no more, and so the year is free before long.
  }
}

void YearPresence::enter(const std::string& client, const std::string& secondDate,
                         const std::string& person) {
  if (!shared_) return;
  person_ = person;
  if (++held_[{client, secondDate}] == 1) insert({client, secondDate});
}

void YearPresence::leave(const std::string& client, const std::string& secondDate) {
  const auto held = held_.find({client, secondDate});
  if (held == held_.end() || --held->second > 0) return;
  remove(held->first);
  held_.erase(held);
}

void YearPresence::takeOver(const std::string& client, const std::string& secondDate,
                            const std::string& person) {
  if (!shared_) return;
  person_ = person;
  const Year year{client, secondDate};
  database_.execute("delete from SuitePresence where " + conditionOf(year));
  if (held_.contains(year)) insert(year);
}

std::vector<LockedYear> YearPresence::others() const {
  std::vector<LockedYear> years;
  if (!shared_) return years;
  const std::string row = std::string("select min(row_id) from SuitePresence where ") + lately +
                          " group by Code_No,Yr";
  const RecordsetPtr rows = database_.query(
      "select p.Code_No,p.Yr,m.tbl_nm,m.count,p.Station,p.Person,date_format(p.Since,'%Y-%m-%d "
      "%H:%i:%s') from SuitePresence as p left join master as m on m.code_no=p.Code_No and "
      "m.s_yr=p.Yr where p.row_id in (" +
      row + ") and p.Station<>'" + database_.escape(station_) + '\'');
  for (; !rows->EOF_(); rows->MoveNext()) {
    const std::string secondDate = rows->text(1);
    const std::string station = rows->text(4);
    years.push_back({rows->text(0),
                     firstDateKey(yearOf(secondDate) - 1),
                     secondDate,
                     rows->text(2),
                     rows->integer(3),
                     {"", rows->text(5), rows->text(6), station.substr(0, station.find(':'))}});
  }
  return years;
}

// A row that went with an act that was taken back is written again, unless somebody has the year by
// now.
void YearPresence::beat() {
  const auto now = std::chrono::steady_clock::now();
  if (held_.empty() || now - heard_ < interval) return;
  heard_ = now;
  for (const auto& [year, count] : held_) {
    const std::string mine =
        conditionOf(year) + " and Station='" + database_.escape(station_) + '\'';
    database_.execute("update SuitePresence set Heard=sysdate(6) where " + mine);
    if (database_.query("select 1 from SuitePresence where " + conditionOf(year) + " and " + lately)
            ->EOF_()) {
      insert(year);
    }
  }
}

}  // namespace quillet::suite
