#include "suite/history/act_inverse.h"

#include <algorithm>
#include <array>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

#include "suite/history/row_kinds.h"
#include "suite/history/written_table.h"
#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

using row_kinds::Kind;
using row_kinds::kindOf;
using row_kinds::prefixOf;

// Rows that stand end here.
constexpr const char* stands = "row_till>'2038-01-01'";

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ",") + part;
  return text;
}

// "s.code_no=t.code_no and s.partid=t.partid"
std::string sameKeys(std::string_view keys) {
  std::string text;
  std::istringstream each{std::string(keys)};
  for (std::string key; std::getline(each, key, ',');) {
    text += (text.empty() ? "s." : " and s.") + key + "=t." + key;
  }
  return text;
}

bool isValue(const std::string& table) { return table == "suitemisc"; }

std::string sentence(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] -= 'a' - 'A';
  return text + '.';
}

// Many rows may stand in the way of one act.
constexpr const char* some = " limit 5";

}  // namespace

ActInverse::ActInverse(UnitOfWork& unit, ActRow act)
    : unit_(unit), act_(std::move(act)), at_("timestamp'" + instantText(act_.at) + '\'') {
  for (const std::string& table : act_.changedTables()) {
    if (isVersioned(table)) read(table);
  }
  findOtherTables();
}

std::string ActInverse::begunRows(const Change& change) const {
  return " from " + change.table + " for system_time all t where t.row_from=" + at_ +
         " and t.row_till>" + at_;
}

std::string ActInverse::endedRows(const Change& change) const {
  return " from " + change.table + " for system_time all t where t.row_till=" + at_ +
         " and t.row_from<" + at_;
}

void ActInverse::read(const std::string& table) {
  Change change{.table = table, .into = table, .columns = {}};
  change.begun = unit_.query("select count(*)" + begunRows(change))->integer(0);
  change.ended = unit_.query("select count(*)" + endedRows(change))->integer(0);
  if (change.begun + change.ended == 0) return;
  const RecordsetPtr columns = unit_.query("show columns from " + table);
  for (; !columns->EOF_(); columns->MoveNext()) {
    const std::string extra = columns->text("Extra");
    if (extra.find("INVISIBLE") == std::string::npos) change.columns.push_back(columns->text(0));
  }
  changes_.push_back(std::move(change));
}

// A deleted year comes back under another number when another year of the client has its tables.
void ActInverse::findOtherTables() {
  const auto master = std::ranges::find(changes_, "master", &Change::table);
  if (master == changes_.end() || master->ended == 0 || master->begun != 0) return;
  const RecordsetPtr years = unit_.query("select t.code_no,t.count" + endedRows(*master));
  if (years->RecordCount() != 1) return;
  const std::string client = unit_.escape(years->text(0));
  const std::string number = years->text(1);
  std::set<long> taken;
  const RecordsetPtr rows = unit_.query("select count from master where code_no='" + client + '\'');
  for (; !rows->EOF_(); rows->MoveNext()) taken.insert(rows->integer(0));
  if (!taken.contains(std::atol(number.c_str()))) return;
  long free = 1;
  while (taken.contains(free)) ++free;
  numbers_[number] = std::to_string(free);
  for (Change& change : changes_) {
    if (yearSuffix(change.table) == number) {
      change.into = prefixOf(change.table) + std::to_string(free);
    }
  }
}

// The first row of the first table that has a name for its rows, and how many there are besides.
std::string ActInverse::words() const {
  long rows = 0;
  const Change* named = nullptr;
  for (const Change& change : changes_) {
    if (keepsNewNames(change) || isValue(change.table)) continue;
    rows += std::max(change.begun, change.ended);
    const bool better = named == nullptr || change.table == "master" ||
                        (prefixOf(change.table) == "jrnl_" && named->table != "master");
    if (kindOf(change.table) != nullptr && better) named = &change;
  }
  if (named == nullptr) return rows == 0 ? "" : std::to_string(rows) + " rows of other data.";
  const std::string name(kindOf(named->table)->name);
  const RecordsetPtr first = unit_.query(
      "select " + name + (named->ended != 0 ? endedRows(*named) : begunRows(*named)) + " limit 1");
  const std::string more = rows < 2    ? ""
                           : rows == 2 ? ", and 1 more row"
                                       : ", and " + std::to_string(rows - 1) + " more rows";
  return sentence(first->text(0) + more);
}

// --- conflicts ----------------------------------------------------------------------------------

std::vector<std::string> ActInverse::conflicts() const {
  std::vector<std::string> found;
  for (const Change& change : changes_) {
    // A value that was set again since stays as it is.
    if (isValue(change.table)) continue;
    const std::size_t before = found.size();
    addChangedLater(change, found);
    if (found.size() == before) addMadeAgain(change, found);
    addLostYears(change, found);
    addLostNames(change, found);
    addUsedNames(change, found);
  }
  return found;
}

// It stands as the act left it, but for a number that was given anew.
std::string ActInverse::standsUnchanged(const Change& change) const {
  const Kind* kind = kindOf(change.table);
  std::string text = "exists(select 1 from " + change.table + " s where s.row_id=t.row_id";
  for (const std::string& column : change.columns) {
    if (kind == nullptr || column != kind->numbered) text += " and s." + column + "<=>t." + column;
  }
  return text + ')';
}

// What the act began was changed or deleted since.
void ActInverse::addChangedLater(const Change& change, std::vector<std::string>& found) const {
  if (change.begun == 0 || keepsNewNames(change)) return;
  const Kind* kind = kindOf(change.table);
  const std::string name = kind ? std::string(kind->name) : "'rows of " + change.table + '\'';
  const std::string last = "(select max(if(x." + std::string(stands) +
                           ",x.row_from,x.row_till)) from " + change.table +
                           " for system_time all x where x.row_id=t.row_id)";
  const RecordsetPtr rows =
      unit_.query("select distinct " + name + ',' + last +
                  ",(select concat(a.Command,', by ',a.Person) from SuiteAct a where a.At=" + last +
                  ')' + begunRows(change) + " and not " + standsUnchanged(change) + some);
  for (; !rows->EOF_(); rows->MoveNext()) {
    const std::string by = rows->text(2);
    found.push_back(sentence(rows->text(0) + " was changed since, at " +
                             localTime(instantFrom(rows->text(1))) +
                             (by.empty() ? "" : " (" + by + ')')));
  }
}

// What the act ended stands again, from elsewhere; another row that stood beside it before the act
// does not count.
void ActInverse::addMadeAgain(const Change& change, std::vector<std::string>& found) const {
  const Kind* kind = kindOf(change.table);
  // A voucher comes back under another number, a year's rows in other tables.
  const bool elsewhere = change.into != change.table || prefixOf(change.table) == "jrnl_";
  if (change.ended == 0 || kind == nullptr) return;
  const std::string same = elsewhere ? "s.row_id=t.row_id" : sameKeys(kind->keys);
  const RecordsetPtr rows =
      unit_.query("select distinct " + std::string(kind->name) + endedRows(change) +
                  " and exists(select 1 from " + change.table + " s where " + same +
                  " and not exists(select 1 from " + change.table +
                  " for system_time all b where b.row_id=s.row_id and ((b.row_from=" + at_ +
                  " and b.row_till>" + at_ + ") or (s.row_id<>t.row_id and b.row_from<" + at_ +
                  " and b.row_till>=" + at_ + "))))" + some);
  for (; !rows->EOF_(); rows->MoveNext()) {
    found.push_back(sentence(rows->text(0) + " was made again since"));
  }
}

// The tables of a year may belong to another year by now.
void ActInverse::addLostYears(const Change& change, std::vector<std::string>& found) const {
  const std::string suffix = yearSuffix(change.table);
  if (suffix.empty() || numbers_.contains(suffix)) return;
  const RecordsetPtr clients =
      unit_.query("select distinct t.code_no from " + change.table +
                  " for system_time all t where (t.row_from=" + at_ + " or t.row_till=" + at_ +
                  ") and t.row_from<>t.row_till");
  for (; !clients->EOF_(); clients->MoveNext()) {
    const std::string whose =
        " where code_no='" + unit_.escape(clients->text(0)) + "' and tbl_nm='TAB_" + suffix + '\'';
    // Its row stood just before the act or just after.
    const RecordsetPtr then = unit_.query("select s_yr,s_year_dt from master for system_time all" +
                                          whose + " and row_from<=" + at_ +
                                          " and row_till>=" + at_ + " order by row_from limit 1");
    if (then->EOF_()) continue;
    const bool comesBack = std::ranges::any_of(
        changes_, [](const Change& each) { return each.table == "master" && each.ended != 0; });
    const RecordsetPtr today = unit_.query("select s_yr from master" + whose);
    if (today->EOF_() ? comesBack : today->text(0) == then->text(0)) continue;
    found.push_back("The year to " + then->text(1) + " of client " + clients->text(0) +
                    " is not there any more; bring it back first.");
  }
}

// Lines do not come back without their ledger and group; a later one may have the same number.
void ActInverse::addLostNames(const Change& change, std::vector<std::string>& found) const {
  const std::string prefix = prefixOf(change.table);
  if (change.ended == 0 || (prefix != "tab_" && prefix != "jrnl_" && prefix != "trade_")) return;
  struct Name {
    const char* table;
    const char* id;
    const char* column;
    const char* text;
    const char* word;
  };
  constexpr std::array names{Name{"mast_part", "PartId", "partid", "Particular", "ledger"},
                             Name{"mast_allgrp", "ALLID", "allid", "ALLGRP", "group"}};
  for (const Name& name : names) {
    if (prefix == "jrnl_" && std::string_view(name.word) == "group") continue;  // merged ones stay
    const std::string id = name.id;
    const std::string comesBack =
        std::ranges::any_of(changes_, [&](const Change& each) { return each.table == name.table; })
            ? std::string(" and not exists(select 1 from ") + name.table +
                  " for system_time all b where b." + id + "=t." + name.column +
                  " and b.row_till=" + at_ + " and b.row_from<" + at_ + ')'
            : "";
    const RecordsetPtr lost = unit_.query(
        std::string("select distinct ifnull((select h.") + name.text + " from " + name.table +
        " for system_time all h where h." + id + "=t." + name.column +
        " and h.row_from<t.row_till order by h.row_till desc limit 1),t." + name.column + ')' +
        endedRows(change) + " and not exists(select 1 from " + name.table + " s where s." + id +
        "=t." + name.column + " and exists(select 1 from " + name.table +
        " for system_time all o where o.row_id=s.row_id and o.row_from<t.row_till))" + comesBack +
        some);
    for (; !lost->EOF_(); lost->MoveNext()) {
      found.push_back(std::string("The ") + name.word + ' ' + lost->text(0) +
                      " is not there any more.");
    }
  }
}

// A ledger or group that was made with lines stays when the lines go, as it does when they are
// deleted.
bool ActInverse::keepsNewNames(const Change& change) const {
  const bool names = change.table == "mast_part" || change.table == "mast_allgrp";
  return names && change.ended == 0 && std::ranges::any_of(changes_, [](const Change& each) {
           return !yearSuffix(each.table).empty();
         });
}

// A ledger or group that was made by itself goes only while nothing carries it.
void ActInverse::addUsedNames(const Change& change, std::vector<std::string>& found) const {
  const bool ledgers = change.table == "mast_part";
  if ((!ledgers && change.table != "mast_allgrp") || change.begun == 0 || keepsNewNames(change)) {
    return;
  }
  const std::string id = ledgers ? "PartId" : "ALLID";
  const std::string column = ledgers ? "partid" : "allid";
  const RecordsetPtr tables = unit_.query(
      "select lower(table_name) from information_schema.tables where table_schema=database()");
  for (; !tables->EOF_(); tables->MoveNext()) {
    const std::string table = tables->text(0);
    const std::string prefix = prefixOf(table);
    if (prefix != "tab_" && prefix != "jrnl_" && prefix != "trade_") continue;
    if (yearSuffix(table).empty()) continue;
    const RecordsetPtr used = unit_.query(
        "select " + std::string(kindOf(change.table)->name) + begunRows(change) + " and t." + id +
        " not in (select e." + id + " from " + change.table +
        " for system_time all e where e.row_till=" + at_ + " and e.row_from<" + at_ +
        ") and exists(select 1 from " + table + " s where s." + column + "=t." + id + ')' + some);
    for (; !used->EOF_(); used->MoveNext()) {
      found.push_back(sentence(used->text(0) + " has lines by now"));
    }
  }
}

// --- statements ---------------------------------------------------------------------------------

void ActInverse::send() const {
  for (const Change& change : changes_) {
    if (change.begun == 0 || keepsNewNames(change)) continue;
    std::string ids;
    const RecordsetPtr rows =
        unit_.query("select t.row_id" + begunRows(change) + " and " + standsUnchanged(change));
    for (; !rows->EOF_(); rows->MoveNext()) ids += (ids.empty() ? "" : ",") + rows->text(0);
    if (!ids.empty())
      unit_.execute("delete from " + change.table + " where row_id in (" + ids + ')');
  }
  for (const Change& change : changes_) {
    if (change.ended != 0) restore(change);
  }
}

// The value of a column as it stands again.
std::string ActInverse::restoredColumn(const Change& change, const std::string& column) const {
  const Kind* kind = kindOf(change.table);
  if (kind != nullptr && column == kind->numbered) {
    // Line numbers are a client's own, voucher numbers those of all who share the table.
    const bool own = column == "srno";
    const std::string others =
        " from " + change.into + " s where " + (own ? "s.code_no=t.code_no" : "true");
    const std::string window = own ? " over (partition by t.code_no" : " over (";
    return "if(exists(select 1" + others + " and s." + column + "=t." + column +
           "),greatest((select max(s." + column + ')' + others + "),max(t." + column + ')' +
           window + "))+dense_rank()" + window + " order by t." + column + "),t." + column + ')';
  }
  for (const auto& [from, to] : numbers_) {
    if (change.table == "master" && column == "count") return to;
    if (change.table == "master" && column == "tbl_nm") return "'TAB_" + to + '\'';
    if (column == "RCOUNT") return "if(t.RCOUNT=" + from + ',' + to + ",t.RCOUNT)";
  }
  return "t." + column;
}

// Rows keep their ids, by which later acts on them are told from earlier ones; in another table
// they are new.
void ActInverse::restore(const Change& change) const {
  std::vector<std::string> columns = change.columns;
  if (change.into == change.table) columns.push_back(rowIdColumn);
  std::vector<std::string> values;
  for (const std::string& column : columns) values.push_back(restoredColumn(change, column));
  unit_.execute("insert into " + change.into + '(' + joined(columns) + ") select " +
                joined(values) + endedRows(change) +
                (isValue(change.table)
                     ? " and not exists(select 1 from " + change.into + " s where " +
                           sameKeys(kindOf(change.table)->keys) + ')'
                     : "") +
                " order by t.row_id");
}

}  // namespace quillet::suite
