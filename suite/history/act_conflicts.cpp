// What stands in the way of taking an act back.
#include <algorithm>
#include <array>
#include <string_view>

#include "suite/history/act_inverse.h"
#include "suite/history/row_kinds.h"
#include "suite/history/written_table.h"

namespace quillet::suite {
namespace {

using row_kinds::isValue;
using row_kinds::Kind;
using row_kinds::kindOf;
using row_kinds::prefixOf;
using row_kinds::sameKeys;
using row_kinds::sentence;

// Rows that stand end here.
constexpr const char* stands = "row_till>'2038-01-01'";
// Many rows may stand in the way of one act.
constexpr const char* some = " limit 5";

// Of ledgers and groups.
std::string nameColumn(const std::string& table) {
  return table == "mast_part" ? "Particular" : table == "mast_allgrp" ? "ALLGRP" : "";
}

}  // namespace

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

// What the act began was changed or deleted since.
void ActInverse::addChangedLater(const Change& change, std::vector<std::string>& found) const {
  if (change.begun == 0 || keepsNewNames(change)) return;
  const Kind* kind = kindOf(change.table);
  const std::string name = kind ? std::string(kind->name) : "'rows of " + change.table + '\'';
  const std::string last = "(select max(if(x." + std::string(stands) +
                           ",x.row_from,x.row_till)) from " + change.table +
                           " for system_time all x where x.row_id=t.row_id)";
  const RecordsetPtr rows = unit_.query(
      "select distinct " + name + ',' + last +
      ",(select concat(a.Command,', by ',substring_index(a.Person,'@',1)) from SuiteAct "
      "a where a.At=" +
      last + ')' + begunRows(change) + " and not " + standsUnchanged(change) + some);
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
  const std::string same =
      " from " + change.table + " s where " + (elsewhere ? "s.row_id=t.row_id" : sameKeys(*kind));
  const std::string name = nameColumn(change.table);
  // A later ledger or group may have the number and another name.
  const std::string other = name.empty() ? "null"
                                         : "(select s." + name + same + " and s." + name + "<>t." +
                                               name + " limit 1" + ')';
  const RecordsetPtr rows =
      unit_.query("select distinct " + std::string(kind->name) + ',' + other + endedRows(change) +
                  " and exists(select 1" + same + " and not exists(select 1 from " + change.table +
                  " for system_time all b where b.row_id=s.row_id and ((b.row_from=" + at_ +
                  " and b.row_till>" + at_ + ") or (s.row_id<>t.row_id and b.row_from<" + at_ +
                  " and b.row_till>=" + at_ + "))))" + some);
  for (; !rows->EOF_(); rows->MoveNext()) {
    found.push_back(rows->field(1) ? "The number of " + rows->text(0) + " now belongs to " +
                                         rows->text(1) + '.'
                                   : sentence(rows->text(0) + " was made again since"));
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

}  // namespace quillet::suite
