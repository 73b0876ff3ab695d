#include "suite/history/act_inverse.h"

#include <algorithm>
#include <set>
#include <utility>

#include "suite/history/row_kinds.h"
#include "suite/history/written_table.h"
#include "suite/schema_tables.h"

namespace quillet::suite {
namespace {

using row_kinds::Kind;
using row_kinds::kindOf;

std::string listed(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ",") + part;
  return text;
}

}  // namespace

ActInverse::ActInverse(UnitOfWork& unit, ActRow act)
    : unit_(unit), act_(std::move(act)), at_("timestamp'" + instantText(act_.at) + '\'') {
  for (const std::string& table : act_.changedTables()) {
    if (isVersioned(table)) read(table);
  }
  chooseNumbers();
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
void ActInverse::chooseNumbers() {
  numbers_.clear();
  for (Change& change : changes_) change.into = change.table;
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
      change.into = row_kinds::prefixOf(change.table) + std::to_string(free);
    }
  }
}

// The first row of the first table that has a name for its rows, and how many there are besides.
std::string ActInverse::words() const {
  long rows = 0;
  const Change* named = nullptr;
  for (const Change& change : changes_) {
    if (keepsNewNames(change) || row_kinds::isValue(change.table)) continue;
    rows += std::max(change.begun, change.ended);
    const bool better = named == nullptr || change.table == "master" ||
                        (row_kinds::prefixOf(change.table) == "jrnl_" && named->table != "master");
    if (kindOf(change.table) != nullptr && better) named = &change;
  }
  if (named == nullptr) return rows == 0 ? "" : std::to_string(rows) + " rows of other data.";
  const std::string name(kindOf(named->table)->name);
  const RecordsetPtr first = unit_.query(
      "select " + name + (named->ended != 0 ? endedRows(*named) : begunRows(*named)) + " limit 1");
  const std::string more = rows < 2    ? ""
                           : rows == 2 ? ", and 1 more row"
                                       : ", and " + std::to_string(rows - 1) + " more rows";
  return row_kinds::sentence(first->text(0) + more);
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

// A ledger or group that was made with lines stays when the lines go, as it does when they are
// deleted.
bool ActInverse::keepsNewNames(const Change& change) const {
  const bool names = change.table == "mast_part" || change.table == "mast_allgrp";
  return names && change.ended == 0 && std::ranges::any_of(changes_, [](const Change& each) {
           return !yearSuffix(each.table).empty();
         });
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
  unit_.execute("insert into " + change.into + '(' + listed(columns) + ") select " +
                listed(values) + endedRows(change) +
                (row_kinds::isValue(change.table)
                     ? " and not exists(select 1 from " + change.into + " s where " +
                           row_kinds::sameKeys(*kindOf(change.table)) + ')'
                     : "") +
                " order by t.row_id");
}

}  // namespace quillet::suite
