#include "suite/history/taking_back.h"

#include <algorithm>
#include <set>
#include <utility>

#include "suite/history/written_table.h"

namespace quillet::suite {
namespace {

// A person goes back a few steps; the log may have tens of thousands.
constexpr long steps = 500;

bool changesYear(const ActRow& act, const std::string& table) {
  const std::string suffix = yearSuffix(table);
  return std::ranges::any_of(act.changedTables(), [&](const std::string& changed) {
    return !suffix.empty() && yearSuffix(changed) == suffix;
  });
}

}  // namespace

std::string wordsFor(const ActRow& act) {
  std::string text = act.command.empty() ? "A change outside of the forms" : act.command;
  if (!act.form.empty()) text += " (" + act.form + ')';
  return text + ", " + localTime(act.at) + ", " + shownPerson(act.person);
}

// Seen from the newest: what an act in effect takes back is not in effect.
std::vector<LoggedAct> TakingBack::read(const std::string& where, long most) const {
  std::vector<LoggedAct> found;
  std::set<Instant> undone;
  const RecordsetPtr rows =
      unit_.query(std::string("select ") + ActRow::columns + " from SuiteAct" + where +
                  " order by At desc limit " + std::to_string(most));
  for (; !rows->EOF_(); rows->MoveNext()) {
    LoggedAct act{ActRow::from(*rows)};
    act.takenBack = undone.contains(act.row.at);
    if (!act.takenBack && act.row.takesBack != 0) undone.insert(act.row.takesBack);
    found.push_back(std::move(act));
  }
  return found;
}

std::vector<LoggedAct> TakingBack::acts(const std::string& client, long most) const {
  return read(client.empty() ? "" : " where Client in ('','" + unit_.escape(client) + "')", most);
}

// An act on several years of the client is one on this year when it changed its tables.
std::optional<ActInverse> TakingBack::lastInverse(const std::string& client,
                                                  const std::string& secondDate) const {
  const std::string whose = " where code_no='" + unit_.escape(client) + '\'';
  const std::string year = unit_.escape(secondDate);
  const RecordsetPtr registered =
      unit_.query("select lower(tbl_nm) from master" + whose + " and s_yr='" + year + '\'');
  const std::string table = registered->EOF_() ? "" : registered->text(0);
  for (const LoggedAct& act :
       read(" where Client='" + unit_.escape(client) + "' and Yr in ('','" + year + "')", steps)) {
    if (act.takenBack || act.row.takesBack != 0) continue;
    if (YearLockTable::isChangeOfLock(act.row)) continue;
    if (act.row.secondDate.empty() && !changesYear(act.row, table)) continue;
    // The year itself is made and deleted from elsewhere.
    if (act.row.tables.find("master") != std::string::npos) return std::nullopt;
    if (ActInverse inverse = inverseOf(act.row); !inverse.empty()) return inverse;
  }
  return std::nullopt;
}

std::optional<ActRow> TakingBack::last(const std::string& client,
                                       const std::string& secondDate) const {
  const auto inverse = lastInverse(client, secondDate);
  return inverse ? std::optional(inverse->act()) : std::nullopt;
}

std::vector<std::string> TakingBack::conflicts(const ActInverse& inverse) const {
  const ActRow& act = inverse.act();
  if (YearLockTable::isChangeOfLock(act)) return {"Lock and unlock by their own commands."};
  if (inverse.empty()) return {"There is nothing in this act that could be taken back."};
  std::vector<std::string> found = inverse.conflicts();
  if (inverse.movesYear()) return found;
  if (std::string locked = locks_.against(act); !locked.empty()) found.push_back(std::move(locked));
  return found;
}

std::vector<std::string> TakingBack::takeBack(ActInverse inverse) {
  inverse.chooseNumbers();
  if (auto found = conflicts(inverse); !found.empty()) return found;
  const ActRow& act = inverse.act();
  log_.note({.reason = "Takes back: " + wordsFor(act),
             .takesBack = act.at,
             .client = act.client,
             .secondDate = act.secondDate});
  inverse.send();
  if (onTakenBack) onTakenBack(act);
  return {};
}

BooksHistory::TakenBack TakingBack::takeBackLast(const std::string& client,
                                                 const std::string& secondDate) {
  const auto inverse = lastInverse(client, secondDate);
  if (!inverse) return {false, "There is nothing left in this year that could be taken back."};
  const std::string what = inverse->words();
  const std::vector<std::string> found = takeBack(*inverse);
  // It has one line of the form that the act was done on.
  ActRow act = inverse->act();
  if (found.empty()) act.form.clear();
  std::string told = wordsFor(act);
  if (found.empty()) return {true, "Taken back: " + told + ". " + what};
  told += " cannot be taken back:";
  for (const std::string& conflict : found) told += "\r\n" + conflict;
  return {false, told};
}

}  // namespace quillet::suite
